#include "search/progress.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>

#include "search/files.h"

namespace vorquell::search {

namespace {

constexpr std::size_t kBarWidth = 20;
constexpr char kEraseLine[] = "\r\033[K";

/// Hours, minutes and seconds.
std::string durationText(double seconds) {
  const long long whole = std::llround(std::min(seconds, 1e9));
  char text[32];
  std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60, whole % 60);
  return text;
}

}  // namespace

std::string progressText(std::uint64_t done, std::optional<std::uint64_t> expected,
                         double seconds) {
  const auto compared = static_cast<double>(done);
  const double rate = compared / std::max(seconds, 1e-9);
  char text[160];
  if (!expected) {
    std::snprintf(text, sizeof text, "%.0f compared, %.3g/s, time left unknown", compared, rate);
    return text;
  }
  const auto all = static_cast<double>(*expected);
  const double share = all > 0 ? std::min(compared / all, 1.0) : 1.0;
  const auto filled = static_cast<std::size_t>(share * kBarWidth);
  const std::string bar = std::string(filled, '#') + std::string(kBarWidth - filled, '.');
  const double left = rate > 0 ? std::max(all - compared, 0.0) / rate : 0.0;
  std::snprintf(text, sizeof text, "[%s] %3.0f %%  %.0f of %.0f, %.3g/s, %s left", bar.c_str(),
                100 * share, compared, all, rate,
                rate > 0 || share == 1.0 ? durationText(left).c_str() : "?");
  return text;
}

Progress::Progress(ProgressWhen when, bool isTerminal, std::chrono::milliseconds interval)
    : isInPlace_(isTerminal && when != ProgressWhen::kNever),
      isAlways_(when == ProgressWhen::kAlways),
      isShown_(isAlways_ || isInPlace_),
      interval_(interval) {}

Progress::~Progress() {
  end();
}

void Progress::begin() {
  begin_ = std::chrono::steady_clock::now();
  if (!isShown_) return;
  try {
    printer_ = std::thread([this] { printRegularly(); });
  } catch (const std::exception&) {  // then there is no line
  }
}

void Progress::end() {
  if (!printer_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    hasEnded_ = true;
  }
  ended_.notify_one();
  printer_.join();
  if (isAlways_) print();
  if (!isInPlace_) return;
  if (isAlways_) {
    writeAll(STDERR_FILENO, "\n");
  } else if (isLineShown_) {
    writeAll(STDERR_FILENO, kEraseLine);
  }
}

void Progress::printRegularly() {
  std::unique_lock lock(mutex_);
  while (!ended_.wait_for(lock, interval_, [this] { return hasEnded_; })) print();
}

void Progress::print() {
  isLineShown_ = true;
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin_;
  try {
    const std::string text = progressText(done_, expected_, elapsed.count());
    writeAll(STDERR_FILENO, isInPlace_ ? kEraseLine + text : text + '\n');
  } catch (const std::exception&) {  // then there is no line
  }
}

}  // namespace vorquell::search

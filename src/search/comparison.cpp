#include "search/comparison.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <deque>
#include <mutex>

#include "Bitstream.h"
#include "ORV_Search.h"
#include "search/closest.h"
#include "search/match.h"
#include "search/packed.h"
#include "search/progress.h"
#include "search/scan.h"
#include "search/threads.h"

namespace vorquell::search {

namespace {

/// What is read of a packed file at a time, where a feature is not longer.
constexpr std::uint64_t kReadBytes = 256 << 10;

/// The lowest number of bits that is farther than `within`.
std::uint32_t limitOf(double within, std::uint64_t length) {
  std::uint32_t low = 0;
  std::uint32_t high = static_cast<std::uint32_t>(8 * length) + 1;
  while (low < high) {
    const std::uint32_t middle = low + (high - low) / 2;
    if (distanceOf(middle, length) > within) {
      high = middle;
    } else {
      low = middle + 1;
    }
  }
  return low;
}

/// No bitstream has more bytes that count.
std::uint64_t longestQuery(std::uint64_t targetLength) {
  return detail::kFirstFrameOffset + detail::kMaxFrames * (detail::kFeatureOffset + targetLength);
}

/// What one thread has for itself.
struct Worker {
  Closest<Result> closest;
  std::vector<Failure> failures = {};
  Buffer buffer = {};
};

class Comparison {
 public:
  Comparison(const Buffer& target, const Queries& queries, const Options& options);

  Outcome run();

 private:
  void work(Worker& worker);
  void compareFile(std::uint64_t query, Worker& worker);
  int matchFile(std::uint64_t query, Buffer& buffer, Kept* closest) const;
  void comparePacked(std::uint64_t number, Worker& worker);
  void addPackedFailures(std::vector<Failure>& failures) const;
  void estimate();

  const Buffer& target_;
  const Queries& queries_;
  const Options& options_;
  const std::uint64_t blockBytes_;
  Counter files_;
  std::deque<PackedFile> packed_;  // they do not move
  std::uint64_t parts_ = 0;        // what threads can share
  Progress progress_;
};

Comparison::Comparison(const Buffer& target, const Queries& queries, const Options& options)
    : target_(target),
      queries_(queries),
      options_(options),
      blockBytes_(std::max<std::uint64_t>(1, kReadBytes / target.size()) * target.size()),
      files_(queries.fileCount()),
      progress_(options.progress, isatty(STDERR_FILENO) == 1) {
  for (std::uint64_t query = queries.fileCount(); query < queries.count(); ++query) {
    packed_.emplace_back(queries.name(query), blockBytes_);
  }
  estimate();
}

/// How much there is to do, as far as that is known before.
void Comparison::estimate() {
  parts_ = queries_.fileCount();
  progress_.expect(queries_.fileCount());
  for (const char* name : options_.packed) {
    struct stat status;
    const bool isKnown =
        !isStandardInput(name) && stat(name, &status) == 0 && S_ISREG(status.st_mode);
    const auto size = isKnown ? static_cast<std::uint64_t>(status.st_size) : 0;
    parts_ += isKnown ? size / blockBytes_ + 1 : 1;
    if (isKnown) {
      progress_.expect(size / target_.size());
    } else {
      progress_.expectUnknown();
    }
  }
}

int Comparison::matchFile(std::uint64_t query, Buffer& buffer, Kept* closest) const {
  const int error = buffer.read(File(queries_.name(query)), longestQuery(target_.size()));
  if (error != 0) return error;
  return matchQuery(target_.bytes(), target_.size(), buffer.bytes(), buffer.size(), closest);
}

void Comparison::compareFile(std::uint64_t query, Worker& worker) {
  Kept closest;
  const int code = matchFile(query, worker.buffer, &closest);
  if (code == ORV_FOUND) {
    worker.closest.offer({closest.bits, query, closest.index});
  } else {
    worker.failures.push_back({query, code, 0, 0});
  }
  progress_.add(1);
}

void Comparison::comparePacked(std::uint64_t number, Worker& worker) {
  const std::uint64_t query = queries_.fileCount() + number;
  const std::uint64_t length = target_.size();
  for (std::uint64_t begin; packed_[number].readBlock(worker.buffer, &begin);) {
    const Features features{worker.buffer.bytes(), worker.buffer.size() / length, length};
    forEachBlock(features, [&](const Features& block, std::uint64_t firstOfBlock) {
      const std::uint64_t first = begin / length + firstOfBlock;
      scanBlock(target_.bytes(), block, true, worker.closest,
                [&](std::uint32_t bits, std::uint64_t index) {
                  return Result{bits, query, first + index};
                });
    });
    progress_.add(features.count);
  }
}

/// In the order of the queries, as Closest wants it.
void Comparison::work(Worker& worker) {
  for (std::uint64_t query; files_.next(&query);) compareFile(query, worker);
  for (std::uint64_t number = 0; number < packed_.size(); ++number) comparePacked(number, worker);
}

void Comparison::addPackedFailures(std::vector<Failure>& failures) const {
  for (std::uint64_t number = 0; number < packed_.size(); ++number) {
    const PackedFile& file = packed_[number];
    const std::uint64_t features = file.size() / target_.size();
    const std::uint64_t leftOver = file.size() % target_.size();
    if (file.error() != 0 || leftOver != 0 || features == 0) {
      failures.push_back({queries_.fileCount() + number, file.error(), features, leftOver});
    }
  }
}

Outcome Comparison::run() {
  const Closest<Result> none(options_.nearest, limitOf(options_.within, target_.size()));
  Closest<Result> all = none;
  std::vector<Failure> failures;
  std::mutex mutex;
  const auto threads =
      static_cast<unsigned>(std::clamp<std::uint64_t>(parts_, 1, threadCount(options_.threads)));
  progress_.begin();
  runOnThreads(threads, [&](unsigned) {
    Worker worker{none};
    work(worker);
    const std::lock_guard lock(mutex);
    all.merge(worker.closest);
    failures.insert(failures.end(), worker.failures.begin(), worker.failures.end());
  });
  progress_.end();
  std::sort(failures.begin(), failures.end(),
            [](const Failure& a, const Failure& b) { return a.query < b.query; });
  addPackedFailures(failures);
  return {std::move(all.sorted()), std::move(failures)};
}

}  // namespace

Outcome compareAll(const Buffer& target, const Queries& queries, const Options& options) {
  return Comparison(target, queries, options).run();
}

}  // namespace vorquell::search

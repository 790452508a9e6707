// VorquellSearch's files: a list of names is split and a packed file read as by plain loops, and
// each of its features is found at the plain distance. Input: the target, then what files hold.
#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Input.h"
#include "reference/PlainComparison.h"
#include "search/comparison.h"
#include "search/packed.h"
#include "search/streams.h"
#include "support/ScratchDir.h"

using namespace vorquell::search;

namespace {

const ScratchDir& scratch() {
  static const ScratchDir folder;
  return folder;
}

void checkList(std::string bytes) {
  const std::string path = scratch().write("list", bytes);
  std::vector<std::string> expected;
  if (!bytes.empty() && bytes.back() != '\0') bytes += '\0';
  for (std::size_t at = 0, end; at < bytes.size(); at = end + 1) {
    end = bytes.find('\0', at);
    expected.push_back(bytes.substr(at, end - at));
  }
  Options options;
  options.list = path.c_str();
  try {
    const Queries queries(options);
    require(!expected.empty() && queries.count() == expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) require(queries.name(i) == expected[i]);
  } catch (const Fatal&) {
    require(expected.empty());
  }
}

void checkBlocks(const std::string& path, const std::string& bytes, std::uint64_t blockBytes) {
  PackedFile file(path.c_str(), blockBytes);
  Buffer buffer;
  std::string read;
  for (std::uint64_t begin; file.readBlock(buffer, &begin);) {
    require(begin == read.size() && buffer.size() <= blockBytes);
    require(buffer.size() == blockBytes || begin + buffer.size() == bytes.size());
    read.append(buffer.bytes(), buffer.size());
  }
  require(read == bytes && file.size() == bytes.size() && file.error() == 0);
}

std::uint32_t plainBits(const std::string& target, const char* feature) {
  const auto length = static_cast<int>(target.size());
  return static_cast<std::uint32_t>(plainScores(target.data(), feature, length) * 8 * length + 0.5);
}

void checkSearch(const std::string& target, const std::vector<std::string>& files,
                 const Options& options) {
  std::vector<Result> expected;
  std::vector<Failure> failures;
  for (std::size_t q = 0; q < files.size(); ++q) {
    const std::size_t count = files[q].size() / target.size(),
                      rest = files[q].size() % target.size();
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint32_t bits = plainBits(target, files[q].data() + i * target.size());
      const double distance = bits / (8.0 * static_cast<double>(target.size()));
      if (distance <= options.within) expected.push_back({bits, q, i});
    }
    if (count == 0 || rest > 0) failures.push_back({q, 0, count, rest});
  }
  std::sort(expected.begin(), expected.end());
  if (expected.size() > options.nearest) expected.resize(options.nearest, {});

  Buffer buffer;
  require(buffer.read(File(scratch().write("target", target).c_str()), target.size() + 1) == 0);
  const Outcome outcome = compareAll(buffer, Queries(options), options);
  require(outcome.results == expected);
  const auto isSame = [](const Failure& a, const Failure& b) {
    return a.query == b.query && a.code == b.code && a.features == b.features &&
           a.leftOver == b.leftOver;
  };
  require(std::equal(failures.begin(), failures.end(), outcome.failures.begin(),
                     outcome.failures.end(), isSame));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  Input input(data, size);
  const std::string target = input.text(1, 70);
  std::vector<std::string> files(static_cast<std::size_t>(input.between(1, 3))), paths;
  for (std::string& bytes : files) {
    bytes = input.text(0, 2000);
    paths.push_back(scratch().write(std::to_string(paths.size()), bytes));
  }
  checkList(files[0].substr(0, 300));
  checkBlocks(paths[0], files[0], static_cast<std::uint64_t>(input.between(1, 600)));
  if (target.size() > 60 &&
      input.between(0, 29) == 0) {  // more than is read of a packed file at a time
    files[0].resize(270'000, 'x');
    scratch().write("0", files[0]);
  }
  Options options;
  options.progress = ProgressWhen::kNever;
  for (const std::string& path : paths) options.packed.push_back(path.c_str());
  if (input.flag()) options.nearest = static_cast<std::uint64_t>(input.between(1, 40));
  if (input.flag()) options.within = input.between(0, 1000) / 1000.0;
  options.threads = static_cast<unsigned>(input.between(1, 2));
  checkSearch(target, files, options);
  return 0;
}

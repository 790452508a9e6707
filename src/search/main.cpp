// VorquellSearch: one target, many queries, the closest first.
#include <charconv>
#include <cstdio>
#include <string>

#include "ORV_Search.h"
#include "search/closest.h"
#include "search/comparison.h"
#include "search/files.h"
#include "search/match.h"
#include "search/options.h"
#include "search/queries.h"
#include "search/streams.h"

using namespace vorquell::search;

namespace {

enum Status { kAllCompared = 0, kSomeNotCompared = 1, kFailed = 2 };

void readTarget(const char* name, Buffer& target) {
  const int error = target.read(File(name), kMaxLength + 1);
  const std::string subject = std::string(name) + ": ";
  if (error != 0) throw Fatal(subject + reasonOf(error));
  if (target.size() == 0) throw Fatal(subject + "The target is empty");
  if (target.size() > kMaxLength) throw Fatal(subject + "The target has 2^28 bytes or more");
}

std::string leftOverText(const Failure& failure) {
  const std::string bytes = std::to_string(failure.leftOver) +
                            (failure.leftOver == 1 ? " byte is" : " bytes are") + " left over";
  if (failure.features == 0) return "No whole feature, " + bytes;
  return bytes + " after " + std::to_string(failure.features) +
         (failure.features == 1 ? " whole feature" : " whole features");
}

std::string reasonText(const Failure& failure) {
  if (failure.code > 0) return reasonOf(failure.code);
  if (failure.code < 0) return ORV_SearchText(failure.code);
  return leftOverText(failure);
}

/// A line for each result. As they are sorted, the text of a distance often serves the next one.
void printResults(const std::vector<Result>& results, const Queries& queries,
                  std::uint64_t targetLength, char lineEnd) {
  Output output;
  char distance[16];
  std::uint32_t bitsOfDistance = kNoLimit;
  char index[24];
  for (const Result& result : results) {
    if (result.bits != bitsOfDistance) {
      bitsOfDistance = result.bits;
      std::snprintf(distance, sizeof distance, "%f", distanceOf(result.bits, targetLength));
    }
    const char* const indexEnd =
        std::to_chars(std::begin(index), std::end(index), result.index).ptr;
    output.append(distance);
    output.append('\t');
    output.append(std::string_view(index, indexEnd));
    output.append('\t');
    output.append(queries.name(result.query));
    output.append(lineEnd);
  }
  output.finish();
}

Status search(const Options& options) {
  Buffer target;
  readTarget(options.target, target);
  const Queries queries(options);
  const Outcome outcome = compareAll(target, queries, options);
  for (const Failure& failure : outcome.failures) {
    printMessage(std::string(queries.name(failure.query)) + ": " + reasonText(failure));
  }
  printResults(outcome.results, queries, target.size(), options.lineEnd);
  return outcome.failures.empty() ? kAllCompared : kSomeNotCompared;
}

Status printText(std::string_view text) {
  Output output;
  output.append(text);
  output.finish();
  return kAllCompared;
}

Status run(int argc, char** argv) {
  const Options options = parseOptions(argc, argv);
  if (options.request == Request::kHelp) return printText(kHelp);
  if (options.request == Request::kVersion) {
    return printText("VorquellSearch " VORQUELL_VERSION "\n");
  }
  return search(options);
}

}  // namespace

int main(int argc, char** argv) {
  prepareStandardStreams();
  try {
    return run(argc, argv);
  } catch (const UsageError& error) {
    printMessage(std::string(error.what()) + " (see VorquellSearch --help)");
  } catch (const Fatal& error) {
    printMessage(error.what());
  } catch (const std::exception&) {  // a container that gets no memory
    printMessage(ORV_SearchText(ORV_OUT_OF_MEMORY));
  }
  return kFailed;
}

// Loads two files with the toolbox, checks that the query is whole, and compares them.
#include <Brindle/XFileTool.h>
#include <FeatureReader.h>
#include <ORV_CompareFeatures.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  unsigned char* target = nullptr;
  unsigned char* query = nullptr;
  std::uint64_t targetLength = 0;
  std::uint64_t queryLength = 0;
  xLoadBinFile(argv[1], target, targetLength);
  xLoadBinFile(argv[2], query, queryLength);

  const char* queryBytes = reinterpret_cast<const char*>(query);
  double distance = 0.0;
  const bool isCompared =
      queryFramesFit(queryBytes, queryLength, targetLength) &&
      ORV_CompareFeatures(reinterpret_cast<const char*>(target),
                          static_cast<unsigned int>(targetLength), queryBytes,
                          static_cast<unsigned int>(queryLength), &distance) == 0;
  if (isCompared) std::printf("%.6f\n", distance);
  std::free(target);
  std::free(query);
  return isCompared ? EXIT_SUCCESS : EXIT_FAILURE;
}

#include "search/scan.h"

#include <vector>

#include "search/threads.h"

namespace vorquell::search {

namespace {

/// Half of a first-level cache of 32 KiB: the targets and the counts want room as well.
constexpr std::uint64_t kBlockBytes = 16 << 10;
/// Targets that pass a block of features while it is cached: enough to outweigh its way from
/// memory, and fewer where each keeps many matches.
constexpr std::uint64_t kTargetBlock = 128;
constexpr std::uint64_t kMostKept = 1 << 20;
/// What a thread takes from the features at a time.
constexpr std::uint64_t kChunkBytes = 256 << 10;
/// Bytes to compare that are worth another thread, which takes about 20 microseconds to start.
constexpr std::uint64_t kBytesPerThread = 4 << 20;
/// So many blocks of targets for each thread share out evenly.
constexpr std::uint64_t kEvenShare = 8;

std::uint64_t pieces(std::uint64_t whole, std::uint64_t size) {
  return whole / size + (whole % size != 0);
}

/// The piece with that number of what is cut into pieces of `size`.
Features pieceOf(const Features& whole, std::uint64_t number, std::uint64_t size) {
  const std::uint64_t first = number * size;
  return whole.slice(first, std::min(size, whole.count - first));
}

/// How many features a thread takes at a time: a multiple of the block size.
std::uint64_t chunkSize(std::uint64_t length) {
  const std::uint64_t block = blockSize(length);
  return std::max(block, kChunkBytes / length / block * block);
}

/// How many of `threads` are worth starting for so many comparisons, which come in `parts`.
unsigned usefulThreads(unsigned threads, const Features& targets, const Features& features,
                       std::uint64_t parts) {
  const auto bytes = static_cast<double>(targets.count) * static_cast<double>(features.count) *
                     static_cast<double>(features.length);
  const double useful = std::min(bytes / static_cast<double>(kBytesPerThread),
                                 static_cast<double>(std::min<std::uint64_t>(parts, threads)));
  return std::max(1U, static_cast<unsigned>(useful));
}

void writeBlockDistances(const char* target, const Features& block, bool isCached,
                         double* distances) {
  std::array<std::uint32_t, kMaxBlock> counts;
  std::uint64_t done = countInGroups(block, isCached);
  countGroups(target, block.bytes, done, block.length, 0, counts.data());
  for (; done < block.count; ++done) {
    counts[done] = static_cast<std::uint32_t>(differingBits(target, block.at(done), block.length));
  }
  for (std::uint64_t i = 0; i < block.count; ++i) {
    distances[i] = distanceOf(counts[i], block.length);
  }
}

using Row = Closest<Kept>;

/// Offers the rows, one a target, the features of a chunk that begins with number `firstOfChunk`.
void scanChunk(const Features& targets, const Features& chunk, std::uint64_t firstOfChunk,
               std::vector<Row>& rows) {
  forEachBlock(chunk, [&](const Features& block, std::uint64_t firstInChunk) {
    const std::uint64_t first = firstOfChunk + firstInChunk;
    for (std::uint64_t t = 0; t < targets.count; ++t) {
      scanBlock(targets.at(t), block, t > 0, rows[t],
                [first](std::uint32_t bits, std::uint64_t index) {
                  return Kept{bits, first + index};
                });
    }
  });
}

void writeRow(Row& row, std::uint64_t length, ORV_Match* matches) {
  for (const Kept& kept : row.sorted()) {
    *matches++ = {kept.index, distanceOf(kept.bits, length)};
  }
}

/// The closest features of one block of targets, by several threads that share the features.
void writeNearestOfBlock(const Features& targets, const Features& features, std::uint64_t k,
                         unsigned threads, ORV_Match* matches) {
  const std::uint64_t size = chunkSize(features.length);
  Counter chunks(pieces(features.count, size));
  std::vector<std::vector<Row>> found(threads);
  runOnThreads(threads, [&](unsigned worker) {
    std::vector<Row> rows(targets.count, Row(k));
    for (Row& row : rows) row.reserve();
    for (std::uint64_t chunk; chunks.next(&chunk);) {
      scanChunk(targets, pieceOf(features, chunk, size), chunk * size, rows);
    }
    found[worker] = std::move(rows);
  });
  for (std::uint64_t t = 0; t < targets.count; ++t) {
    Row closest(k);
    for (const std::vector<Row>& rows : found) {
      if (!rows.empty()) closest.merge(rows[t]);
    }
    writeRow(closest, features.length, matches + t * k);
  }
}

}  // namespace

std::uint64_t blockSize(std::uint64_t length) {
  return std::clamp(kBlockBytes / length / kGroup * kGroup, kGroup, kMaxBlock);
}

void writeDistances(const Features& targets, const Features& features, unsigned threads,
                    double* distances) {
  const std::uint64_t size = chunkSize(features.length);
  const std::uint64_t chunks = pieces(features.count, size);
  const std::uint64_t parts = pieces(targets.count, kTargetBlock) * chunks;
  Counter counter(parts);
  runOnThreads(usefulThreads(threads, targets, features, parts), [&](unsigned) {
    for (std::uint64_t part; counter.next(&part);) {
      const Features some = pieceOf(targets, part / chunks, kTargetBlock);
      double* const corner =
          distances + part / chunks * kTargetBlock * features.count + part % chunks * size;
      forEachBlock(
          pieceOf(features, part % chunks, size), [&](const Features& block, std::uint64_t first) {
            for (std::uint64_t t = 0; t < some.count; ++t) {
              writeBlockDistances(some.at(t), block, t > 0, corner + t * features.count + first);
            }
          });
    }
  });
}

void writeNearest(const Features& targets, const Features& features, std::uint64_t k,
                  unsigned threads, ORV_Match* matches) {
  const std::uint64_t size = std::clamp<std::uint64_t>(kMostKept / k, 1, kTargetBlock);
  const std::uint64_t blocks = pieces(targets.count, size);
  const std::uint64_t chunks = pieces(features.count, chunkSize(features.length));
  const bool targetsAreShared = blocks >= kEvenShare * threads;
  Counter counter(blocks);
  const auto work = [&](unsigned) {
    for (std::uint64_t number; counter.next(&number);) {
      const Features block = pieceOf(targets, number, size);
      const unsigned helpers =
          targetsAreShared ? 1 : usefulThreads(threads, block, features, chunks);
      writeNearestOfBlock(block, features, k, helpers, matches + number * size * k);
    }
  };
  runOnThreads(targetsAreShared ? usefulThreads(threads, targets, features, blocks) : 1, work);
}

}  // namespace vorquell::search

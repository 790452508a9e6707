// Many targets with many features. Private: not installed. Used by the library and the program.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "ORV_Search.h"
#include "search/closest.h"
#include "search/kernels.h"
#include "search/match.h"

namespace vorquell::search {

/// Features that lie one after the other.
struct Features {
  const char* bytes;
  std::uint64_t count;
  std::uint64_t length;

  const char* at(std::uint64_t index) const { return bytes + index * length; }
  Features slice(std::uint64_t first, std::uint64_t size) const {
    return {at(first), size, length};
  }
};

/// The most features of a block.
inline constexpr std::uint64_t kMaxBlock = 1024;
static_assert(kMaxBlock % kGroup == 0);

/// How many features of `length` bytes are a block: a multiple of kGroup, as many as stay in the
/// first-level cache while all targets pass, but at least one group.
std::uint64_t blockSize(std::uint64_t length);

/// How many features of a block are counted in groups. The others are counted one by one: those
/// that fill no group, and all where the processor's prefetching does not follow eight features at
/// a time that come from memory, as several of them lie in the same page.
inline std::uint64_t countInGroups(const Features& block, bool isCached) {
  constexpr std::uint64_t kFirstUnfollowed = 256;
  constexpr std::uint64_t kPage = 4096;
  if (!isCached && block.length >= kFirstUnfollowed && block.length < kPage) return 0;
  return block.count - block.count % kGroup;
}

/// Calls `onBlock(block, first)` with each block of `features` and the number of its first.
template <class OnBlock>
void forEachBlock(const Features& features, OnBlock onBlock) {
  const std::uint64_t size = blockSize(features.length);
  for (std::uint64_t first = 0; first < features.count; first += size) {
    onBlock(features.slice(first, std::min(size, features.count - first)), first);
  }
}

/// Offers `closest` the features of a block; `entryOf(bits, index)` makes the entry of the one with
/// that number in the block. `isCached`: something has read it just before.
template <class Entry, class EntryOf>
void scanBlock(const char* target, const Features& block, bool isCached, Closest<Entry>& closest,
               EntryOf entryOf) {
  std::array<std::uint32_t, kMaxBlock> counts;
  const std::uint64_t inGroups = countInGroups(block, isCached);
  std::uint64_t done = 0;
  while (done < inGroups) {
    const std::uint64_t counted = countGroups(target, block.at(done), inGroups - done, block.length,
                                              closest.limit(), counts.data());
    done += counted;
    for (std::uint64_t i = kGroup; i > 0; --i) {
      if (counts[counted - i] < closest.limit()) {
        closest.offer(entryOf(counts[counted - i], done - i));
      }
    }
  }
  for (; done < block.count; ++done) {
    const std::uint64_t bits = differingBits(target, block.at(done), block.length);
    closest.offer(entryOf(static_cast<std::uint32_t>(bits), done));
  }
}

/// ORV_Distances() and ORV_Nearest() of valid input, no count 0 and `k` at most that of the
/// features; std::bad_alloc where there is no memory.
void writeDistances(const Features& targets, const Features& features, unsigned threads,
                    double* distances);
void writeNearest(const Features& targets, const Features& features, std::uint64_t k,
                  unsigned threads, ORV_Match* matches);

}  // namespace vorquell::search

// The k closest of what is offered. Private: not installed. Used by the library and the program.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

namespace vorquell::search {

/// Lets every count in: a feature has fewer bits.
inline constexpr std::uint32_t kNoLimit = std::numeric_limits<std::uint32_t>::max();

/// Keeps the `k` smallest entries. They must be offered in their order among equal `bits`, so that
/// one with as many bits as the worst that is kept cannot take its place.
template <class Entry>
class Closest {
 public:
  explicit Closest(std::uint64_t k, std::uint32_t limit = kNoLimit) : k_(k), limit_(limit) {}

  /// Only an entry with fewer bits than this is worth offering.
  std::uint32_t limit() const { return limit_; }

  void offer(const Entry& entry) {
    if (entry.bits >= limit_) return;
    if (entries_.size() < k_) {
      entries_.push_back(entry);
      if (entries_.size() < k_) return;
      std::make_heap(entries_.begin(), entries_.end());
    } else {
      std::pop_heap(entries_.begin(), entries_.end());
      entries_.back() = entry;
      std::push_heap(entries_.begin(), entries_.end());
    }
    limit_ = entries_.front().bits;
  }

  /// Makes room for all `k` entries.
  void reserve() { entries_.reserve(k_); }

  /// Takes over what `other` keeps; afterwards only sorted() and this function may be called.
  void merge(const Closest& other) {
    entries_.insert(entries_.end(), other.entries_.begin(), other.entries_.end());
  }

  /// Sorts what is kept and returns the first `k`.
  std::vector<Entry>& sorted() {
    std::sort(entries_.begin(), entries_.end());
    if (entries_.size() > k_)
      entries_.erase(entries_.begin() + static_cast<long>(k_), entries_.end());
    return entries_;
  }

 private:
  std::uint64_t k_;
  std::uint32_t limit_;
  std::vector<Entry> entries_;  // once there are k, a heap with the worst in front
};

}  // namespace vorquell::search

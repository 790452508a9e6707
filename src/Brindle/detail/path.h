// What the file tools know of paths. Private: not installed. Used by XFileTool/, where a null path
// counts as an empty one and both slashes separate, and by stringTools.
#pragma once

namespace brindle::detail {

template <class Char>
constexpr Char kSeparators[] = {'/', '\\', 0};

template <class Char>
const Char* orEmpty(const Char* path) {
  static constexpr Char kEmpty[] = {0};
  return path == nullptr ? kEmpty : path;
}

}  // namespace brindle::detail

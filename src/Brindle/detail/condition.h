// How the toolbox forms its status codes. Private: not installed. Used by BrindleErrcode and by the
// file tools that return codes.
#pragma once

#include "Brindle/BrindleErrcode.h"
#include "detail/wrap.h"

namespace brindle::detail {

/// The conditions that the toolbox itself reports; BrindleErrcode.cpp holds all and their texts.
enum class Condition {
  kFailToOpenFile = 50,
  kFailToLocateFile = 51,
  kFailToWriteFile = 54,
  kPathTooLong = 57,
  kDirectoryNotReady = 65,
  kDirectoryCreated = 67,
  kDirectoryExisted = 68,
};

/// The code of a condition under the current offset; it wraps around in 32 bits.
inline int conditionCode(int number) {
  return vorquell::detail::wrappingSubtract(gErrOffsetBrindle, number);
}
inline int conditionCode(Condition condition) {
  return conditionCode(static_cast<int>(condition));
}

}  // namespace brindle::detail

// How the toolbox forms its status codes. Private: not installed.
#pragma once

#include "Brindle/BrindleErrcode.h"

namespace brindle::detail {

/// The code of a condition under the offset of this moment; it wraps around in 32 bits.
inline int conditionCode(int condition) {
  return static_cast<int>(static_cast<unsigned int>(gErrOffsetBrindle) -
                          static_cast<unsigned int>(condition));
}

}  // namespace brindle::detail

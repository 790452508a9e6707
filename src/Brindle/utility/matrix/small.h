// Determinants of two and three rows. Private: not installed. Used by the determinants and the
// inverses, which must round alike.
#pragma once

namespace brindle::detail {

/// Of the columns `left` and `right` of two rows.
inline double determinant2(const double* row0, const double* row1, int left, int right) {
  return row0[left] * row1[right] - row1[left] * row0[right];
}

/// The order and the grouping of the factors are those that the callers promise, so that the result
/// rounds as written there. It is not the order of the expansion along the first row.
inline double determinant3(const double* m0, const double* m1, const double* m2) {
  return m0[0] * m1[1] * m2[2] - m0[0] * m1[2] * m2[1] - m2[2] * (m0[1] * m1[0]) +
         m0[1] * m1[2] * m2[0] + m2[1] * (m1[0] * m0[2]) - m2[0] * (m0[2] * m1[1]);
}

}  // namespace brindle::detail

#include "Brindle/utility/mask.h"

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "Brindle/utility/polygon.h"

namespace {

constexpr std::size_t kBlock = 8;  // packed bytes that the vector loops take at a time
// The bit that each of eight pixels has in its packed byte, and every byte's highest or other bits.
constexpr std::uint64_t kPixelBits = 0x0102040810204080;
constexpr std::uint64_t kHighBits = 0x8080808080808080;
constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7F;
constexpr std::uint64_t kEveryByte = 0x0101010101010101;

std::uint64_t wordAt(const unsigned char* bytes) {
  std::uint64_t word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

/// A packed row's bytes, as bitData2Byte() counts them.
std::int64_t countRowBytes(int width) {
  return static_cast<std::int64_t>(std::ceil(static_cast<float>(width) * 0.125F));
}

/// The pixels of a packed row that have a bit.
std::int64_t countRowPixels(int width) {
  return std::min(std::int64_t{width}, 8 * countRowBytes(width));
}

// --- Unpacking

/// Unpacks 8 bytes into 64 pixels.
void unpackBlock(const unsigned char* packed, unsigned char* out) {
  const __m128i pixelBits = _mm_set1_epi64x(static_cast<long long>(kPixelBits));
  const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(packed));
  const __m128i pairs = _mm_unpacklo_epi8(bytes, bytes);
  const __m128i fours[2] = {_mm_unpacklo_epi16(pairs, pairs), _mm_unpackhi_epi16(pairs, pairs)};
  auto* const target = reinterpret_cast<__m128i*>(out);
  for (std::ptrdiff_t i = 0; i < 2; ++i) {
    const __m128i first = _mm_unpacklo_epi32(fours[i], fours[i]);
    const __m128i second = _mm_unpackhi_epi32(fours[i], fours[i]);
    _mm_storeu_si128(target + 2 * i, _mm_cmpeq_epi8(_mm_and_si128(first, pixelBits), pixelBits));
    _mm_storeu_si128(target + 2 * i + 1,
                     _mm_cmpeq_epi8(_mm_and_si128(second, pixelBits), pixelBits));
  }
}

/// The eight pixels of a packed byte.
std::uint64_t unpackByte(unsigned char packed) {
  const std::uint64_t set = (((packed * kEveryByte) & kPixelBits) + kLowBits) & kHighBits;
  return set | (set - (set >> 7));
}

void unpackRow(const unsigned char* packed, std::size_t pixels, unsigned char* out) {
  const std::size_t wholeBytes = pixels / 8;
  std::size_t i = 0;
  for (; i + kBlock <= wholeBytes; i += kBlock) unpackBlock(packed + i, out + 8 * i);
  for (; i < wholeBytes; ++i) {
    const std::uint64_t eight = unpackByte(packed[i]);
    std::memcpy(out + 8 * i, &eight, sizeof eight);
  }
  if (pixels % 8 != 0) {
    const std::uint64_t rest = unpackByte(packed[i]);
    std::memcpy(out + 8 * i, &rest, pixels % 8);
  }
}

// --- Packing

/// Packs 64 pixels into 8 bytes.
void packBlock(const unsigned char* pixels, unsigned char* packed) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i pixelBits = _mm_set1_epi64x(static_cast<long long>(kPixelBits));
  __m128i sums[4];
  for (int i = 0; i < 4; ++i) {
    const __m128i sixteen = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels) + i);
    const __m128i bits = _mm_andnot_si128(_mm_cmpeq_epi8(sixteen, zero), pixelBits);
    sums[i] = _mm_sad_epu8(bits, zero);  // the sum of eight bytes that share no bit
  }
  const __m128i words =
      _mm_packs_epi32(_mm_packs_epi32(sums[0], sums[1]), _mm_packs_epi32(sums[2], sums[3]));
  _mm_storel_epi64(reinterpret_cast<__m128i*>(packed), _mm_packus_epi16(words, words));
}

/// Packs eight pixels, which `pixels` holds in memory order.
unsigned char packPixels(std::uint64_t pixels) {
  const std::uint64_t set = (((pixels & kLowBits) + kLowBits) | pixels) & kHighBits;
  // Multiplying adds up shifted copies, one of which has each pixel's bit in its place on top.
  return static_cast<unsigned char>(((set >> 7) * 0x8040201008040201) >> 56);
}

/// Packs one row of `width` pixels. The last byte is filled only from fewer than eight pixels.
void packRow(const unsigned char* pixels, std::size_t width, unsigned char* packed) {
  const std::size_t wholeBytes = (width + 7) / 8 - 1;
  std::size_t i = 0;
  for (; i + kBlock <= wholeBytes; i += kBlock) packBlock(pixels + 8 * i, packed + i);
  for (; i < wholeBytes; ++i) packed[i] = packPixels(wordAt(pixels + 8 * i));
  if (width % 8 != 0) {
    std::uint64_t rest = 0;
    std::memcpy(&rest, pixels + 8 * i, width % 8);
    packed[i] = packPixels(rest);
  }
}

std::int32_t wrappingAdd(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

std::int32_t wrappingMultiply(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

// --- Overlap

/// Rows of packed bits on a canvas whose positions are counted row after row: row r begins at
/// position `begin` + r * the canvas's width.
struct PlacedRows {
  const unsigned char* row(std::int64_t r) const { return bits + r * rowBytes; }

  const unsigned char* bits;
  std::int64_t rowBytes;
  std::int64_t rows;
  std::int64_t begin;
  std::int64_t pixels;  // in each row
};

/// Eight bits of a row from `bit` on; those outside the row are 0.
unsigned int eightBits(const unsigned char* row, std::int64_t rowBytes, std::int64_t bit) {
  const std::int64_t i = bit >> 3;
  const unsigned int high = i >= 0 && i < rowBytes ? row[i] : 0U;
  const unsigned int low = i + 1 >= 0 && i + 1 < rowBytes ? row[i + 1] : 0U;
  return (high << 8 | low) >> (8 - (bit & 7)) & 0xFFU;
}

/// Tells whether `count` bytes of `b` have a bit in common with as many of `a`, taken from its bit
/// `shift` on. Reads one byte more of `a`.
bool bytesMeet(const unsigned char* a, int shift, const unsigned char* b, std::int64_t count) {
  constexpr std::int64_t kWord = sizeof(std::uint64_t);
  // A shifted word is shifted in all its bytes at once; these bits stay in their bytes.
  const std::uint64_t upper = (0xFFU << shift & 0xFFU) * kEveryByte;
  const auto commonWord = [=](std::int64_t i) {
    const std::uint64_t shifted =
        (wordAt(a + i) << shift & upper) | (wordAt(a + i + 1) >> (8 - shift) & ~upper);
    return shifted & wordAt(b + i);
  };
  std::uint64_t common = 0;
  if (count < kWord) {
    for (std::int64_t i = 0; i < count; ++i) common |= eightBits(a + i, 2, shift) & b[i];
    return common != 0;
  }
  for (std::int64_t i = 0; i + kWord <= count; i += kWord) common |= commonWord(i);
  return (common | commonWord(count - kWord)) != 0;
}

/// Tells whether a row r + `lead` of `a` has a set pixel in common with row r of `b`, for any r.
/// All these pairs of rows lie above each other in the same way.
bool pairsMeet(const PlacedRows& a, const PlacedRows& b, std::int64_t canvasWidth,
               std::int64_t lead) {
  const std::int64_t offset = a.begin - b.begin + lead * canvasWidth;  // of a's row, in b's row
  const std::int64_t from = std::max<std::int64_t>(offset, 0);
  const std::int64_t to = std::min(offset + a.pixels, b.pixels);
  if (from >= to) return false;
  const std::int64_t first = from / 8;
  const std::int64_t last = (to - 1) / 8;
  unsigned int firstBits = 0xFFU >> (from & 7);
  unsigned int lastBits = 0xFFU << (7 - ((to - 1) & 7));
  if (first == last) firstBits = lastBits = firstBits & lastBits;
  const std::int64_t innerBit = 8 * (first + 1) - offset;
  const std::int64_t end = std::min(b.rows, a.rows - lead);
  for (std::int64_t r = std::max<std::int64_t>(-lead, 0); r < end; ++r) {
    const unsigned char* const rowA = a.row(r + lead);
    const unsigned char* const rowB = b.row(r);
    const unsigned int inFirst = eightBits(rowA, a.rowBytes, 8 * first - offset) & rowB[first];
    const unsigned int inLast = eightBits(rowA, a.rowBytes, 8 * last - offset) & rowB[last];
    if (((inFirst & firstBits) | (inLast & lastBits)) != 0) return true;
    if (last - first > 1 && bytesMeet(rowA + innerBit / 8, static_cast<int>(innerBit & 7),
                                      rowB + first + 1, last - first - 1)) {
      return true;
    }
  }
  return false;
}

bool rowsMeet(const PlacedRows& a, const PlacedRows& b, std::int64_t canvasWidth) {
  // The leads with which rows can lie above each other, and the next to them.
  const std::int64_t ahead = b.begin - a.begin;
  const std::int64_t end = std::min(a.rows, (ahead + b.pixels) / canvasWidth + 1);
  for (std::int64_t lead = std::max(1 - b.rows, (ahead - a.pixels) / canvasWidth); lead < end;
       ++lead) {
    if (pairsMeet(a, b, canvasWidth, lead)) return true;
  }
  return false;
}

// --- Erosion

constexpr unsigned char kForeground = 127;

unsigned char lesser(unsigned char a, unsigned char b) {
  return b < a ? b : a;
}

/// Writes the surviving pixels of `row` to `out` where the least value of three rows in each of
/// three columns is foreground, and returns their number. Leaves the border columns alone.
int erodeRow(const unsigned char* row, const unsigned char* least, int width, unsigned char* out) {
  constexpr int kStrip = 255;  // as many as one byte can count
  int count = 0;
  for (int begin = 1; begin < width - 1; begin += kStrip) {
    const int end = std::min(begin + kStrip, width - 1);
    unsigned char inStrip = 0;
    for (int c = begin; c < end; ++c) {
      const unsigned char around = lesser(lesser(least[c - 1], least[c]), least[c + 1]);
      const unsigned char kept = around >= kForeground ? 255 : 0;
      out[c] = row[c] & kept;
      inStrip = static_cast<unsigned char>(inStrip + (kept & 1));
    }
    count += inStrip;
  }
  return count;
}

// --- Line and mask

using Point = std::array<double, 2>;

int signOf(double value) {
  return (value > 0.0) - (value < 0.0);
}

struct ByteMask {
  Point position(int column, int row) const {
    return {static_cast<double>(originX) + column, static_cast<double>(originY) + row};
  }

  const unsigned char* bytes;
  int originX, originY, width, height;
};

/// The directed line by which sides are told.
struct DirectedLine {
  int sideOf(Point point) {
    return signOf(isLeft2DLineDouble(from.data(), to.data(), point.data()));
  }

  Point from, to;
};

/// An end point relative to the mask, along the axis that is walked and across it.
struct WalkPoint {
  std::int64_t along, across;
};

/// The rasterised line. Its steps are the mask's columns when it is longer in x, else its rows.
class LineWalk {
 public:
  LineWalk(const ByteMask& mask, int x1, int y1, int x2, int y2) : bytes_(mask.bytes) {
    const WalkPoint ends[2] = {{std::int64_t{x1} - mask.originX, std::int64_t{y1} - mask.originY},
                               {std::int64_t{x2} - mask.originX, std::int64_t{y2} - mask.originY}};
    const bool alongX =
        std::abs(ends[0].along - ends[1].along) > std::abs(ends[0].across - ends[1].across);
    if (alongX) {
      setAxes(mask.width, 1, mask.height, mask.width);
      setEnds(ends[0], ends[1]);
    } else {
      setAxes(mask.height, mask.width, mask.width, 1);
      setEnds({ends[0].across, ends[0].along}, {ends[1].across, ends[1].along});
    }
  }

  bool segmentTouches() const { return touches(begin_, end_ + 1); }
  bool extensionTouches() const { return touches(0, begin_) || touches(end_ + 1, steps_); }

 private:
  void setAxes(int steps, int stepBytes, int breadth, int breadthBytes) {
    steps_ = steps;
    stepBytes_ = stepBytes;
    breadth_ = breadth;
    breadthBytes_ = breadthBytes;
  }

  void setEnds(WalkPoint first, WalkPoint last) {
    if (first.along > last.along) std::swap(first, last);
    begin_ = first.along;
    end_ = last.along;
    endAlong_ = static_cast<float>(last.along);
    endAcross_ = static_cast<float>(last.across);
    slope_ = (endAcross_ - static_cast<float>(first.across)) /
             (endAlong_ - static_cast<float>(first.along));
  }

  bool touches(std::int64_t from, std::int64_t to) const {
    to = std::min(to, steps_);
    for (std::int64_t step = std::max<std::int64_t>(from, 0); step < to; ++step) {
      if (touchesAt(step)) return true;
    }
    return false;
  }

  bool touchesAt(std::int64_t step) const {
    const float across = endAcross_ - (endAlong_ - static_cast<float>(step)) * slope_;
    // What truncates to a row or column of the mask. A segment without length has no slope.
    if (!(across > -1.0F && across < 2147483648.0F)) return false;
    const auto place = static_cast<std::int64_t>(across);
    return place < breadth_ && bytes_[step * stepBytes_ + place * breadthBytes_] != 0;
  }

  const unsigned char* bytes_;
  std::int64_t steps_ = 0, stepBytes_ = 0, breadth_ = 0, breadthBytes_ = 0;
  std::int64_t begin_ = 0, end_ = 0;
  float endAlong_ = 0.0F, endAcross_ = 0.0F, slope_ = 0.0F;
};

/// The side of the larger part of the mask's rectangle.
int sideOfRectangle(const ByteMask& mask, DirectedLine line) {
  std::int64_t balance = 0;
  for (int row = 0; row < mask.height; ++row) {
    for (int column = 0; column < mask.width; ++column) {
      balance += line.sideOf(mask.position(column, row));
    }
  }
  return balance < 0 ? -1 : 1;
}

/// The side of the first set pixel, or of the centre when there is none.
int sideOfPixels(const ByteMask& mask, DirectedLine line) {
  for (int row = 0; row < mask.height; ++row) {
    for (int column = 0; column < mask.width; ++column) {
      if (mask.bytes[std::int64_t{row} * mask.width + column] != 0) {
        return line.sideOf(mask.position(column, row));
      }
    }
  }
  return line.sideOf(mask.position(mask.width / 2, mask.height / 2)) > 0 ? 1 : -1;
}

}  // namespace

void bitData2Byte(unsigned char* packed, int width, int height, unsigned char* out, int outWidth,
                  int outHeight, int x0, int y0, bool clearFirst) {
  if (packed == nullptr || width < 1 || height < 1 || out == nullptr || outWidth < 1 ||
      outHeight < 1 || x0 < 0 || x0 >= outWidth || y0 < 0 || y0 >= outHeight ||
      height > outHeight - y0) {
    return;
  }
  const auto outRowBytes = static_cast<std::size_t>(outWidth);
  if (clearFirst) std::memset(out, 0, outRowBytes * static_cast<std::size_t>(outHeight));

  const auto rowBytes = static_cast<std::size_t>(countRowBytes(width));
  const auto visible = static_cast<std::size_t>(std::min(width, outWidth - x0));
  const std::size_t pixels = std::min(visible, 8 * rowBytes);
  unsigned char* target = out + static_cast<std::size_t>(y0) * outRowBytes + x0;
  for (int r = 0; r < height; ++r) {
    unpackRow(packed, pixels, target);
    std::memset(target + pixels, 0, visible - pixels);
    packed += rowBytes;
    target += outRowBytes;
  }
}

void byte2BitData(unsigned char* bytes, int width, int height, unsigned char*& packed,
                  unsigned long& packedLength) {
  packedLength = 0;
  if (width == 0 || height == 0 || bytes == nullptr) {
    std::puts("Error: invalid input (inside byte2BitData(...))!");
    return;
  }
  std::free(packed);
  packed = nullptr;
  const std::int32_t rowBytes = wrappingAdd(width, 7) / 8;
  const std::int32_t length = wrappingMultiply(height, rowBytes);
  packedLength = static_cast<unsigned long>(length);
  if (length == 0) {
    std::puts(
        "Error: unknown error occurs where packed data length is invalid (inside "
        "byte2BitData(...))!");
    return;
  }
  if (length > 0) packed = static_cast<unsigned char*>(std::calloc(packedLength, 1));
  if (packed == nullptr) {
    std::puts("Error: cannot allocate output memory (inside byte2BitData(...))!");
    return;
  }
  const std::int32_t rows = std::min(height, length / rowBytes);  // none for a negative size
  for (std::int64_t r = 0; r < rows; ++r) {
    packRow(bytes + r * width, static_cast<std::size_t>(width), packed + r * rowBytes);
  }
}

bool maskMaskOverlap(int canvasWidth, int canvasHeight, unsigned char* packedA, int widthA,
                     int heightA, int xA, int yA, unsigned char* packedB, int widthB, int heightB,
                     int xB, int yB) {
  const auto isPlaced = [=](const unsigned char* packed, int width, int height, int x, int y) {
    return packed != nullptr && width >= 1 && height >= 1 && x >= 0 && x < canvasWidth && y >= 0 &&
           y < canvasHeight;
  };
  if (canvasWidth < 1 || canvasHeight < 1 || !isPlaced(packedA, widthA, heightA, xA, yA) ||
      !isPlaced(packedB, widthB, heightB, xB, yB)) {
    std::puts("Error: invalid input (inside maskMaskOverlap(...))!");
    return false;
  }
  const std::int64_t stride = canvasWidth;
  const auto place = [=](const unsigned char* packed, int width, int height, int x, int y) {
    return PlacedRows{packed, countRowBytes(width), std::min(height, canvasHeight - y),
                      y * stride + x, countRowPixels(width)};
  };
  // A row of mask A is covered by the next one from a canvas row's length on. Only the last row
  // keeps its length, up to the canvas's end; what lies there can meet nothing of mask B.
  PlacedRows upperA = place(packedA, widthA, heightA, xA, yA);
  PlacedRows lastA = upperA;
  --upperA.rows;
  upperA.pixels = std::min(upperA.pixels, stride);
  lastA.bits = upperA.row(upperA.rows);
  lastA.rows = 1;
  lastA.begin += upperA.rows * stride;
  lastA.pixels = std::min(lastA.pixels, stride * canvasHeight - lastA.begin);
  const PlacedRows b = place(packedB, widthB, heightB, xB, yB);
  return rowsMeet(upperA, b, stride) || rowsMeet(lastA, b, stride);
}

int erosion(unsigned char* image, int width, int height) {
  if (image == nullptr || width < 1 || height < 1) return 0;
  const auto rowBytes = static_cast<std::size_t>(width);
  const std::unique_ptr<unsigned char[]> rows(new (std::nothrow) unsigned char[3 * rowBytes]);
  if (!rows) return 0;
  // The rows above and at the current one as they were; the image holds what became of them.
  unsigned char* above = rows.get();
  unsigned char* row = above + rowBytes;
  unsigned char* const least = row + rowBytes;

  int count = 0;
  std::memcpy(row, image, rowBytes);
  std::memset(image, 0, rowBytes);
  for (int r = 1; r < height; ++r) {
    unsigned char* const target = image + static_cast<std::size_t>(r) * rowBytes;
    std::swap(above, row);
    std::memcpy(row, target, rowBytes);
    std::memset(target, 0, rowBytes);
    if (r + 1 == height) break;
    const unsigned char* const below = target + rowBytes;
    for (int c = 0; c < width; ++c) least[c] = lesser(lesser(above[c], row[c]), below[c]);
    count += erodeRow(row, least, width, target);
  }
  return count;
}

int lineSegmentMaskIntersect(unsigned char* mask, int originX, int originY, int width, int height,
                             int x1, int y1, int x2, int y2) {
  if (mask == nullptr) {
    std::puts("Error: invalid input (inside lineSegmentMaskIntersect(...))!");
    return 0;
  }
  const ByteMask placed{mask, originX, originY, width, height};
  const DirectedLine line{{static_cast<double>(x2), static_cast<double>(y2)},
                          {static_cast<double>(x1), static_cast<double>(y1)}};
  const LineWalk walk(placed, x1, y1, x2, y2);
  if (walk.segmentTouches()) return 0;
  if (walk.extensionTouches()) return sideOfRectangle(placed, line);
  return sideOfPixels(placed, line);
}

#include "canvas.h"

#include <Brindle/utility.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <stdexcept>

#include "font.h"

namespace {

unsigned char toByte(double component) {
  return static_cast<unsigned char>(std::clamp(component, 0.0, 1.0) * 255.0 + 0.5);
}

void append(std::string& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i));
}

const Glyph* glyphOf(char character) {
  const auto* found = std::find_if(std::begin(kGlyphs), std::end(kGlyphs),
                                   [&](const Glyph& g) { return g.character == character; });
  if (found != std::end(kGlyphs)) return found;
  if (character != ' ') throw std::runtime_error(std::string("no letter for ") + character);
  return nullptr;
}

}  // namespace

Canvas::Canvas(int width, int height, Bgr background)
    : width_(width), height_(height), pixels_(static_cast<std::size_t>(width * height * 3)) {
  rectangle(0, 0, width, height, background);
}

void Canvas::set(int x, int y, Bgr colour) {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
  unsigned char* pixel = pixels_.data() + y * stride() + x * 3;
  pixel[0] = toByte(colour.blue);
  pixel[1] = toByte(colour.green);
  pixel[2] = toByte(colour.red);
}

void Canvas::line(Point from, Point to, Bgr colour) {
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const int steps = std::max(1, static_cast<int>(2 * std::max(std::fabs(dx), std::fabs(dy))));
  for (int i = 0; i <= steps; ++i) {
    const double t = static_cast<double>(i) / steps;
    rectangle(static_cast<int>(from.x + t * dx), static_cast<int>(from.y + t * dy), 2, 2, colour);
  }
}

void Canvas::disc(Point centre, double radius, Bgr colour) {
  for (int y = static_cast<int>(centre.y - radius); y <= centre.y + radius; ++y) {
    for (int x = static_cast<int>(centre.x - radius); x <= centre.x + radius; ++x) {
      const double dx = x - centre.x;
      const double dy = y - centre.y;
      if (dx * dx + dy * dy <= radius * radius) set(x, y, colour);
    }
  }
}

void Canvas::polygon(const std::vector<double>& polygon, Bgr colour) {
  std::vector<double> vertices = polygon;
  const int n = static_cast<int>(vertices.size() / 2);
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) {
      double p[2] = {x + 0.5, y + 0.5};
      if (pointInPolygon2D(vertices.data(), n, p, PIP_WINDING_NUMBER)) set(x, y, colour);
    }
  }
}

void Canvas::rectangle(int x, int y, int width, int height, Bgr colour) {
  for (int row = y; row < y + height; ++row) {
    for (int column = x; column < x + width; ++column) set(column, row, colour);
  }
}

void Canvas::text(int x, int y, std::string_view text, bool upwards) {
  constexpr int kScale = kLetterHeight / kGlyphHeight;
  for (const char character : text) {
    const Glyph* const glyph = glyphOf(character);
    for (int pixel = 0; glyph != nullptr && pixel < kGlyphWidth * kGlyphHeight; ++pixel) {
      const int row = pixel / kGlyphWidth;
      const int column = pixel % kGlyphWidth;
      if ((glyph->rows[row] >> (kGlyphWidth - 1 - column) & 1) == 0) continue;
      const int left = upwards ? x + kScale * row : x + kScale * column;
      const int top = upwards ? y - kScale * (column + 1) : y + kScale * row;
      rectangle(left, top, kScale, kScale, kBlack);
    }
    (upwards ? y : x) += upwards ? -kLetterWidth : kLetterWidth;
  }
}

void Canvas::paste(Canvas& other, int x, int y) {
  if (!copyImageAnywhere(other.pixels(), other.width(), other.height(), other.stride(), 3, 0, 0,
                         other.width(), other.height(), pixels(), width_, height_, stride(), x, y,
                         false, nullptr, 0)) {
    throw std::runtime_error("a picture was not copied");
  }
}

void Canvas::save(const std::string& path) {
  const std::uint32_t rowBytes = static_cast<std::uint32_t>(stride());
  if (rowBytes % 4 != 0) throw std::runtime_error("a BMP row takes a multiple of 4 bytes");
  // A BMP stores its rows from bottom to top.
  std::vector<unsigned char> rows(pixels_.size());
  unsigned char* target = rows.data();
  if (xImageUpsideDown(pixels_.data(), height_, stride(), static_cast<int>(rows.size()), target)) {
    throw std::runtime_error("the picture cannot be turned");
  }
  const auto size = static_cast<std::uint32_t>(rows.size());
  std::string bytes = "BM";
  append(bytes, 54 + size, 4);
  append(bytes, 0, 4);
  append(bytes, 54, 4);
  append(bytes, 40, 4);
  append(bytes, static_cast<std::uint32_t>(width_), 4);
  append(bytes, static_cast<std::uint32_t>(height_), 4);
  append(bytes, 1, 2);
  append(bytes, 24, 2);
  append(bytes, 0, 4);
  append(bytes, size, 4);
  bytes.append(16, '\0');
  bytes.append(rows.begin(), rows.end());

  std::ofstream file(path, std::ios::binary);
  file << bytes;
  if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

// A picture to draw on, and its BMP file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Components in the toolbox's order, 0 to 1.
struct Bgr {
  double blue, green, red;
};

struct Point {
  double x, y;
};

/// What a letter takes, with the space after it.
constexpr int kLetterWidth = 12;
constexpr int kLetterHeight = 14;

constexpr Bgr kWhite{1, 1, 1};
constexpr Bgr kBlack{0, 0, 0};
constexpr Bgr kGrey{0.8, 0.8, 0.8};
constexpr Bgr kRed{0.15, 0.15, 0.85};
constexpr Bgr kGreen{0.2, 0.6, 0.1};
constexpr Bgr kBlue{0.85, 0.35, 0.1};

/// An image buffer of 3 bytes a pixel, rows from top to bottom.
class Canvas {
 public:
  Canvas(int width, int height, Bgr background = kWhite);

  int width() const { return width_; }
  int height() const { return height_; }
  int stride() const { return width_ * 3; }
  unsigned char* pixels() { return pixels_.data(); }

  /// Components are limited to 0 to 1; positions outside are ignored.
  void set(int x, int y, Bgr colour);
  void line(Point from, Point to, Bgr colour);
  void disc(Point centre, double radius, Bgr colour);
  void polygon(const std::vector<double>& polygon, Bgr colour);
  void rectangle(int x, int y, int width, int height, Bgr colour);

  /// Writes with the top left corner at (x, y); `upwards`, it is the bottom left one.
  void text(int x, int y, std::string_view text, bool upwards = false);

  /// Draws another picture with its top left corner at (x, y).
  void paste(Canvas& other, int x, int y);

  /// Throws std::runtime_error when the file cannot be written.
  void save(const std::string& path);

 private:
  int width_, height_;
  std::vector<unsigned char> pixels_;
};

// Draws pictures with the toolbox: gallery FOLDER
//
// Each function below draws one of them; what stands around it is in the table at the end, which
// gives it its name, NAME.bmp in the folder.
#include <Brindle/utility.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <list>
#include <stdexcept>
#include <string>
#include <vector>

#include "canvas.h"

namespace {

constexpr int kSize = 480;

/// A position on the picture as a point of the square from -1 to 1, y up.
Point planePoint(int x, int y) {
  constexpr double kHalf = kSize / 2.0;
  return {(x + 0.5 - kHalf) / kHalf, (kHalf - y - 0.5) / kHalf};
}

template <class ColourAt>
Canvas painted(ColourAt colourAt) {
  Canvas canvas(kSize, kSize);
  for (int y = 0; y < kSize; ++y) {
    for (int x = 0; x < kSize; ++x) canvas.set(x, y, colourAt(planePoint(x, y)));
  }
  return canvas;
}

using Conversion = void (*)(double*, double*);

Bgr converted(Conversion toBgr, double first, double second, double third) {
  double in[3] = {first, second, third};
  double out[3];
  toBgr(in, out);
  return {out[0], out[1], out[2]};
}

/// Hue as the angle, saturation as the radius, at full value.
Canvas cylinderPlane() {
  return painted([](Point p) {
    return p.x * p.x + p.y * p.y > 1 ? kWhite : converted(cylindricalHSV2BGR, p.x, p.y, 1.0);
  });
}

/// The cone cut lengthwise through red and cyan: the radius, saturation times value, stays below
/// the value, which grows upwards.
Canvas conePlane() {
  return painted([](Point p) {
    const double value = (p.y + 1) / 2;
    return std::fabs(p.x) > value ? kWhite : converted(coneHSV2BGR, p.x, 0.0, value);
  });
}

/// The colours of L* = 65 around the one in the middle, darkened where their CIEDE2000 from it
/// passes a multiple of 5.
Canvas differenceMap() {
  constexpr double kL = 65;
  constexpr double kRange = 60;
  const LAB middle{kL, 20, 10};
  return painted([&](Point p) {
    const LAB colour{kL, middle.a + p.x * kRange, middle.b + p.y * kRange};
    const double rest = std::fmod(CIEDE2000(middle, colour), 5.0);
    const Bgr shown = converted(Lab2BGR, colour.l, colour.a, colour.b);
    return rest < 0.35 ? Bgr{shown.blue / 2, shown.green / 2, shown.red / 2} : shown;
  });
}

/// Hue to the right, value growing away from the middle, at a saturation of 0.6: below the colour
/// itself, above what the hue-weighted feature keeps of it.
Canvas featureBands() {
  constexpr int kHueWeighted = 1;
  return painted([](Point p) {
    double hsv[3] = {(p.x + 1) * 180, 0.6, std::fabs(p.y)};
    double bgr[3];
    HSV2BGR(hsv, bgr);
    if (p.y < 0) return Bgr{bgr[0], bgr[1], bgr[2]};
    double feature[3];
    BGR2WeightedFeature(bgr, feature, kHueWeighted);
    weightedFeature2BGR(feature, bgr, kHueWeighted);
    return Bgr{bgr[0], bgr[1], bgr[2]};
  });
}

/// A mask in four shades, each eroded six times more than the one before, and three segments in the
/// colour of the side on which they have the mask.
Canvas erodedMask() {
  Canvas canvas(kSize, kSize);
  const std::vector<double> star = {240, 40,  292, 184, 444, 188, 324, 280, 368, 424,
                                    240, 340, 112, 424, 156, 280, 36,  188, 188, 184};
  Canvas shape(kSize, kSize, kBlack);
  shape.polygon(star, kWhite);
  std::vector<unsigned char> mask(kSize * kSize);
  for (std::size_t i = 0; i < mask.size(); ++i) mask[i] = shape.pixels()[3 * i];
  std::vector<unsigned char> original = mask;

  for (int step = 0; step < 4; ++step) {
    const double shade = 0.85 - 0.22 * step;
    for (int i = 0; i < kSize * kSize; ++i) {
      if (mask[static_cast<std::size_t>(i)] != 0) {
        canvas.set(i % kSize, i / kSize, {0.9, shade, shade});
      }
    }
    for (int i = 0; i < 6; ++i) erosion(mask.data(), kSize, kSize);
  }
  const int segments[][4] = {{180, 20, 40, 60}, {140, 472, 28, 380}, {200, 240, 450, 60}};
  for (const auto& s : segments) {
    const int side =
        lineSegmentMaskIntersect(original.data(), 0, 0, kSize, kSize, s[0], s[1], s[2], s[3]);
    canvas.line({s[0] + 0.5, s[1] + 0.5}, {s[2] + 0.5, s[3] + 0.5},
                side > 0   ? kGreen
                : side < 0 ? kRed
                           : kBlack);
  }
  return canvas;
}

void outline(Canvas& canvas, const std::vector<double>& polygon, Bgr colour) {
  for (std::size_t i = 0; i < polygon.size(); i += 2) {
    const std::size_t next = (i + 2) % polygon.size();
    canvas.line({polygon[i], polygon[i + 1]}, {polygon[next], polygon[next + 1]}, colour);
  }
}

/// The hull of both polygons' vertices around them, and a dot where their edges cross.
Canvas crossingPolygons() {
  Canvas canvas(kSize, kSize);
  std::vector<double> first = {60, 120, 360, 60, 300, 220, 400, 400, 120, 340};
  std::vector<double> second = {180, 40, 440, 240, 220, 440, 240, 260, 40, 240};

  std::vector<std::pair<int, int>> sorted;
  for (const auto* polygon : {&first, &second}) {
    for (std::size_t i = 0; i < polygon->size(); i += 2) {
      sorted.emplace_back(static_cast<int>((*polygon)[i]), static_cast<int>((*polygon)[i + 1]));
    }
  }
  std::sort(sorted.begin(), sorted.end());
  std::vector<int> points;
  for (const auto& [x, y] : sorted) points.insert(points.end(), {x, y});
  std::vector<int> hull(points.size() + 2);
  const int hullSize = chainHull_2D(points.data(), static_cast<int>(sorted.size()), hull.data());
  canvas.polygon({hull.begin(), hull.begin() + 2 * hullSize - 2}, {0.93, 0.93, 0.93});

  outline(canvas, first, kBlue);
  outline(canvas, second, kGreen);
  std::list<double> xs;
  std::list<double> ys;
  polygonIntersect2D(first.data(), static_cast<int>(first.size() / 2), second.data(),
                     static_cast<int>(second.size() / 2), &xs, &ys);
  for (auto x = xs.begin(), y = ys.begin(); x != xs.end(); ++x, ++y) canvas.disc({*x, *y}, 5, kRed);
  return canvas;
}

/// Red where the polyline turns left, blue where it turns right.
Bgr turnColour(float curvature) {
  const double strength = std::fmin(std::fabs(static_cast<double>(curvature)) * 16, 1.0);
  return curvature > 0 ? Bgr{0.7 * (1 - strength), 0.7 * (1 - strength), 0.7 + 0.3 * strength}
                       : Bgr{0.7 + 0.3 * strength, 0.7 * (1 - strength), 0.7 * (1 - strength)};
}

/// One shaky polyline twice: coloured by its curvature as it stands, and below by the curvature
/// after smoothing.
Canvas polylineCurvature() {
  Canvas canvas(kSize, kSize);
  std::vector<Point2Df> points;
  for (int i = 0; i <= 110; ++i) {
    const double x = 20 + 4 * i;
    const double shake = i % 2 == 0 ? 3 : -3;
    points.push_back({static_cast<float>(x), static_cast<float>(80 * std::sin(x / 36) + shake)});
  }
  for (const int iterations : {0, 6}) {
    std::vector<float> curvature;
    polylineToCurvature(points, curvature, 3, iterations);
    const double middle = iterations == 0 ? 120 : 360;
    for (std::size_t i = 0; i < points.size(); ++i) {
      canvas.disc({static_cast<double>(points[i].x), middle - static_cast<double>(points[i].y)}, 5,
                  turnColour(curvature[i]));
    }
  }
  return canvas;
}

/// The middle of the hue plane, copied through the mask of a ring onto a grey ground.
Canvas maskedCopy() {
  Canvas source = cylinderPlane();
  Canvas canvas(kSize, kSize, kGrey);
  std::vector<unsigned char> mask(kSize * kSize);
  for (int y = 0; y < kSize; ++y) {
    for (int x = 0; x < kSize; ++x) {
      const Point p = planePoint(x, y);
      const double distanceSq = p.x * p.x + p.y * p.y;
      mask[static_cast<std::size_t>(y * kSize + x)] = distanceSq > 0.3 && distanceSq < 0.9;
    }
  }
  if (!copyImageAnywhere(source.pixels(), kSize, kSize, source.stride(), 3, 0, 0, kSize, kSize,
                         canvas.pixels(), kSize, kSize, canvas.stride(), 80, 80, false, mask.data(),
                         kSize)) {
    throw std::runtime_error("the region was not copied");
  }
  return canvas;
}

/// What the picture's edges stand for.
struct Axis {
  const char* name;
  const char* begin;  // left or bottom
  const char* end;
};

struct Key {
  Bgr colour;
  const char* text;
};

struct Picture {
  const char* name;
  Canvas (*draw)();
  Axis x, y;
  std::vector<Key> legend;  // at most kLegendLines
};

constexpr Axis kColumns{"column", "0", "479"};
constexpr Axis kRows{"row", "479", "0"};

const Picture kPictures[] = {
    {"hue-plane-cylinder",
     cylinderPlane,
     {"S cos H", "-1", "1"},
     {"S sin H", "-1", "1"},
     {{kRed, "V = 1, by cylindricalHSV2BGR()"}, {kWhite, "no colour: S above 1"}}},
    {"hue-plane-cone",
     conePlane,
     {"S V cos H", "-1", "1"},
     {"V", "0", "1"},
     {{kRed, "H = 0 and 180, by coneHSV2BGR()"}, {kWhite, "no colour: S above 1"}}},
    {"colour-difference",
     differenceMap,
     {"a*", "-40", "80"},
     {"b*", "-50", "70"},
     {{kWhite, "L* = 65, by Lab2BGR()"}, {kBlack, "CIEDE2000() = 5, 10, ... from (20, 10)"}}},
    {"weighted-feature",
     featureBands,
     {"hue in degrees", "0", "360"},
     {"value", "1", "1"},
     {{kWhite, "above: what the hue-weighted feature keeps"},
      {kWhite, "below: the colour, S = 0.6; V = 0 between"}}},
    {"mask-erosion",
     erodedMask,
     kColumns,
     kRows,
     {{{0.9, 0.85, 0.85}, "the mask; darker: 6, 12, 18 times erosion()"},
      {kGreen, "lineSegmentMaskIntersect() = 1: mask left"},
      {kRed, "= -1: mask right, with y up"},
      {kBlack, "= 0: touched"}}},
    {"polygons",
     crossingPolygons,
     kColumns,
     kRows,
     {{kBlue, "polygon A"},
      {kGreen, "polygon B"},
      {kRed, "crossings, by polygonIntersect2D()"},
      {{0.93, 0.93, 0.93}, "hull of both, by chainHull_2D()"}}},
    {"polyline-curvature",
     polylineCurvature,
     {"x", "0", "479"},
     {"y", "0", "479"},
     {{kRed, "turns left, by polylineToCurvature()"},
      {{1, 0, 0}, "turns right"},
      {kWhite, "above: as it stands"},
      {kWhite, "below: smoothed 6 times"}}},
    {"masked-copy",
     maskedCopy,
     kColumns,
     kRows,
     {{kRed, "a ring of the hue plane, by"},
      {kWhite, "copyImageAnywhere() with a mask"},
      {kGrey, "the picture that it is copied onto"}}},
};

constexpr int kMargin = 32;
constexpr int kLegendLines = 4;
constexpr int kLineHeight = 22;
constexpr int kWidth = kMargin + kSize + kMargin + 32;
constexpr int kHeight = kMargin + kSize + kMargin + kLegendLines * kLineHeight + 8;

int widthOf(const std::string& text) {
  return kLetterWidth * static_cast<int>(text.size());
}

/// Names below and, upwards, left of the drawing.
void drawAxes(Canvas& canvas, const Axis& x, const Axis& y) {
  const int below = kMargin + kSize + 8;
  canvas.text(kMargin, below, x.begin);
  canvas.text(kMargin + (kSize - widthOf(x.name)) / 2, below, x.name);
  canvas.text(kMargin + kSize - widthOf(x.end), below, x.end);
  const int left = kMargin - 8 - kLetterHeight;
  canvas.text(left, kMargin + kSize, y.begin, true);
  canvas.text(left, kMargin + (kSize + widthOf(y.name)) / 2, y.name, true);
  canvas.text(left, kMargin + widthOf(y.end), y.end, true);
}

void drawLegend(Canvas& canvas, const std::vector<Key>& legend) {
  int y = kMargin + kSize + kMargin + 4;
  for (const Key& key : legend) {
    canvas.rectangle(kMargin, y, kLetterHeight, kLetterHeight, key.colour);
    canvas.text(kMargin + 2 * kLetterWidth, y, key.text);
    y += kLineHeight;
  }
}

Canvas framed(const Picture& picture) {
  Canvas canvas(kWidth, kHeight);
  canvas.rectangle(kMargin - 1, kMargin - 1, kSize + 2, kSize + 2, kGrey);
  Canvas drawing = picture.draw();
  canvas.paste(drawing, kMargin, kMargin);
  drawAxes(canvas, picture.x, picture.y);
  drawLegend(canvas, picture.legend);
  return canvas;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: gallery FOLDER\n");
    return 2;
  }
  try {
    for (const Picture& picture : kPictures) {
      framed(picture).save(std::string(argv[1]) + "/" + picture.name + ".bmp");
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "gallery: %s\n", error.what());
    return 1;
  }
  return 0;
}

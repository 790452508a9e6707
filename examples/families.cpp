// An example of each family, with what it prints. The reference shows them one by one.
#include <Brindle/BrindleErrcode.h>
#include <Brindle/XFileTool.h>
#include <Brindle/XTypeConvertTool.h>
#include <Brindle/utility.h>
#include <FeatureReader.h>
#include <HammingScore.h>
#include <ORV_CompareFeatures.h>
#include <ORV_Search.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <list>
#include <string>
#include <vector>

namespace {

void compareFeatures() {
  //! [compareFeatures]
  const char target[] = {0x00, 0x0f};
  const char query[] = {0x01, 0x0f};
  double distance;
  if (ORV_CompareFeatures(target, 2, query, 2, &distance) == 0) {
    std::printf("%f\n", distance);  // 0.062500
  }
  //! [compareFeatures]
}

void hammingScore() {
  //! [hammingScore]
  std::printf("%f\n", calculateScores("\x00\xff", "\xff\xff", 2));  // 0.500000
  //! [hammingScore]
}

void featureReader() {
  //! [featureReader]
  std::array<char, 184 + 32 + 2> bitstream{};
  bitstream[4] = 7;         // the version
  bitstream[64] = 1;        // frames
  bitstream[184 + 24] = 2;  // bytes of the first frame's feature
  if (queryFramesFit(bitstream.data(), bitstream.size(), 2)) {
    const FeatureList features = FeatureReader().read(bitstream.data(), bitstream.size(), 2);
    std::printf("%zu\n", features.size());  // 1
  }
  //! [featureReader]
}

void search() {
  //! [search]
  const char target[] = {0x00};
  const char features[] = {0x7f, 0x01, 0x00};  // three of a byte each
  ORV_Match matches[2];
  const int status = ORV_Nearest(target, 1, features, 3, 1, 2, 0, matches);
  std::printf("%s\n", ORV_SearchText(status));  // Found
  for (const auto& [index, distance] : matches) {
    std::printf("%d: %f; ", static_cast<int>(index), distance);
  }
  std::printf("\n");  // 2: 0.000000; 1: 0.125000;
  //! [search]
}

void statusCodes() {
  //! [BrindleErrcode]
  const int code = xGetFileNameFolderPath(static_cast<const char*>(nullptr), nullptr, nullptr);
  const std::string text = xExplainErrorFromBrindle(code);
  std::printf("%d: %s\n", code, text.c_str());  // -20051: Fail to locate the file
  //! [BrindleErrcode]
}

void narrowAndWide() {
  //! [XTypeConvertTool]
  const std::wstring wide = str2wstr("K\xc3\xb6ln", "C.UTF-8");
  std::printf("%zu %s\n", wide.size(), wstr2str(wide, "C.UTF-8").c_str());  // 4 Köln
  std::printf("%d %d\n", IsUtf8("K\xc3\xb6ln"), IsUtf8("K\xf6ln"));         // 1 0
  //! [XTypeConvertTool]
}

void folders() {
  //! [directories]
  std::printf("%d\n", xCreateNestedDir("./tree/below", 0));  // 1
  std::printf("%d\n", xIsDirExist("tree/below"));            // 1
  std::printf("%d\n", xDeleteDir("tree"));                   // 0
  //! [directories]
}

void files() {
  //! [operations]
  std::FILE* const file = std::fopen("one", "w");
  std::fputs("bytes", file);
  std::fclose(file);
  std::printf("%d\n", xFileCopy("one", "two", false));  // 0
  xConcatBinaryFiles({"one", "two"}, "three");
  std::printf("%d\n", xIsFileExist("three"));  // 1
  //! [operations]
  //! [loading]
  unsigned char* bytes = nullptr;
  std::uint64_t length = 0;
  xLoadBinFile("one", bytes, length);
  if (bytes != nullptr) std::printf("%d\n", static_cast<int>(length));  // 5
  std::free(bytes);
  std::printf("%s\n", xReadWholeFile("three").c_str());  // bytesbytes
  //! [loading]
  //! [walking]
  char** files = nullptr;
  int count = 0;
  xDirWalking(".", files, count, WALK_FILES, true);
  for (int i = 0; i < count; ++i) {
    std::printf("%s ", files[i]);
    std::free(files[i]);
  }
  std::free(files);
  std::printf("\n");  // ./one ./three ./two
  //! [walking]
  for (const char* name : {"one", "two", "three"}) xDeleteFile(std::string(name), 0, 0);
}

void paths() {
  //! [paths]
  char* const name = xGetFileNameExtension("/data/a.tar.gz");
  char* const extension = xGetFileExtension("/data/a.tar.gz");
  std::printf("%s %s\n", name, extension);  // a.tar.gz gz
  std::free(name);
  std::free(extension);
  std::printf("%s\n", xFixFolderPath(std::string("a\\b//c")).c_str());  // a/b/c/
  //! [paths]
}

void process() {
  //! [process]
  setenv("FOLDERS", "/usr:/tmp", 1);
  for (const std::string& folder : xGetEnvVariable("FOLDERS")) std::printf("%s ", folder.c_str());
  std::printf("\n");  // /usr /tmp
  //! [process]
}

void colourSpace() {
  //! [colourSpace]
  double blue[] = {1, 0, 0};  // blue, green, red
  double hsv[3];
  double lab[3];
  BGR2HSV(blue, hsv);
  BGR2Lab(blue, lab);
  std::printf("%g %g %g\n", hsv[0], hsv[1], hsv[2]);        // 240 1 1
  std::printf("%.2f %.2f %.2f\n", lab[0], lab[1], lab[2]);  // 32.30 79.20 -107.86
  //! [colourSpace]
}

void colourDifference() {
  //! [colourDifference]
  const LAB one{50.0, 2.6772, -79.7751};
  const LAB other{50.0, 0.0, -82.7485};
  std::printf("%.4f\n", CIEDE2000(one, other));  // 2.0425
  //! [colourDifference]
}

void matrix() {
  //! [matrix]
  double** m = allocate2DDouble(2, 2);
  m[0][0] = 2;
  m[1][1] = 4;
  std::printf("%g\n", matrixDet(m, 2));      // 8
  std::printf("%d\n", mat2DInverse(m, m));   // 1
  std::printf("%g %g\n", m[0][0], m[1][1]);  // 0.5 0.25
  safeDelete2DDouble(2, m);
  //! [matrix]
}

void sorting() {
  //! [sorting]
  double values[] = {0.3, 0.1, 0.2};
  int from[] = {0, 1, 2};
  quickSort(values, from, 3);
  std::printf("%g from %d\n", values[0], from[0]);  // 0.1 from 1
  //! [sorting]
}

void polygon() {
  //! [polygon]
  double square[] = {0, 0, 4, 0, 4, 4, 0, 4};
  double point[] = {1, 1};
  std::printf("%d\n", pointInPolygon2D(square, 4, point, PIP_WINDING_NUMBER));  // 1

  double triangle[] = {2, 2, 6, 2, 6, 3};
  std::list<double> xs;
  std::list<double> ys;
  polygonIntersect2D(square, 4, triangle, 3, &xs, &ys);
  std::printf("%zu: %g %g\n", xs.size(), xs.front(), ys.front());  // 2: 4 2

  int points[] = {0, 0, 1, 1, 2, 0};  // sorted
  int hull[8];
  std::printf("%d\n", chainHull_2D(points, 3, hull));  // 4
  //! [polygon]
}

void polyline() {
  //! [polyline]
  std::vector<float> angles;
  polylineAngle({{0, 0}, {1, 0}, {1, 1}}, angles, false, 0, 0);
  std::printf("%.4f\n", static_cast<double>(angles[1]));  // 1.5708
  //! [polyline]
}

void mask() {
  //! [mask]
  unsigned char image[25];
  for (unsigned char& pixel : image) pixel = 255;
  std::printf("%d\n", erosion(image, 5, 5));  // 9

  unsigned char* packed = nullptr;
  unsigned long length = 0;
  byte2BitData(image, 5, 5, packed, length);
  std::printf("%lu: %02x %02x\n", length, packed[0], packed[1]);  // 5: 00 70
  std::free(packed);
  //! [mask]
}

void imageBuffer() {
  //! [imageBuffer]
  const unsigned char bgr[] = {1, 2, 3, 4, 5, 6};  // a row of two pixels
  unsigned char rgb[6] = {};
  unsigned char* target = rgb;
  std::printf("%d\n", xSwapImageDataOrder(bgr, 2, 1, 6, 6, target));  // 0
  std::printf("%d %d %d\n", rgb[0], rgb[1], rgb[2]);                  // 3 2 1
  //! [imageBuffer]
}

void statistics() {
  //! [statistics]
  float data[] = {1, 3};  // two vectors of one component
  float* mean = nullptr;
  float sd = 0;
  findMeanAndSD(data, 1, 2, mean, sd);
  std::printf("%g %g\n", static_cast<double>(mean[0]), static_cast<double>(sd));  // 2 1
  std::free(mean);
  //! [statistics]
}

void console() {
  //! [console]
  char text[] = "reading";
  displayConsoleProgressBar(50, text, false, 10);
  std::printf("\n");  // |====>     | [ 50%] reading
  //! [console]
}

void timing() {
  //! [timing]
  std::printf("%s\n", msec2FormatedString(90061001).c_str());  // 001:01:01:01:001
  std::printf("%g\n", byte2MB(3 << 19));                       // 1.5
  //! [timing]
}

void stringTools() {
  //! [stringTools]
  std::string text = "a-b-c";
  replaceSubString(text, "-", ", ");
  std::printf("%s\n", text.c_str());                            // a, b, c
  std::printf("%zu\n", stringTokenizer(text, ", ").size());     // 3
  std::printf("%s\n", getPathLastName("/data/a.txt").c_str());  // a.txt
  //! [stringTools]
}

void stringConversion() {
  //! [stringConversion]
  wchar_t wide[6];
  std::printf("%d\n", charStr2wcharStr("K\xc3\xb6ln", wide, "C.UTF-8"));  // 4
  //! [stringConversion]
}

}  // namespace

int main() {
  compareFeatures();
  hammingScore();
  featureReader();
  search();
  statusCodes();
  narrowAndWide();
  folders();
  files();
  paths();
  process();
  colourSpace();
  colourDifference();
  matrix();
  sorting();
  polygon();
  polyline();
  mask();
  imageBuffer();
  statistics();
  console();
  timing();
  stringTools();
  stringConversion();
  return 0;
}

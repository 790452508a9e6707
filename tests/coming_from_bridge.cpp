// Hands the toolbox's functions, and those of std::filesystem, to tests/coming_from_test.py, which
// calls them by their C types.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Brindle/XFileTool.h"
#include "Brindle/utility.h"
#include "HammingScore.h"

namespace {

namespace fs = std::filesystem;
using Path = const char*;
using Function = void (*)();

template <class Result, class... Arguments>
Function plain(Result (*function)(Arguments...)) {
  return reinterpret_cast<Function>(function);
}

/// A text that lasts until the next call.
Path kept(const std::string& text) {
  static std::string last;
  last = text;
  return last.c_str();
}

void pack(unsigned char* mask, int width, int height, unsigned char* out) {
  unsigned char* packed = nullptr;
  unsigned long length = 0;
  byte2BitData(mask, width, height, packed, length);
  std::copy_n(packed, length, out);
  std::free(packed);
}

/// Copies a grey image through a mask, from column `x` on.
void copyColumns(unsigned char* image, int width, int height, unsigned char* mask, int x,
                 unsigned char* out) {
  copyImageAnywhere(image, width, height, width, 1, x, 0, width, height, out, width, height, width,
                    x, 0, false, mask, width);
}

/// The mean's components, then the spread.
void meanAndSpread(float* data, int dim, int count, float* out) {
  float* mean = nullptr;
  findMeanAndSD(data, dim, count, mean, out[dim]);
  std::copy_n(mean, dim, out);
  std::free(mean);
}

void determinant(double* elements, int n, double* out) {
  std::vector<double*> rows;
  for (int i = 0; i < n; ++i) rows.push_back(elements + i * n);
  *out = matrixDet(rows.data(), n);
}

void inverse(double* elements, double* out) {
  double* in[] = {elements, elements + 2};
  double* rows[] = {out, out + 2};
  matrixInv2D(in, rows);
}

/// The paths below a folder, with a line end after each.
Path walk(Path folder) {
  char** files = nullptr;
  int count = 0;
  xDirWalking(folder, files, count, WALK_ALL, true);
  std::string paths;
  for (int i = 0; i < count; ++i) {
    paths += std::string(files[i]) + '\n';
    std::free(files[i]);
  }
  std::free(files);
  return kept(paths);
}

Path walkStandard(Path folder) {
  std::string paths;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    paths += entry.path().string() + '\n';
  }
  return kept(paths);
}

/// A block from `malloc`.
Path owned(char* text) {
  const std::unique_ptr<char, decltype(&std::free)> owner(text, std::free);
  return kept(text);
}

const std::map<std::string, Function> kFunctions = {
    {"calculateScores", plain(calculateScores)},
    {"BGR2HSV", plain(BGR2HSV)},
    {"BGR2YUV", plain(BGR2YUV)},
    {"BGR2XYZ", plain(BGR2XYZ)},
    {"BGR2Lab", plain(BGR2Lab)},
    {"CIEDeltaE76", plain(CIEDeltaE76)},
    {"CIEDeltaE94", plain(CIEDeltaE94)},
    {"CIEDeltaE2000", plain(CIEDeltaE2000)},
    {"CIEDE2000", plain<double, double*, double*>(CIEDE2000)},
    {"chainHull_2D", plain(chainHull_2D)},
    {"pointInPolygon2D", plain(pointInPolygon2D)},
    {"is2DConvexPolygon", plain(is2DConvexPolygon)},
    {"erosion", plain(erosion)},
    {"copyImageAnywhere", plain(copyColumns)},
    {"xImageUpsideDown", plain(xImageUpsideDown)},
    {"xSwapImageDataOrder", plain(xSwapImageDataOrder)},
    {"byte2BitData", plain(pack)},
    {"matrixDet", plain(determinant)},
    {"matrixInv2D", plain(inverse)},
    {"findMeanAndSD", plain(meanAndSpread)},
    {"mapValue", plain(mapValue)},
    {"analyticHeaviside", plain(analyticHeaviside)},
    {"quickSort", plain(quickSort)},
    {"xFileCopy", plain(xFileCopy)},
    {"xDeleteDir", plain<int, Path>(xDeleteDir)},
    {"xDirWalking", plain(walk)},
    {"xIsFileExist", plain<bool, Path>(xIsFileExist)},
    {"xGetFileExtension", plain(+[](Path path) { return owned(xGetFileExtension(path)); })},
    {"xGetFileNameExtension", plain(+[](Path path) { return owned(xGetFileNameExtension(path)); })},
    {"xUniformFilePath",
     plain(+[](Path path) { return kept(xUniformFilePath(std::string(path))); })},
    {"xCreateNestedDir", plain(+[](Path path) { return xCreateNestedDir(std::string(path), 0); })},
    {"xConcatBinaryFiles", plain(+[](Path first, Path second, Path output) {
       return xConcatBinaryFiles({first, second}, output);
     })},
    {"extension", plain(+[](Path path) { return kept(fs::path(path).extension()); })},
    {"filename", plain(+[](Path path) { return kept(fs::path(path).filename()); })},
    {"lexically_normal", plain(+[](Path path) { return kept(fs::path(path).lexically_normal()); })},
    {"create_directories", plain(+[](Path path) { return fs::create_directories(path); })},
    {"remove_all", plain(+[](Path path) { return static_cast<int>(fs::remove_all(path)); })},
    {"exists", plain(+[](Path path) { return fs::exists(path); })},
    {"copy_file", plain(+[](Path source, Path target) {
       return fs::copy_file(source, target, fs::copy_options::overwrite_existing);
     })},
    {"recursive_directory_iterator", plain(walkStandard)},
};

}  // namespace

/// The function of that name.
extern "C" __attribute__((visibility("default"))) Function find(Path name) {
  return kFunctions.at(name);
}

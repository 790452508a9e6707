// Hands the toolbox's functions, and those of std::filesystem, to tests/coming_from_test.py, which
// calls them by their C types.
#include <filesystem>
#include <map>
#include <string>

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

/// The paths below a folder, with a line end after each.
Path walk(Path folder) {
  std::string paths;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    paths += entry.path().string() + '\n';
  }
  return kept(paths);
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
    {"copyImageAnywhere", plain(copyImageAnywhere)},
    {"xImageUpsideDown", plain(xImageUpsideDown)},
    {"xSwapImageDataOrder", plain(xSwapImageDataOrder)},
    {"byte2BitData", plain(byte2BitData)},
    {"matrixDet", plain(matrixDet)},
    {"matrixInv2D", plain(matrixInv2D)},
    {"findMeanAndSD", plain(findMeanAndSD)},
    {"mapValue", plain(mapValue)},
    {"analyticHeaviside", plain(analyticHeaviside)},
    {"quickSort", plain(quickSort)},
    {"xFileCopy", plain(xFileCopy)},
    {"xDeleteDir", plain<int, Path>(xDeleteDir)},
    {"xDirWalking", plain(xDirWalking)},
    {"xIsFileExist", plain<bool, Path>(xIsFileExist)},
    {"xGetFileExtension", plain<char*, Path>(xGetFileExtension)},
    {"xGetFileNameExtension", plain<char*, Path>(xGetFileNameExtension)},
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
    {"recursive_directory_iterator", plain(walk)},
};

}  // namespace

/// The function of that name.
extern "C" __attribute__((visibility("default"))) Function find(Path name) {
  return kFunctions.at(name);
}

#include "Brindle/BrindleErrcode.h"

#include "Brindle/detail/condition.h"

int gErrOffsetBrindle = -20000;

namespace {

enum class Kind { kFixed, kCondition };

struct Explanation {
  Kind kind;
  int number;
  const char* text;
};

// Texts are part of the interface, their spelling included. The first match counts.
constexpr Explanation kExplanations[] = {
    {Kind::kFixed, 0, "Everything works fine :)"},
    {Kind::kCondition, 0, "Fail to allocate memory"},
    {Kind::kCondition, 1, "Process abort"},
    {Kind::kCondition, 2, "Invalid input"},
    {Kind::kCondition, 3, "Unknown"},
    {Kind::kCondition, 4, "Invalid input parameters"},
    {Kind::kCondition, 5, "Initiate first"},
    {Kind::kCondition, 50, "Fail to open file"},
    {Kind::kCondition, 51, "Fail to locate the file"},
    {Kind::kCondition, 52, "Fail to concatenate files"},
    {Kind::kCondition, 53, "Fail to crete file"},
    {Kind::kCondition, 54, "Fail to write into file"},
    {Kind::kCondition, 55, "Fail to set the file extension"},
    {Kind::kCondition, 56, "Fail to set the file pointer"},
    {Kind::kCondition, 57, "File path too long"},
    {Kind::kCondition, 58, "Invalid file filter"},
    {Kind::kCondition, 59, "Invalid file filter structure"},
    {Kind::kCondition, 60, "Fail to open file filter"},
    {Kind::kCondition, 61, "Fail to open file dialog box"},
    {Kind::kCondition, 62, "Fail to create file dialog box"},
    {Kind::kCondition, 63, "Fail to get result from file dialog box"},
    {Kind::kCondition, 64, "Fail to delete file directory"},
    {Kind::kCondition, 65, "File directory is not ready"},
    {Kind::kCondition, 66, "File directory is ready to use"},
    {Kind::kCondition, 67, "Success to create file directory"},
    {Kind::kCondition, 68, "File directory already existed"},
    {Kind::kFixed, 1, "Time of waiting the thread"},
    {Kind::kCondition, 100, "Fail to allocate memory"},
    {Kind::kCondition, 101, "Process abort"},
    {Kind::kCondition, 102, "Invalid input"},
    {Kind::kCondition, 103, "Unknown"},
    {Kind::kCondition, 104, "Invalid input parameters"},
    {Kind::kCondition, 105, "Fail to initiate"},
    {Kind::kCondition, 106, "Thread object is not joinable"},
    {Kind::kCondition, 107, "Fail to find thread"},
    {Kind::kCondition, 108, "Resource deadlock occur"},
    {Kind::kCondition, 109, "Out of resources"},
    {Kind::kCondition, 110, "No permission"},
    {Kind::kCondition, 111, "Not enough memory"},
    {Kind::kCondition, 112, "Device or resource busy"},
    {Kind::kCondition, 113, "Calling an empty thread"},
    {Kind::kCondition, 114, "Thread object has been joined"},
    {Kind::kCondition, 115, "Thread object has been detached"},
    {Kind::kCondition, 116, "Calling an empty mutex"},
    {Kind::kCondition, 117, "Calling an empty thread commander"},
    {Kind::kCondition, 118, "Bad address"},
    {Kind::kCondition, 119, "No implementation under current platform"},
    {Kind::kCondition, 120, "Disabled CPU has been called"},
    {Kind::kCondition, 200, "Fail to allocate memory"},
    {Kind::kCondition, 201, "Thread aborted"},
    {Kind::kCondition, 202, "Invalid input"},
    {Kind::kCondition, 203, "Unknown"},
    {Kind::kCondition, 204, "Invalid input parameters"},
    {Kind::kCondition, 300, "Fail to allocate memory"},
    {Kind::kCondition, 301, "User aborted"},
    {Kind::kCondition, 302, "Invalid input"},
    {Kind::kCondition, 303, "Unknown"},
    {Kind::kCondition, 304, "Invalid input parameters"},
    {Kind::kCondition, 305, "Fail to get swap info"},
    {Kind::kCondition, 306, "Fail to get phyical memory info"},
    {Kind::kCondition, 400, "Shared memory is not connected yet"},
    {Kind::kCondition, 401, "Fail to connect shared memory"},
    {Kind::kCondition, 410, "Fail to allocate memory"},
    {Kind::kCondition, 411, "Buffer is not init yet"},
    {Kind::kCondition, 412, "Buffer is nolonger active"},
    {Kind::kCondition, 413, "Buffer full"},
    {Kind::kCondition, 414, "Buffer empty"},
    {Kind::kCondition, 500, "Fail to allocate memory"},
    {Kind::kCondition, 501, "Invalid input"},
    {Kind::kCondition, 502, "Fail to open log file"},
    {Kind::kCondition, 503, "Fail to operate log file"},
};

int codeOf(const Explanation& explanation) {
  return explanation.kind == Kind::kFixed ? explanation.number
                                          : brindle::detail::conditionCode(explanation.number);
}

}  // namespace

void xErrSetOffsetBrindle(int offset) {
  gErrOffsetBrindle = offset;
}

int xErrGetOffsetBrindle() {
  return gErrOffsetBrindle;
}

std::string xExplainErrorFromBrindle(int code) {
  for (const Explanation& explanation : kExplanations) {
    if (codeOf(explanation) == code) return explanation.text;
  }
  return "No idea on error " + std::to_string(code);
}

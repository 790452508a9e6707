#include "search/options.h"

#include <getopt.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace vorquell::search {

const char kHelp[] =
    "Usage: VorquellSearch [OPTION]... TARGET [QUERY]...\n"
    "Compares the feature in TARGET with each QUERY, a feature or a bitstream of features, and\n"
    "prints a line for each, the closest first: its distance (0.000000 to 1.000000), the number\n"
    "of the closest feature in it, and its name, with tabulators between.\n"
    "\n"
    "  -k, --nearest=N         print only the N closest\n"
    "  -d, --within=D          print only distances of at most D (0 to 1)\n"
    "      --files0-from=FILE  further queries: the names in FILE, each ended by NUL;\n"
    "                          for - from standard input\n"
    "      --packed=FILE       further queries: the features of TARGET's length that lie one\n"
    "                          after the other in FILE; for - in standard input; may be repeated\n"
    "  -j, --threads=N         compute on N threads; 0, the default: on all processors\n"
    "  -z, --null              end lines with NUL\n"
    "      --progress=WHEN     show progress on standard error: auto (the default), always, never\n"
    "  -h, --help              print this text\n"
    "      --version           print the version\n"
    "\n"
    "Exit status: 0 if everything was compared, 1 if something was not, 2 on failure.\n";

namespace {

enum LongOption { kFiles0From = 256, kPacked, kProgress, kVersion };

constexpr option kLongOptions[] = {
    {"nearest", required_argument, nullptr, 'k'},
    {"within", required_argument, nullptr, 'd'},
    {"files0-from", required_argument, nullptr, kFiles0From},
    {"packed", required_argument, nullptr, kPacked},
    {"threads", required_argument, nullptr, 'j'},
    {"null", no_argument, nullptr, 'z'},
    {"progress", required_argument, nullptr, kProgress},
    {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, kVersion},
    {},  // the end
};

[[noreturn]] void refuse(const char* what, std::string_view value) {
  throw UsageError(std::string(what) + ": '" + std::string(value) + "'");
}

template <class Number>
Number parseNumber(const char* text, const char* what) {
  Number number = 0;
  const char* const end = text + std::strlen(text);
  const auto [stop, error] = std::from_chars(text, end, number);
  if (error != std::errc() || stop != end) refuse(what, text);
  return number;
}

std::uint64_t parseNearest(const char* text) {
  constexpr char kWhat[] = "-k wants a whole number from 1 to 2^64 - 1";
  const auto number = parseNumber<std::uint64_t>(text, kWhat);
  if (number == 0) refuse(kWhat, text);
  return number;
}

double parseWithin(const char* text) {
  constexpr char kWhat[] = "-d wants a decimal number from 0 to 1";
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const char* const end = text + std::strlen(text);
  const bool isPlain = std::all_of(text, end, [&](char c) { return isDigit(c) || c == '.'; }) &&
                       std::count(text, end, '.') <= 1 && std::any_of(text, end, isDigit);
  const double number = isPlain ? std::strtod(text, nullptr) : -1.0;
  if (!(number >= 0.0 && number <= 1.0)) refuse(kWhat, text);
  return number;
}

ProgressWhen parseProgress(std::string_view text) {
  if (text == "auto") return ProgressWhen::kAuto;
  if (text == "always") return ProgressWhen::kAlways;
  if (text == "never") return ProgressWhen::kNever;
  refuse("--progress wants auto, always or never", text);
}

void takeList(Options& options, const char* file) {
  if (options.list != nullptr) refuse("--files0-from is given twice", file);
  options.list = file;
}

/// Takes an option that getopt_long() returned; false for one that it does not know or understand.
bool takeOption(Options& options, int code) {
  switch (code) {
    case 'k':
      options.nearest = parseNearest(optarg);
      return true;
    case 'd':
      options.within = parseWithin(optarg);
      return true;
    case kFiles0From:
      takeList(options, optarg);
      return true;
    case kPacked:
      options.packed.push_back(optarg);
      return true;
    case 'j':
      options.threads = parseNumber<unsigned>(optarg, "-j wants a whole number from 0 to 2^32 - 1");
      return true;
    case 'z':
      options.lineEnd = '\0';
      return true;
    case kProgress:
      options.progress = parseProgress(optarg);
      return true;
    case 'h':
      options.request = Request::kHelp;
      return true;
    case kVersion:
      options.request = Request::kVersion;
      return true;
    default:
      return false;
  }
}

/// What getopt_long() stumbled over: `optopt` is an unknown short option, which may stand among
/// others in an argument that it has not passed yet; or what the last argument means; or 0.
std::string wrongOption(char** argv) {
  const bool isKnown = std::any_of(std::begin(kLongOptions), std::end(kLongOptions),
                                   [](const option& known) { return known.val == optopt; });
  const std::string_view last = argv[optind - 1];
  if (isKnown && last.starts_with("--")) return std::string(last);
  return {'-', static_cast<char>(optopt)};
}

void takeOperands(Options& options, char** begin, char** end) {
  if (begin >= end) throw UsageError("no target is given");  // past it without even a name
  options.target = *begin;
  options.queries.assign(begin + 1, end);
}

void refuseSharedStandardInput(const Options& options) {
  const auto readers =
      std::count_if(options.packed.begin(), options.packed.end(), isStandardInput) +
      (options.list != nullptr && isStandardInput(options.list));
  if (readers > 1) throw UsageError("standard input is asked for twice");
}

}  // namespace

bool isStandardInput(const char* name) {
  return std::strcmp(name, "-") == 0;
}

Options parseOptions(int argc, char** argv) {
  Options options;
  opterr = 0;
  for (int code; (code = getopt_long(argc, argv, ":k:d:j:zh", kLongOptions, nullptr)) != -1;) {
    if (code == ':') refuse("a value is missing after", wrongOption(argv));
    if (!takeOption(options, code)) refuse("wrong option", wrongOption(argv));
    if (options.request != Request::kSearch) return options;
  }
  takeOperands(options, argv + optind, argv + argc);
  refuseSharedStandardInput(options);
  return options;
}

}  // namespace vorquell::search

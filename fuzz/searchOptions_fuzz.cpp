// VorquellSearch's command line, compared with a plain reading of it. Input: the arguments, each
// ended by a zero.
#include <getopt.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "Input.h"
#include "search/options.h"

using namespace vorquell::search;

namespace {

using Texts = std::vector<std::string>;

struct Refused {};

void refuseUnless(bool holds) {
  if (!holds) throw Refused();
}

struct Plain {
  Plain() {
    options.nearest = ~0ULL;
    options.threads = 0;
    options.lineEnd = '\n';
  }
  Options options;  // without the texts
  Texts operands, lists, packed;
};

std::uint64_t wholeNumber(const std::string& text, std::uint64_t least, std::uint64_t most) {
  errno = 0;
  const std::uint64_t number = std::strtoull(text.c_str(), nullptr, 10);
  refuseUnless(!text.empty() && text.find_first_not_of("0123456789") == text.npos);
  refuseUnless(errno == 0 && number >= least && number <= most);
  return number;
}

double share(const std::string& text) {
  char* end = nullptr;
  const double number = std::strtod(text.c_str(), &end);
  refuseUnless(!text.empty() && text.find_first_not_of("0123456789.") == text.npos);
  refuseUnless(*end == '\0' && number <= 1.0);
  return number;
}

ProgressWhen progressOf(const std::string& text) {
  if (text == "auto") return ProgressWhen::kAuto;
  if (text == "always") return ProgressWhen::kAlways;
  refuseUnless(text == "never");
  return ProgressWhen::kNever;
}

const struct {
  std::string longName, shortName;  // no long name is the beginning of another one
  bool wantsValue;
  void (*take)(Plain& plain, const std::string& value);
} kOptions[] = {
    {"nearest", "k", true, [](auto& p, auto& v) { p.options.nearest = wholeNumber(v, 1, ~0ULL); }},
    {"within", "d", true, [](auto& p, auto& v) { p.options.within = share(v); }},
    {"files0-from", "", true, [](auto& p, auto& v) { p.lists.push_back(v); }},
    {"packed", "", true, [](auto& p, auto& v) { p.packed.push_back(v); }},
    {"threads", "j", true,
     [](auto& p, auto& v) { p.options.threads = static_cast<unsigned>(wholeNumber(v, 0, ~0U)); }},
    {"null", "z", false, [](auto& p, auto&) { p.options.lineEnd = '\0'; }},
    {"progress", "", true, [](auto& p, auto& v) { p.options.progress = progressOf(v); }},
    {"help", "h", false, [](auto& p, auto&) { p.options.request = Request::kHelp; }},
    {"version", "", false, [](auto& p, auto&) { p.options.request = Request::kVersion; }},
};

/// Takes the option at `at` of a word; returns whether the word is used up, and takes the next one
/// where that is the value.
bool takeOption(Plain& plain, const Texts& words, std::size_t& word, std::size_t& at) {
  const bool isLong = words[word].starts_with("--");
  const std::string text = words[word].substr(at);
  const std::string name = text.substr(0, isLong ? text.find('=') : 1);
  const auto* found = static_cast<decltype(&kOptions[0])>(nullptr);
  for (const auto& option : kOptions) {
    if (isLong ? !option.longName.starts_with(name) : option.shortName != name) continue;
    refuseUnless(found == nullptr);
    found = &option;
  }
  refuseUnless(found != nullptr);
  const bool isAttached = name.size() < text.size();
  refuseUnless(!(isLong && isAttached && !found->wantsValue));
  if (!found->wantsValue) {
    found->take(plain, "");
    return isLong || ++at == words[word].size();
  }
  refuseUnless(isAttached || word + 1 < words.size());
  found->take(plain, isAttached ? text.substr(name.size() + (isLong ? 1 : 0)) : words[++word]);
  refuseUnless(plain.lists.size() <= 1);
  return true;
}

Plain plainOptions(const Texts& words) {
  Plain plain;
  bool onlyOperands = false;
  for (std::size_t word = 0; word < words.size(); ++word) {
    if (onlyOperands || words[word].size() < 2 || words[word][0] != '-') {
      plain.operands.push_back(words[word]);
    } else if (words[word] == "--") {
      onlyOperands = true;
    } else {
      std::size_t at = words[word].starts_with("--") ? 2 : 1;
      for (bool isUsedUp = false; !isUsedUp;) {
        isUsedUp = takeOption(plain, words, word, at);
        if (plain.options.request != Request::kSearch) return plain;
      }
    }
  }
  std::size_t readers = 0;
  for (const auto& name : plain.lists) readers += name == "-";
  for (const auto& name : plain.packed) readers += name == "-";
  refuseUnless(!plain.operands.empty() && readers <= 1);
  return plain;
}

void requireSame(const Options& options, const Plain& plain) {
  require(options.request == plain.options.request);
  if (options.request != Request::kSearch) return;
  require(options.nearest == plain.options.nearest && options.within == plain.options.within);
  require(options.threads == plain.options.threads && options.lineEnd == plain.options.lineEnd);
  require(options.progress == plain.options.progress);
  require(options.list == nullptr ? plain.lists.empty() : plain.lists == Texts{options.list});
  require(Texts(options.packed.begin(), options.packed.end()) == plain.packed);
  Texts operands = {options.target};
  operands.insert(operands.end(), options.queries.begin(), options.queries.end());
  require(operands == plain.operands);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Texts words;
  for (std::size_t at = 0; at < size; ++at) {
    if (at == 0 || data[at - 1] == '\0') words.emplace_back();
    if (data[at] != '\0') words.back() += static_cast<char>(data[at]);
  }
  std::string program = "VorquellSearch";
  Texts copies = words;
  std::vector<char*> argv = {program.data()};
  for (std::string& copy : copies) argv.push_back(copy.data());
  argv.push_back(nullptr);

  std::optional<Plain> plain;
  try {
    plain = plainOptions(words);
  } catch (const Refused&) {
  }
  optind = 0;  // getopt_long() begins anew
  try {
    const Options options = parseOptions(static_cast<int>(argv.size()) - 1, argv.data());
    require(plain.has_value());
    requireSame(options, *plain);
  } catch (const UsageError&) {
    require(!plain.has_value());
  }
  return 0;
}

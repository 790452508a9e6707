// Tests that work in a folder of their own. One text says what the folder holds, before and after:
//
//     a/b.bin, c/, d -> a, e=bytes, f|
//
// is a folder `a` with a file `b.bin`, an empty folder `c`, a link `d` to `a`, a file `e` that
// holds "bytes" and a FIFO `f`. A file of which nothing else is said holds its own path.
#pragma once

#include <sys/stat.h>

#include <algorithm>
#include <set>

#include "support/Effect.h"
#include "support/ScratchDir.h"
#include "support/Table.h"

namespace fs = std::filesystem;
using support::Words;

/// A path in a row of a table.
inline const char* pathOf(const std::string& word) {
  return word == "null" ? nullptr : word.c_str();
}

inline bool flag(const std::string& word) {
  if (word != "true" && word != "false") throw std::invalid_argument("neither true nor false");
  return word == "true";
}

/// ASCII only; other bytes become what no locale can convert.
inline std::wstring widened(const std::string& text) {
  return {text.begin(), text.end()};
}

/// What a call returns for a path as a char*, a string, a wchar_t* and a wide string.
template <class Call>
auto asEachType(const Call& call, const std::string& path) {
  const std::wstring wide = widened(path);
  const wchar_t* const widePath = path == "null" ? nullptr : wide.c_str();
  return std::vector{call(pathOf(path)), call(path), call(widePath), call(wide)};
}

template <class Texts>
std::string joined(const Texts& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

struct InScratchDir : testing::Test {
  InScratchDir() { fs::current_path(dir.path()); }
  ~InScratchDir() override { fs::current_path("/"); }

  /// Empties the folder and makes what the text says.
  void tree(const std::string& text) const {
    for (const auto& entry : fs::directory_iterator(dir.path())) fs::remove_all(entry);
    for (std::size_t at = 0, end; at < text.size(); at = end + 2) {
      end = std::min(text.find(", ", at), text.size());
      make(text.substr(at, end - at));
    }
  }

  /// Runs what returns a result or throws.
  template <class Call>
  Effect effect(const Call& call) const {
    const std::string held = holds(), open = openFiles();
    Effect found("");
    testing::internal::CaptureStdout();
    try {
      found = call();
    } catch (const std::exception& error) {
      found = std::string("throws ") + error.what();
    }
    found.printed = testing::internal::GetCapturedStdout();
    if (holds() != held) found.folder = holds();
    if (openFiles() != open) found.openFiles = openFiles() + ", not " + open;
    std::error_code removed;
    const fs::path current = fs::current_path(removed);
    found.workingDirectory = removed ? "removed" : fs::relative(current, dir.path()).string();
    return found;
  }

  /// Checks rows FUNCTION TREE ARGUMENT... = RESULT [PRINTED [TREE]], each in a folder of its own.
  void checkEffects(const std::string& file,
                    const std::map<std::string, std::function<Effect(const Words&)>>& calls) const {
    std::map<std::string, std::function<void(const support::Row&)>> checks;
    for (const auto& [function, call] : calls) {
      checks[function] = [this, call = call](const support::Row& row) {
        Words results = row.results;
        if (results.size() == 1) results.push_back("");
        if (results.size() == 2) results.push_back(kUnchanged);
        ASSERT_EQ(results.size(), 3U);
        tree(row.arguments.at(0));
        const Words arguments(row.arguments.begin() + 1, row.arguments.end());
        EXPECT_EQ(effect([&] { return call(arguments); }),
                  Effect(results[0], results[1], results[2]));
      };
    }
    support::checkTable(file, checks);
  }

  const ScratchDir dir;

 private:
  void make(const std::string& word) const {
    const std::size_t arrow = word.find(" -> "), equals = word.find('=');
    const std::string name = word.substr(0, std::min(arrow, equals));
    fs::create_directories(fs::path(dir / name).parent_path());
    if (arrow != word.npos) {
      fs::create_symlink(word.substr(arrow + 4), dir / name);
    } else if (word.back() == '|') {
      mkfifo((dir / word.substr(0, word.size() - 1)).c_str(), 0600);
    } else if (word.back() != '/') {
      dir.write(name, equals == word.npos ? name : word.substr(equals + 1));
    }
  }

  /// In the order of the bytes.
  std::string holds() const {
    std::set<std::string> words;
    for (const auto& entry : fs::recursive_directory_iterator(dir.path())) {
      const std::string name = entry.path().string().substr(dir.path().size() + 1);
      if (!entry.is_directory() || entry.is_symlink() || fs::is_empty(entry)) {
        words.insert(name + nature(entry, name));
      }
    }
    return joined(words);
  }

  /// What stands after the name.
  static std::string nature(const fs::directory_entry& entry, const std::string& name) {
    if (entry.is_symlink()) return " -> " + fs::read_symlink(entry).string();
    if (entry.is_directory()) return "/";
    if (!entry.is_regular_file()) return "|";
    const std::string bytes = readAll(entry.path());
    return bytes == name ? "" : "=" + bytes;
  }

  /// What the descriptors of the process lead to.
  static std::string openFiles() {
    std::multiset<std::string> open;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
      std::error_code closed;
      open.insert(fs::read_symlink(entry, closed).string());
    }
    return joined(open);
  }
};

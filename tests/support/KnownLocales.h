// The locales that file tools convert in, made known to the process while the object lives: each is
// C.utf8 under another name.
#pragma once

#include <clocale>
#include <cstdlib>
#include <filesystem>

#include "support/ScratchDir.h"

class KnownLocales {
 public:
  KnownLocales() {
    for (const char* name : {"C.utf8", "chinese", "en_US.UTF-8"}) {
      std::filesystem::create_directory_symlink("/usr/lib/locale/C.utf8", dir_ / name);
    }
    setenv("LOCPATH", dir_.path().c_str(), 1);
  }
  ~KnownLocales() { unsetenv("LOCPATH"); }

  /// False where C.utf8 is not kept in that folder.
  bool areUsable() const {
    return std::setlocale(LC_ALL, "chinese") && std::setlocale(LC_ALL, "en_US.UTF-8");
  }

 private:
  const ScratchDir dir_;
};

/// The process's locale after `call`, which begins in C.
template <class Call>
std::string localeAfter(const Call& call) {
  std::setlocale(LC_ALL, "C");
  call();
  return std::setlocale(LC_ALL, nullptr);
}

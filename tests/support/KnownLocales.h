// Tests in which the process knows the locales that file tools convert in: each is C.utf8 under
// another name. They are skipped where C.utf8 is kept in another folder.
#pragma once

#include <clocale>
#include <cstdlib>

#include "support/InScratchDir.h"

struct KnownLocales : InScratchDir {
  void SetUp() override {
    for (const char* name : {"C.utf8", "chinese", "en_US.UTF-8"}) {
      std::filesystem::create_directory_symlink("/usr/lib/locale/C.utf8", locales / name);
    }
    setenv("LOCPATH", locales.path().c_str(), 1);
    if (!std::setlocale(LC_ALL, "chinese") || !std::setlocale(LC_ALL, "en_US.UTF-8")) {
      GTEST_SKIP() << "needs /usr/lib/locale/C.utf8";
    }
  }
  ~KnownLocales() override { unsetenv("LOCPATH"); }
  const ScratchDir locales;
};

/// The process's locale after `call`, which begins in C.
template <class Call>
std::string localeAfter(const Call& call) {
  std::setlocale(LC_ALL, "C");
  call();
  return std::setlocale(LC_ALL, nullptr);
}

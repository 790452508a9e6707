// Tests that work in a folder of their own and leave no file open.
#pragma once

#include "support/OpenFiles.h"
#include "support/ScratchDir.h"

struct InScratchDir : testing::Test {
  InScratchDir() { std::filesystem::current_path(dir.path()); }
  ~InScratchDir() override { std::filesystem::current_path("/"); }
  const ScratchDir dir;
  const OpenFiles remain;
};

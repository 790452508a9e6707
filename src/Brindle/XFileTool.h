/// @file
/// File-system tools: every room of XFileTool/.
#pragma once

#include "Brindle/XFileTool/directories.h"  // IWYU pragma: export
#include "Brindle/XFileTool/loading.h"      // IWYU pragma: export
#include "Brindle/XFileTool/operations.h"   // IWYU pragma: export
#include "Brindle/XFileTool/paths.h"        // IWYU pragma: export
#include "Brindle/XFileTool/process.h"      // IWYU pragma: export
#include "Brindle/XFileTool/walking.h"      // IWYU pragma: export

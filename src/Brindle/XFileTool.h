// File-system tools: every room of XFileTool/.
#pragma once

#include "Brindle/XFileTool/loading.h"  // IWYU pragma: export

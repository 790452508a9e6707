// The general utilities: every room of utility/.
#pragma once

#include "Brindle/utility/imageBuffer.h"  // IWYU pragma: export
#include "Brindle/utility/mask.h"  // IWYU pragma: export

// The general utilities: every room of utility/.
#pragma once

#include "Brindle/utility/colourDifference.h"  // IWYU pragma: export
#include "Brindle/utility/colourSpace.h"       // IWYU pragma: export

// The general utilities: every room of utility/.
#pragma once

#include "Brindle/utility/matrix.h"   // IWYU pragma: export
#include "Brindle/utility/sorting.h"  // IWYU pragma: export

/// @file
/// The general utilities: every room of utility/.
#pragma once

#include "Brindle/utility/colourDifference.h"  // IWYU pragma: export
#include "Brindle/utility/colourSpace.h"       // IWYU pragma: export
#include "Brindle/utility/console.h"           // IWYU pragma: export
#include "Brindle/utility/imageBuffer.h"       // IWYU pragma: export
#include "Brindle/utility/mask.h"              // IWYU pragma: export
#include "Brindle/utility/matrix.h"            // IWYU pragma: export
#include "Brindle/utility/polygon.h"           // IWYU pragma: export
#include "Brindle/utility/polyline.h"          // IWYU pragma: export
#include "Brindle/utility/sorting.h"           // IWYU pragma: export
#include "Brindle/utility/statistics.h"        // IWYU pragma: export
#include "Brindle/utility/stringConversion.h"  // IWYU pragma: export
#include "Brindle/utility/stringTools.h"       // IWYU pragma: export
#include "Brindle/utility/timing.h"            // IWYU pragma: export

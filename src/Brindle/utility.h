// The general utilities: every room of utility/.
#pragma once

#include "Brindle/utility/polygon.h"
#include "Brindle/utility/polyline.h"
#include "Brindle/utility/statistics.h"

// The general utilities: every room of utility/.
#pragma once


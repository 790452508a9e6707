/// @file
/// The toolbox's status codes.
///
/// A code is offset - number: one process-wide offset less the number of a condition. Not every
/// condition is a failure: 67 is a folder created, 68 one that existed. 0 is success and 1 a code
/// of its own; neither moves with the offset. Numbers come in blocks: 0 to 5 general, 50 to 68
/// files and folders, 100 to 120 threads, 200 to 204 and 300 to 306 processes, 400 to 414 shared
/// memory and buffers, 500 to 503 log files.
///
/// @warning The offset has no guard: set it before other threads use the toolbox. See
/// docs/hazards.md.
#pragma once

#include <string>

/// @defgroup BrindleErrcode Status codes
/// @{

/// The offset, -20000 at start: condition 50 has the code -20050.
extern int gErrOffsetBrindle;

/// Moves all codes as one block, out of the way of an application's own codes. Any offset will do:
/// codes wrap around in 32 bits. Codes returned before keep their old numbers.
void xErrSetOffsetBrindle(int offset);

/// Returns the current offset.
int xErrGetOffsetBrindle();

/// Returns the English text of a code under the current offset; where there is none, "No idea on
/// error " and the code in decimal. Several conditions share a text. Of meanings that coincide the
/// first counts: 0 for success, conditions 0 to 68, the fixed 1, conditions from 100 on.
std::string xExplainErrorFromBrindle(int code);

/// @}

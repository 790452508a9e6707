/// @file
/// The toolbox's status codes.
///
/// A toolbox function that fails returns a code formed from one process-wide offset and the number
/// of a condition: offset - number. 0 is success, and 1 a code of its own; neither moves with the
/// offset. Numbers come in blocks: 0 to 5 general, 50 to 68 files and folders, 100 to 120 threads,
/// 200 to 204 and 300 to 306 processes, 400 to 414 shared memory and buffers, 500 to 503 log files.
/// xExplainErrorFromBrindle() tells what a code means.
///
/// @warning The offset is process-wide state without a guard. It must be set before other threads
/// use the toolbox.
#pragma once

#include <string>

/// The offset, -20000 at start: the condition 50 has the code -20050.
extern int gErrOffsetBrindle;

/// Moves all codes of the toolbox as one block, out of the way of an application's own codes. Codes
/// returned before keep their old numbers.
/// @param offset  any value; codes wrap around in 32 bits
void xErrSetOffsetBrindle(int offset);

/// Tells the offset of this moment.
/// @return `gErrOffsetBrindle`
int xErrGetOffsetBrindle();

/// Explains a status code.
///
/// Several conditions share a text. Where the offset makes codes coincide, 0 is success first, then
/// the conditions 0 to 68 come before the fixed code 1, and that before the conditions from 100 on.
/// @param code  read with the offset of this moment
/// @return the English text; where there is none, "No idea on error " and the code in decimal
std::string xExplainErrorFromBrindle(int code);

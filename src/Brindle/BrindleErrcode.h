// The toolbox's status codes.
//
// A toolbox function that fails returns a code formed from one process-wide offset and the number
// of a condition: offset - number. 0 is success, and 1 a code of its own; neither moves with the
// offset. Numbers come in blocks: 0 to 5 general, 50 to 68 files and folders, 100 to 120 threads,
// 200 to 204 and 300 to 306 processes, 400 to 414 shared memory and buffers, 500 to 503 log files.
// xExplainErrorFromBrindle() tells what a code means.
//
// The offset is process-wide state without a guard: set it before other threads use the toolbox.
#pragma once

#include <string>

/// The offset, -20000 at start: the condition 50 has the code -20050.
extern int gErrOffsetBrindle;

/// Moves all codes of the toolbox as one block, out of the way of an application's own codes. Any
/// value is taken. Codes returned before keep their old numbers.
void xErrSetOffsetBrindle(int offset);

/// Returns the offset.
int xErrGetOffsetBrindle();

/// Returns the English text of `code`, read with the offset of this moment; "No idea on error " and
/// the code in decimal where there is no such code.
///
/// Several conditions share a text. Where the offset makes codes coincide, 0 is success first, then
/// the conditions 0 to 68 come before the fixed code 1, and that before the conditions from 100 on.
std::string xExplainErrorFromBrindle(int code);

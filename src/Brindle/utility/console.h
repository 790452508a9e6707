/// @file
/// A progress bar on the console.
///
/// The length of the last line drawn is kept for the whole process: alternating bars erase each
/// other's length. Not to be drawn from several threads at once.
#pragma once

/// @defgroup console Console
/// @{

/// Draws a progress bar on standard output and flushes it. Returns the percent drawn: `percent`
/// limited to 0 to 100.
///
/// Prints "|", `width` cells (none if that is below 1 and nothing wraps), "| [%3d%%]" with the
/// percent and, unless `text` is null, " %s" with the text; never a line end. The first width *
/// percent / 100 cells (32-bit integers, wrapping) are filled with "=", the last of them with ">"
/// unless the bar is full. `overwrite` first prints a backspace for each character of the line
/// before. Where that line was longer, with or without `overwrite`, the difference is blanked with
/// spaces and backed over. Lengths and their differences wrap around in 32 bits; nothing is printed
/// for negative ones.
int displayConsoleProgressBar(int percent, char* text, bool overwrite, int width);

/// @}

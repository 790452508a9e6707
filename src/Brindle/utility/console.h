/// @file
/// A progress bar on the console.
///
/// The length of the last line drawn is kept for the whole process: bars drawn in turn back over
/// each other's lengths.
///
/// @warning Lines must not be drawn from several threads at once.
#pragma once

/// Draws a progress bar on standard output and flushes it.
///
/// Prints "|", the cells, "| [%3d%%]" with the percent, and " %s" with the text; never a line end.
/// width * percent / 100 cells are filled (32-bit arithmetic, rounded down) with "=", the last of
/// them with ">" as long as the bar is not full. With `overwrite` the line before is backed over
/// first, with one backspace for each of its characters. Where that line was longer, with or
/// without `overwrite`, the difference is blanked with spaces and backed over. The length of a line
/// wraps around in 32 bits, and so does the difference of two; nothing is backed over or blanked
/// where it is negative.
/// @param percent  limited to 0 to 100
/// @param text  zero-terminated, or null for none
/// @param overwrite  whether the line replaces the one before
/// @param width  cells; none are drawn when it is below 1
/// @return the percent that was drawn
int displayConsoleProgressBar(int percent, char* text, bool overwrite, int width);

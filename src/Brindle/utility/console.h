// A progress bar on the console.
#pragma once

/// Draws a progress bar of `width` cells on standard output, followed by `text` where that is not
/// null, and flushes it. Returns `percent`, limited to 0 to 100.
///
/// Prints "|", the cells, "| [%3d%%]" with the percent, and " %s" with the text; never a line end.
/// width * percent / 100 cells are filled (32-bit arithmetic, rounded down) with "=", the last of
/// them with ">" as long as the bar is not full. With `overwrite` the line before is backed over
/// first, with one backspace for each of its characters. Where that line was longer, with or
/// without `overwrite`, the difference is blanked with spaces and backed over.
///
/// The length of the last line drawn is kept for the whole process: bars drawn in turn back over
/// each other's lengths, and the function must not be called from several threads.
int displayConsoleProgressBar(int percent, char* text, bool overwrite, int width);

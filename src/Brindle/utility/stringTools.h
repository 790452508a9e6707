/// @file
/// Replacing, splitting, and the last element of a path. No state; callable from any thread.
#pragma once

#include <string>
#include <vector>

/// @defgroup stringTools Strings
/// @{

/// Replaces every occurrence of a pattern in place, from left to right; an empty one changes
/// nothing. Replaced text is not searched again. Takes time linear in the text and the result,
/// however long the pattern and however many occurrences. std::bad_alloc leaves `text` as it was.
void replaceSubString(std::string& text, std::string pattern, std::string replacement);

/// Splits a text at every character of a set; null is the empty set. Runs of delimiters, and
/// delimiters at either end, give no empty pieces: a text of delimiters only gives no piece at all.
/// A text without a delimiter is one piece, also when it is empty.
std::vector<std::string> stringTokenizer(std::string text, const char* delimiters);

/// Returns the last of a path's elements, which slashes or backslashes separate, or an empty string
/// where there is none. A trailing separator is passed over.
std::string getPathLastName(std::string path);

/// @}

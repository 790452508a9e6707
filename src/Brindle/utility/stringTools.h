// Replacing, splitting, and the last element of a path. No state; callable from any thread.
#pragma once

#include <string>
#include <vector>

/// Replaces every occurrence of `pattern` in `text`, from left to right. Replaced text is not
/// searched again, so a replacement may hold the pattern. An empty pattern changes nothing. Takes
/// time linear in the text and the result, however long the pattern and however many occurrences.
void replaceSubString(std::string& text, std::string pattern, std::string replacement);

/// Returns the pieces of `text` between characters of the set `delimiters`, in order. Runs of
/// delimiters, and delimiters at either end, give no empty pieces: a text of delimiters only gives
/// no piece at all. A text without a delimiter is returned whole, as one piece, also when it is
/// empty; so is any text when `delimiters` is null.
std::vector<std::string> stringTokenizer(std::string text, const char* delimiters);

/// Returns the last element of a path whose elements are separated by slashes or backslashes; a
/// trailing separator is passed over. Empty where there is no element.
std::string getPathLastName(std::string path);

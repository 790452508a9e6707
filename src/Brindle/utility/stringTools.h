/// @file
/// Replacing, splitting, and the last element of a path. No state; callable from any thread.
#pragma once

#include <string>
#include <vector>

/// Replaces every occurrence of a pattern, from left to right. Replaced text is not searched again.
/// Takes time linear in the text and the result, however long the pattern and however many
/// occurrences.
/// @param text  changed in place
/// @param pattern  an empty one changes nothing
/// @param replacement  may hold the pattern
void replaceSubString(std::string& text, std::string pattern, std::string replacement);

/// Splits a text at every character of a set. Runs of delimiters, and delimiters at either end,
/// give no empty pieces: a text of delimiters only gives no piece at all. A text without a
/// delimiter is one piece, also when it is empty.
/// @param text  any bytes
/// @param delimiters  the set, zero-terminated; null is the empty set
/// @return the pieces, in order
std::vector<std::string> stringTokenizer(std::string text, const char* delimiters);

/// Takes the last element of a path; a trailing separator is passed over.
/// @param path  elements separated by slashes or backslashes
/// @return the element, empty where there is none
std::string getPathLastName(std::string path);

/// @file
/// The running process: where its executable is, and its environment.
///
/// xGetCurrentAppPath() and xGetEnvVariable() keep no state and may run beside other threads as
/// long as none of these changes the environment.
///
/// @warning xGetCurrentAppDir() sets the process's locale, as the narrow xFixFolderPath() does. It
/// must not run beside other threads that use the locale.
#pragma once

#include <string>
#include <vector>

/// Finds the running executable.
///
/// Prints "Fail to readlink: %s\n" with the system's text for the error when the system does not
/// tell the path.
/// @return the full path, cut after 1023 bytes without notice; an empty string after the message
std::string xGetCurrentAppPath();

/// Finds the folder that holds the running executable. Of the executable's path up to 4095 bytes
/// are considered.
///
/// Sets the process's locale.
///
/// @warning The folder may be another, shorter one, as the narrow xFixFolderPath() warns.
/// @return the folder's path as xFixFolderPath() writes it, with slashes in the place of
/// backslashes and one at its end; an empty string for an executable in the root directory, and
/// when the system does not tell the path
std::string xGetCurrentAppDir();

/// Splits a list in the environment at each ':'. Nothing is trimmed.
/// @param name  the variable's, zero-terminated, or null
/// @return the elements, empty ones included: "a::b:" gives "a", "", "b", "", and a variable of
/// empty value gives one empty element; none for a variable that is not set, and for null
std::vector<std::string> xGetEnvVariable(const char* name);

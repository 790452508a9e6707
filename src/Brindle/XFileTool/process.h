// The running process: where its executable is, and its environment.
//
// No state of its own. xGetCurrentAppDir() sets the process's locale as xFixFolderPath() does; the
// others may run beside other threads as long as none of these changes the environment.
#pragma once

#include <string>
#include <vector>

/// Returns the full path of the running executable, cut after 1023 bytes without notice. Empty
/// after printing "Fail to readlink: %s\n", with the system's text for the error, when the system
/// does not tell the path.
std::string xGetCurrentAppPath();

/// Returns the folder that holds the running executable, up to 4095 bytes of its path considered,
/// as xFixFolderPath() writes a folder: with a slash at its end, with slashes in the place of
/// backslashes, and cut at the first character that the locale cannot convert. Sets the process's
/// locale to "en_US.UTF-8" where the system knows it.
///
/// Empty, without a message, when the system does not tell the path. Empty as well, not "/", for an
/// executable in the root directory.
std::string xGetCurrentAppDir();

/// Returns the elements of a list in the environment: the value of the variable `name`, split at
/// each ':'. Empty elements are kept and nothing is trimmed: "a::b:" gives "a", "", "b", "". A
/// variable of empty value gives one empty element, one that is not set, or a null `name`, none.
std::vector<std::string> xGetEnvVariable(const char* name);

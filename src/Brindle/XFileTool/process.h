/// @file
/// The running process: where its executable is, and its environment.
///
/// xGetCurrentAppPath() and xGetEnvVariable() keep no state and may run beside other threads as
/// long as none of these changes the environment.
///
/// @warning xGetCurrentAppDir() sets the process's locale, as the narrow xFixFolderPath() does;
/// other threads must not use it meanwhile.
#pragma once

#include <string>
#include <vector>

/// @defgroup process The process
/// @{

/// Returns the full path of the running executable, truncated after 1023 bytes without notice. On
/// failure prints "Fail to readlink: %s\n" with the system's text and returns an empty string.
std::string xGetCurrentAppPath();

/// Returns the folder of the running executable, of whose path up to 4095 bytes are considered, as
/// the narrow xFixFolderPath() writes it and with what that warns of. Empty for an executable in
/// the root directory and on failure. See docs/hazards.md.
std::string xGetCurrentAppDir();

/// Splits a list in the environment at each ':'. Nothing is trimmed, and empty elements count:
/// "a::b:" gives "a", "", "b", "", and an empty value gives one empty element. A variable that is
/// not set, or null, gives none.
std::vector<std::string> xGetEnvVariable(const char* name);

/// @}

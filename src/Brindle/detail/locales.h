// The locales by whose names the file tools convert paths. Private: not installed. The names are
// part of what callers see: they are what the process's locale is set to.
#pragma once

namespace brindle::detail {

/// That of all conversions but those of xUniformFilePath() and xFixFolderPath().
inline constexpr const char* kChineseLocale = "chinese";
inline constexpr const char* kUniformPathLocale = "en_US.UTF-8";

}  // namespace brindle::detail

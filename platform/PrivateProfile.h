#pragma once

#include <string>

#include "document/Platform.h"

namespace morvane {

/// The value of a key in the text of a private-profile file; dv if there is none. Sections and keys
/// are case-insensitive, and the first of several counts. Quotes around the value are removed.
std::string FindProfileValue(const std::string& text, const std::string& section,
                             const std::string& key, const std::string& dv);

/// The text with one value set so that reading returns it. A value with a line break is refused.
/// All other lines stay unchanged.
Result<std::string> WithProfileValue(const std::string& text, const std::string& section,
                                     const std::string& key, const std::string& value);

/// The UTF-8 text truncated to a number of bytes, never inside a character.
std::string CutText(std::string text, std::size_t maxBytes);

}  // namespace morvane

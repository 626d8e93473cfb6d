#pragma once

#include <string>

#include "document/Platform.h"

namespace morvane {

/// The value of a key in the text of a private-profile file; dv where there is none. Sections and
/// keys are found without regard to case, and the first of several counts. A pair of quotes around
/// the value is left out.
std::string FindProfileValue(const std::string& text, const std::string& section,
                             const std::string& key, const std::string& dv);

/// The text with one value set, such that it is found again; a line break in it is refused. All
/// other lines stay as they are.
Result<std::string> WithProfileValue(const std::string& text, const std::string& section,
                                     const std::string& key, const std::string& value);

/// The text cut to a number of bytes, never inside a character.
std::string CutText(std::string text, std::size_t most);

}  // namespace morvane

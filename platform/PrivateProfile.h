#pragma once

#include <string>

#include "platform/Platform.h"

namespace morvane {

/// The value of a key in the text of a private-profile file; dv where there is none. Sections and
/// keys are found without regard to case; a pair of quotes around the value is left out.
std::string FindProfileValue(const Bytes& file, const std::string& section, const std::string& key,
                             const std::string& dv);

/// The text cut to a number of bytes, never inside a character.
std::string CutText(std::string text, std::size_t most);

}  // namespace morvane

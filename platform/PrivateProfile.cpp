#include "platform/PrivateProfile.h"

// The bytes of the file are taken as they are.
#define SI_NO_CONVERSION
#include <SimpleIni.h>

namespace morvane {

std::string FindProfileValue(const Bytes& file, const std::string& section, const std::string& key,
                             const std::string& dv) {
  CSimpleIniA profile;
  if (profile.LoadData(reinterpret_cast<const char*>(file.data()), file.size()) < 0) return dv;
  const char* found = profile.GetValue(section.c_str(), key.c_str());
  if (found == nullptr) return dv;
  std::string value = found;
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string CutText(std::string text, std::size_t most) {
  if (text.size() <= most) return text;
  const auto continues = [&](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  while (most > 0 && continues(most)) --most;
  text.resize(most);
  return text;
}

}  // namespace morvane

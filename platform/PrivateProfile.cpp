#include "platform/PrivateProfile.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace morvane {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool SameName(std::string_view one, std::string_view other) {
  const auto same = [](unsigned char a, unsigned char b) {
    return std::tolower(a) == std::tolower(b);
  };
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), same);
}

/// The position of a key's line, or where it would be inserted.
struct Place {
  bool hasSection = false;
  bool hasKey = false;
  std::size_t begin = 0;  ///< of the key's line, or the end of its section's last line with text
  std::size_t end = 0;    ///< of the key's line, without its line break
};

Place FindPlace(std::string_view text, std::string_view section, std::string_view key) {
  Place place;
  std::size_t at = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::string_view line = Trimmed(text.substr(at, end - at));
    const bool isHeader = line.starts_with('[') && line.ends_with(']') && line.size() > 1;
    if (isHeader && place.hasSection) break;
    if (isHeader) place.hasSection = SameName(Trimmed(line.substr(1, line.size() - 2)), section);
    const std::size_t equals = line.find('=');
    if (place.hasSection && !isHeader && equals != std::string_view::npos &&
        SameName(Trimmed(line.substr(0, equals)), key)) {
      return {true, true, at, end};
    }
    if (place.hasSection && !line.empty()) place.begin = std::min(end + 1, text.size());
    at = end + 1;
  }
  return place;
}

bool IsQuoted(std::string_view value) {
  return value.size() >= 2 && value.front() == value.back() &&
         (value.front() == '"' || value.front() == '\'');
}

/// The value as it is written: in quotes if reading would strip its ends.
std::string Written(const std::string& value) {
  return IsQuoted(value) || Trimmed(value) != value ? '"' + value + '"' : value;
}

}  // namespace

std::string FindProfileValue(const std::string& text, const std::string& section,
                             const std::string& key, const std::string& dv) {
  const Place place = FindPlace(text, section, key);
  if (!place.hasKey) return dv;
  const std::string_view line = std::string_view(text).substr(place.begin, place.end - place.begin);
  std::string_view value = Trimmed(line.substr(line.find('=') + 1));
  if (IsQuoted(value)) value = value.substr(1, value.size() - 2);
  return std::string(value);
}

Result<std::string> WithProfileValue(const std::string& text, const std::string& section,
                                     const std::string& key, const std::string& value) {
  constexpr std::string_view kEnds("\r\n\0", 3);
  if (value.find_first_of(kEnds) != std::string::npos) {
    return Failed{"A setting can't hold a line break."};
  }
  const bool plainBreaks =
      text.find('\n') != std::string::npos && text.find("\r\n") == std::string::npos;
  const std::string lineBreak = plainBreaks ? "\n" : "\r\n";
  const Place place = FindPlace(text, section, key);
  std::string result = text;
  if (place.hasKey) {
    const std::size_t equals = text.find('=', place.begin);
    const std::size_t valueEnd = text[place.end - 1] == '\r' ? place.end - 1 : place.end;
    return result.replace(equals + 1, valueEnd - equals - 1, Written(value));
  }
  std::string added = key + "=" + Written(value) + lineBreak;
  std::size_t at = place.begin;
  if (!place.hasSection) {
    at = text.size();
    added.insert(0, "[" + section + "]" + lineBreak);
    if (!text.empty()) added.insert(0, lineBreak);
  }
  if (at > 0 && text[at - 1] != '\n') added.insert(0, lineBreak);
  return result.insert(at, added);
}

std::string CutText(std::string text, std::size_t maxBytes) {
  if (text.size() <= maxBytes) return text;
  const auto continues = [&](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  while (maxBytes > 0 && continues(maxBytes)) --maxBytes;
  text.resize(maxBytes);
  return text;
}

}  // namespace morvane

#include "document/Settings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace morvane {
namespace {

constexpr const char* kFileName = "Morvane.ini";
constexpr std::size_t kBufferSize = 2048;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

std::string Settings::Path() const {
  return WithTrailingBackslash(StartDir) + kFileName;
}

std::string Settings::GetINIFileString(const std::string& section, const std::string& key,
                                       const std::string& dv) const {
  if (StartDir.empty()) return dv;
  return platform_.GetPrivateProfileString(section, key, dv, kBufferSize, Path());
}

Failure Settings::Write(const std::string& section, const std::string& key,
                        const std::string& value) const {
  if (StartDir.empty()) return "The folder that Morvane was started from is gone.";
  if (value.size() >= kBufferSize) return "The text is too long: it could not be read back.";
  return platform_.WritePrivateProfileString(section, key, value, Path());
}

std::string WithTrailingBackslash(const std::string& aString) {
  return aString.ends_with('/') ? aString : aString + '/';
}

double NumericValue(const std::string& text) {
  std::string digits = text;
  std::erase_if(digits, IsBlank);
  const bool hasPlus = digits.starts_with('+');
  const char first = digits[hasPlus || digits.starts_with('-') ? 1 : 0];  // '\0' at the end
  // from_chars would also accept words such as "infinity".
  if (first != '.' && (first < '0' || first > '9')) return 0;
  const char* begin = digits.data() + (hasPlus ? 1 : 0);
  double value = 0;
  const auto result = std::from_chars(begin, digits.data() + digits.size(), value);
  return result.ec == std::errc() ? value : 0;
}

std::int32_t LongValue(const std::string& text) {
  const double rounded = std::nearbyint(NumericValue(text));
  using Limits = std::numeric_limits<std::int32_t>;
  if (rounded < Limits::min() || rounded > Limits::max()) return 0;
  return static_cast<std::int32_t>(rounded);
}

Color ColorValue(const std::string& text) {
  return static_cast<Color>(LongValue(text)) & 0xFFFFFFU;
}

}  // namespace morvane

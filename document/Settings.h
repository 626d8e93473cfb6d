#pragma once

#include <cstdint>
#include <string>

#include "document/Platform.h"
#include "document/picture/Color.h"

namespace morvane {

/// The settings file "Morvane.ini", read anew at each use.
class Settings {
 public:
  explicit Settings(Platform& platform) : platform_(platform) {}

  /// The directory that was current at start; the file lives there.
  std::string StartDir;

  std::string Path() const;

  /// The text of a key; dv if the file, the section or the key is missing.
  std::string GetINIFileString(const std::string& section, const std::string& key,
                               const std::string& dv) const;

  /// Sets the text of a key, and creates the file if there is none.
  Failure Write(const std::string& section, const std::string& key, const std::string& value) const;

 private:
  Platform& platform_;
};

/// The path of a folder with a separator at its end.
std::string WithTrailingBackslash(const std::string& aString);

/// The number at the start of a text, blanks ignored; 0 if there is none.
double NumericValue(const std::string& text);

/// The numeric value rounded to a whole number, halves to even; 0 if it is out of range.
std::int32_t LongValue(const std::string& text);

/// A colour setting: its low 24 bits name the colour.
Color ColorValue(const std::string& text);

}  // namespace morvane

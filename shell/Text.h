#pragma once

#include <QString>
#include <string_view>

namespace morvane {

/// A text of the core for the toolkit.
inline QString TextOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace morvane

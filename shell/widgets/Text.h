#pragma once

#include <QString>
#include <QTextDocument>
#include <string_view>

namespace morvane {

/// A text of the core for the toolkit.
inline QString TextOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text from outside as a tool tip. The toolkit would take one with angle brackets for mark-up,
/// and could be made to open files by a name.
inline QString ToolTipOf(const QString& text) {
  return Qt::mightBeRichText(text) ? "<span>" + text.toHtmlEscaped() + "</span>" : text;
}

}  // namespace morvane

#pragma once

#include <QString>
#include <QTextDocument>
#include <string_view>

namespace morvane {

/// Converts a text of the core, which is UTF-8.
inline QString TextOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// An external text as a tool tip, escaped so that Qt doesn't interpret it as mark-up, which could
/// load files.
inline QString ToolTipOf(const QString& text) {
  return Qt::mightBeRichText(text) ? "<span>" + text.toHtmlEscaped() + "</span>" : text;
}

}  // namespace morvane

#pragma once

#include <QList>
#include <QTextCharFormat>

#include "platform/TextDrawing.h"

class QTextDocument;

namespace morvane {

/// Limits the text and formats of a document. Without limits the layout of a few kilobytes of
/// pasted text can take minutes.
class TextLimits {
 public:
  /// Counts what the document already contains.
  explicit TextLimits(const QTextDocument& document);

  bool IsFull() const { return FittingLength({}) == 0; }
  /// Returns and counts the beginning of a text that is within the limits. Large characters count
  /// more than small ones.
  QString Take(const QString& text, const QTextCharFormat& format);
  /// The format that is kept of a piece of pasted text: font, size, four effects and an opaque
  /// colour. Font and size are dropped if there are too many different ones, and everything if
  /// there are too many pieces.
  QTextCharFormat Fit(const QTextCharFormat& pasted);

  /// The font size in points, limited to what the document's text may have.
  static double FittingPointSize(double points, const QTextDocument& document);

 private:
  qsizetype FittingLength(const QTextCharFormat& format) const;

  double height_;
  int runs_ = 0;
  QList<QTextCharFormat> fonts_;
};

}  // namespace morvane

#pragma once

#include <QSet>
#include <QTextCharFormat>

#include "platform/TextDrawing.h"

class QTextDocument;

namespace morvane {

/// What a document still has room for. Without limits a few kilobytes of pasted text can keep the
/// layout busy for minutes.
class TextLimits {
 public:
  /// The room beside what the document holds already.
  explicit TextLimits(const QTextDocument& document);

  bool IsFull() const { return Letters({}) == 0; }
  /// The beginning of a text that fits in that format, which is counted. Large letters take more
  /// room than small ones.
  QString Take(const QString& text, const QTextCharFormat& format);
  /// What is kept of the format of a piece of pasted text: font, size, four effects and an opaque
  /// colour. Font and size are dropped where there are too many kinds of them, and everything where
  /// there are too many pieces.
  QTextCharFormat Fit(const QTextCharFormat& pasted);

  /// The size in points for letters of a document, no larger than it has room for.
  static double FittingPointSize(double points, const QTextDocument& document);

 private:
  qsizetype Letters(const QTextCharFormat& format) const;
  bool HasFont(const QTextCharFormat& format);

  double height_;
  int runs_ = 0;
  QSet<QString> fonts_;
};

}  // namespace morvane

#pragma once

#include <QLabel>

namespace morvane {

/// The font, condensed if the text is wider than a width in pixels.
QFont FittedFont(const QFont& font, const QString& text, int width);

/// A line of text that is condensed and elided to fit its visible part. The tool tip shows it in
/// full.
class FittedLabel : public QLabel {
 public:
  /// visibleWidth in pixels
  FittedLabel(int visibleWidth, QWidget* parent) : QLabel(parent), visibleWidth_(visibleWidth) {}

  void ShowText(const QString& text);

 private:
  int visibleWidth_;
};

}  // namespace morvane

#pragma once

#include <QLabel>

namespace morvane {

/// The font, with its letters moved closer together where the text is wider than its place.
QFont FittedFont(const QFont& font, const QString& text, int width);

/// A line of text that fits the part of its place that can be seen. The tool tip tells it in full.
class FittedLabel : public QLabel {
 public:
  /// visibleWidth in pixels
  FittedLabel(int visibleWidth, QWidget* parent) : QLabel(parent), visibleWidth_(visibleWidth) {}

  void ShowText(const QString& text);

 private:
  int visibleWidth_;
};

}  // namespace morvane

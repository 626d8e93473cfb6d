#pragma once

#include <QFrame>

class QLabel;

namespace morvane {

/// One line of text across the whole width. Its panels for status, date and time are always hidden.
class StatusBar : public QFrame {
  Q_OBJECT

 public:
  explicit StatusBar(QWidget* parent);

  void SetSimpleText(const QString& text);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// Shows a text that is too long for the bar as its tool tip.
  void ShowToolTip();

  QLabel* line_;
};

}  // namespace morvane

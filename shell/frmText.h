#pragma once

#include <string>

#include "shell/widgets/FixedDialog.h"

namespace morvane {

class RichTextBox;

/// The dialog in which text for the map is typed and formatted. There is no Cancel button: closing
/// the window cancels it.
class frmText : public FixedDialog {
  Q_OBJECT

 public:
  /// Starts with a text that TextRTF returned earlier, or an empty one.
  frmText(const std::string& text, QWidget* owner);

  /// The whole formatted text, as Qt's HTML.
  std::string TextRTF() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void cmdFont_Click();

  RichTextBox* RichTextBox1_;
};

}  // namespace morvane

#pragma once

#include <QComboBox>

namespace morvane {

/// A drop-down list that shows its longest entry whole: where the place is too narrow for the text,
/// the letters move closer together.
class WholeEntryCombo : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace morvane

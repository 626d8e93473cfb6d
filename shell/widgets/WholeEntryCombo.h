#pragma once

#include <QComboBox>

namespace morvane {

/// A drop-down list that condenses the font of its current entry until it fits.
class WholeEntryCombo : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace morvane

#pragma once

#include <QGroupBox>

namespace morvane {

/// A frame whose upper line runs through the middle of its title, as the fixed positions of its
/// controls require.
class GroupFrame : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace morvane

#pragma once

#include <QAbstractButton>

#include "palette/TilePictures.h"

namespace morvane {

/// One item of the palette: a picture that can be clicked.
class TileBox : public QAbstractButton {
 public:
  /// Places the box at its cell of the page, which is its parent.
  TileBox(const Item& item, const Picture& picture, QWidget* page);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Picture& picture_;
};

}  // namespace morvane

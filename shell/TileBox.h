#pragma once

#include <QAbstractButton>

#include "palette/TilePictures.h"

namespace morvane {

/// One item of the palette: its picture, to be clicked.
class TileBox : public QAbstractButton {
 public:
  /// The box stands at its cell of the page that is its parent.
  TileBox(const Item& item, const Picture& picture, QWidget* page);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Picture& picture_;
};

}  // namespace morvane

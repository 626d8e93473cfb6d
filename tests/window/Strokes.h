#pragma once

#include <QPoint>
#include <QStringList>
#include <random>
#include <tuple>
#include <utility>

#include "shell/ArtSheets.h"
#include "tests/support/ReferenceModel.h"

namespace morvane {

/// Random strokes and changes of the mode, event by event.
class Strokes {
 public:
  explicit Strokes(unsigned seed) : random(seed) {}
  int Random(int from, int to) { return std::uniform_int_distribution(from, to)(random); }

  /// The orders for the first press, which always draws.
  QStringList First() { return Press(1, Random(0, 29) * 20 + 8, Random(0, 23) * 20 + 8); }
  QStringList Next() {
    if (held_ == 0) {
      if (Random(0, 4) > 0) return Press(1 + Random(0, 3) / 3, Random(0, 614), Random(0, 482));
      model.NextMode();
      return {"key", "ctrl+m"};
    }
    if (Random(0, 4) == 0) return {"mouseup", ButtonOf(std::exchange(held_, 0))};
    // A pointer that stays where it is sends no event.
    x_ = std::clamp(x_ + Random(-30, 30), 0, 614);
    y_ = (y_ + Random(1, 60)) % 483;
    model.Paint(false, held_, x_, y_);
    return Move();
  }

  ReferenceModel model{Art()};
  QPoint map;  ///< its top left pixel on the display
  std::mt19937 random;

 private:
  static const TilePictures& Art() {
    static const TilePictures art(&LoadArtSheet);
    return art;
  }
  static QString ButtonOf(int button) { return button == 1 ? "1" : "3"; }
  QStringList Move() const {
    return {"mousemove", QString::number(map.x() + x_), QString::number(map.y() + y_)};
  }
  QStringList Press(int button, int x, int y) {
    std::tie(held_, x_, y_) = std::tie(button, x, y);
    model.Paint(true, button, x, y);
    return Move() << "mousedown" << ButtonOf(button);
  }

  int held_ = 0;  ///< a button, as the model numbers it
  int x_ = 0;
  int y_ = 0;
};

}  // namespace morvane

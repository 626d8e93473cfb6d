#pragma once

#include "tests/support/Sample.h"

namespace morvane {

/// The editor told once more, as plainly as the rules are: full scans, one pixel at a time, no
/// sharing between modes. Slow, and a second opinion on every pixel of the map.
struct PlainModel {
  const TilePictures& art;
  Picture map{615, 483, kWhite};
  Picture blank{619, 487, kWhite};
  Picture undo{613, 480, kWhite};
  Picture stamp;   ///< at its own size
  Picture source;  ///< what was last assigned as the stamp's picture
  Picture custom;
  Size outline{20, 20};
  int set = 0;
  bool wall = false;
  bool door = false;

  explicit PlainModel(const TilePictures& pictures)
      : art(pictures), stamp(art.Of(*FindItem("pbfloor"))), source(stamp) {}

  void Pick(const Item& item) {
    source = art.Of(item);
    const Size size = StampSize(item);
    stamp = Cut(source.View(), {0, 0, size.width, size.height});
    outline = size;
    wall = door = false;
  }

  void ChooseSet(int number) {
    set = number;
    if (set == 4) custom = source;
  }

  void NextMode() {
    if (wall) {
      wall = false;
      door = true;
    } else if (door) {
      door = false;
    } else {
      wall = true;
    }
  }

  void Undo() {
    map = Picture(615, 483, kWhite);
    Copy(undo, 0, 0, undo.Width(), undo.Height(), nullptr);
  }

  /// where tells the place of pixel (x, y) of a picture of W by H.
  template <typename Where>
  void Turn(bool exchangesSides, Where where) {
    for (Picture* picture : {&stamp, &custom}) {
      if (picture == &custom && set != 4) continue;
      const int W = picture->Width();
      const int H = picture->Height();
      Picture turned(exchangesSides ? H : W, exchangesSides ? W : H);
      for (int y = 0; y < H; ++y) {
        for (int x = 0; x < W; ++x) {
          const auto [toX, toY] = where(x, y, W, H);
          turned.Row(toY)[toX] = picture->Row(y)[x];
        }
      }
      *picture = turned;
      outline = {turned.Width(), turned.Height()};
    }
    source = stamp;
    wall = door = false;
  }

  void Paint(bool press, int button, int X, int Y) {
    if (wall) {
      if (button == 1) Side(press, X, Y, Edge::Wall);
    } else if (door) {
      Side(press, X, Y, button == 1 ? Edge::Door : Edge::SecretDoor);
    } else {
      Tile(press, button, X, Y);
    }
  }

 private:
  void Copy(Picture& from, int toX, int toY, int width, int height, const Pixel* key) {
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        const int X = toX + x;
        const int Y = toY + y;
        if (X < 0 || Y < 0 || X >= map.Width() || Y >= map.Height()) continue;
        if (x >= from.Width() || y >= from.Height()) continue;
        if (key == nullptr || from.Row(y)[x] != *key) map.Row(Y)[X] = from.Row(y)[x];
      }
    }
  }

  void Draw(bool press, Picture from, int x, int y, int width, int height, const Pixel* key) {
    if (press) undo = map;
    Copy(from, x, y, width, height, key);
  }

  void Tile(bool press, int button, int X, int Y) {
    int SnapX = 0;
    int SnapY = 0;
    for (int i = 0; i <= 619 / 20; ++i) {
      if (X > 20 * i - 1 && X < 20 * (i + 1) - 1) SnapX = 20 * i;
    }
    for (int i = 0; i <= 487 / 20; ++i) {
      if (Y > 20 * i - 1 && Y < 20 * (i + 1) - 1) SnapY = 20 * i;
    }
    const int limit = button == 2 && !press ? 20 : 40;
    if (!(X <= limit || SnapX != 0) || !(Y <= limit || SnapY != 0)) return;
    const Picture& from = set == 4 ? custom : stamp;
    if (button == 1) Draw(press, from, SnapX, SnapY, from.Width(), from.Height(), nullptr);
    if (button == 2) Draw(press, blank, SnapX, SnapY, outline.width, outline.height, nullptr);
  }

  void Side(bool press, int X, int Y, Edge kind) {
    const int n = 615 / 20;
    const int m = 483 / 20;
    bool InBody = false;
    for (int i = 0; i <= n; ++i) {
      for (int j = 0; j <= m; ++j) {
        if ((X > 20 * i + 3 && X < 20 * (i + 1) - 3) || (Y > 20 * j + 3 && Y < 20 * (j + 1) - 3)) {
          InBody = true;
        }
      }
    }
    if (!InBody) return;
    const bool isWall = kind == Edge::Wall;
    const int across = isWall ? -2 : -3;
    const int along = isWall ? -1 : 2;
    const int thick = isWall ? 4 : 6;
    const int length = isWall ? 22 : 16;
    bool found = false;
    for (int i = 0; i <= n; ++i) {
      if (!(X > 20 * i - 3 && X < 20 * i + 3)) continue;
      found = true;
      int SnapY = 0;
      for (int j = 0; j <= m; ++j) {
        if (Y > 20 * j - 1 && Y < 20 * (j + 1) - 1) SnapY = 20 * j + along;
      }
      DrawEdge(press, kind, Direction::Vertical, 20 * i + across, SnapY, thick, length);
    }
    if (found) return;
    for (int i = 0; i <= m; ++i) {
      if (!(Y > 20 * i - 3 && Y < 20 * i + 3)) continue;
      int SnapX = 0;
      for (int j = 0; j <= n; ++j) {
        if (X > 20 * j - 1 && X < 20 * (j + 1) - 1) SnapX = 20 * j + along;
      }
      DrawEdge(press, kind, Direction::Horizontal, SnapX, 20 * i + across, length, thick);
    }
  }

  void DrawEdge(bool press, Edge kind, Direction direction, int x, int y, int width, int height) {
    const Picture* picture = art.Of(set, kind, direction);
    if (picture == nullptr) return;
    if (set == 3 && kind == Edge::Wall) {
      const bool vertical = direction == Direction::Vertical;
      const Pixel key = picture->View().Row(vertical ? 4 : 0)[vertical ? 0 : 4];
      Draw(press, *picture, x, y, width, height, &key);
    } else {
      Draw(press, *picture, x, y, width, height, nullptr);
    }
  }
};

}  // namespace morvane

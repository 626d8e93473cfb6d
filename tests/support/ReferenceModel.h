#pragma once

#include <algorithm>

#include "document/picture/Transform.h"
#include "tests/support/Sample.h"

namespace morvane {

/// A simple and slow second implementation of the editor's rules: it searches the whole grid,
/// copies pixel by pixel and shares no code between the modes.
struct ReferenceModel {
  const TilePictures& art;
  Size box{619, 487};  ///< of the map with its border
  Picture map{615, 483, kWhite};
  Picture reserve;  ///< what becomes visible when the map grows; white elsewhere
  Picture blank{619, 487, kWhite};
  Picture undo{613, 480, kWhite};
  Picture stamp;   ///< at its own size
  Picture source;  ///< the picture that was last assigned to the stamp
  Picture custom;
  Size outline{20, 20};
  int set = 0;
  bool wall = false;
  bool door = false;

  explicit ReferenceModel(const TilePictures& pictures)
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

  void Undo() { Load(undo); }

  /// Replaces the map with a picture.
  void Load(const Picture& picture) {
    reserve = Picture();
    map = Grown(picture, Inside());
  }

  /// Resizes the inside of the window. A side of the map that would be negative doesn't change.
  void Resize(int width, int height, bool statusBar) {
    const Size wanted = {width - 168, height - 28 - (statusBar ? 22 : 4)};
    if (wanted.width >= 0) box.width = wanted.width;
    if (wanted.height >= 0) box.height = wanted.height;
    Picture grown(std::max(map.Width(), Inside().width), std::max(map.Height(), Inside().height),
                  kWhite);
    CopyRows(reserve, grown);
    CopyRows(map, grown);
    map = grown;
    blank = Grown(blank, box);
  }

  void NewMap(Color color, bool grid, Color gridColor) {
    const auto paper = [&](Size size, Size filled, Size lines) {
      Picture picture(std::max(1, size.width), std::max(1, size.height), kWhite);
      for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
          if (x < filled.width && y < filled.height) picture.Row(y)[x] = PixelOf(color);
          const bool onLine = x % 20 == 19 || y % 20 == 19;
          if (grid && onLine && x < lines.width && y < lines.height) {
            picture.Row(y)[x] = PixelOf(gridColor);
          }
        }
      }
      return picture;
    };
    const Size ahead = {1428, 1164};
    map = paper(Inside(), Inside(), ahead);
    reserve = grid ? paper(ahead, {}, ahead) : Picture();
    blank = paper(box, box, box);
  }

  /// A picture file becomes the stamp; the preview is shown beside the buttons.
  void PickFile(const Picture& picture, const Picture& preview) {
    custom = picture;
    stamp = preview;
    if (preview == picture) source = picture;
    outline = {picture.Width(), picture.Height()};
    wall = door = false;
  }

  void Text(const Picture& block, int X, int Y) {
    const Pixel key = PixelOf(kWhite);
    Draw(true, block, X - 2, Y - 8, block.Width(), block.Height(), &key);
  }

  void Turn(Transform transform) {
    for (Picture* picture : {&stamp, &custom}) {
      if (picture == &custom && set != 4) continue;
      *picture = Turned(*picture, transform);
      outline = {picture->Width(), picture->Height()};
    }
    source = stamp;
    wall = door = false;
  }

  static Picture Turned(const Picture& picture, Transform transform) {
    const int W = picture.Width();
    const int H = picture.Height();
    Picture turned(IsFlip(transform) ? W : H, IsFlip(transform) ? H : W);
    for (int y = 0; y < H; ++y) {
      for (int x = 0; x < W; ++x) {
        const Pixel pixel = picture.View().Row(y)[x];
        if (transform == Transform::FlipHorizontal) turned.Row(y)[W - 1 - x] = pixel;
        if (transform == Transform::FlipVertical) turned.Row(H - 1 - y)[x] = pixel;
        if (transform == Transform::RotateRight) turned.Row(x)[H - 1 - y] = pixel;
        if (transform == Transform::RotateLeft) turned.Row(W - 1 - x)[y] = pixel;
      }
    }
    return turned;
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

  Size Inside() const { return {std::max(0, box.width - 4), std::max(0, box.height - 4)}; }

 private:
  static void CopyRows(const Picture& from, Picture& onto) {
    const int width = std::min(from.Width(), onto.Width());
    for (int y = 0; y < std::min(from.Height(), onto.Height()); ++y) {
      std::copy_n(from.View().Row(y), width, onto.Row(y));
    }
  }

  static Picture Grown(const Picture& from, Size least) {
    Picture grown(std::max(from.Width(), least.width), std::max(from.Height(), least.height),
                  kWhite);
    CopyRows(from, grown);
    return grown;
  }

  void Copy(Picture& from, int toX, int toY, int width, int height, const Pixel* key) {
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        const int X = toX + x;
        const int Y = toY + y;
        if (X < 0 || Y < 0 || X >= Inside().width || Y >= Inside().height) continue;
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
    for (int i = 0; i <= box.width / 20; ++i) {
      if (X > 20 * i - 1 && X < 20 * (i + 1) - 1) SnapX = 20 * i;
    }
    for (int i = 0; i <= box.height / 20; ++i) {
      if (Y > 20 * i - 1 && Y < 20 * (i + 1) - 1) SnapY = 20 * i;
    }
    const int limit = button == 2 && !press ? 20 : 40;
    if (!(X <= limit || SnapX != 0) || !(Y <= limit || SnapY != 0)) return;
    const Picture& from = set == 4 ? custom : stamp;
    if (button == 1) Draw(press, from, SnapX, SnapY, from.Width(), from.Height(), nullptr);
    if (button == 2) Draw(press, blank, SnapX, SnapY, outline.width, outline.height, nullptr);
  }

  void Side(bool press, int X, int Y, Edge kind) {
    const int n = Inside().width / 20;
    const int m = Inside().height / 20;
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

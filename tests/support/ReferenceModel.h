#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "document/picture/Transform.h"
#include "tests/support/FormFixture.h"

namespace morvane {

/// A simple and slow second implementation of the editor's rules: it works with remainders, copies
/// pixel by pixel and holds all that a user sees. Of the product it uses the catalogue, its
/// pictures, the codec and simple types with their functions.
struct ReferenceModel {
  const TilePictures& art;
  Size box{619, 487};  ///< of the map with its border
  Picture map{615, 483, kWhite};
  Picture reserve;  ///< what becomes visible when the map grows; white elsewhere
  Picture blank{619, 487, kWhite};
  Picture undo{613, 480, kWhite};
  Picture stamp;   ///< at its own size
  Picture source;  ///< the picture that was last assigned to the stamp
  Picture custom{20, 20, kWhite};
  Outline outline;
  int set = 0;
  std::array<int, kBuiltInSets> pages = {1, 1, 1, 1};
  Mode mode = Mode::Tile;
  std::string tile = "Floor";
  std::string dimensions;
  std::string status;
  bool canUndo = false;
  bool statusBar = true;
  bool undoButton = true;
  std::map<std::string, Bytes> files;  ///< by path
  std::string file;                    ///< path of the map
  bool hasFile = false;
  std::string caption = "Morvane";
  std::string mapFolder;  ///< of the settings
  std::string text;       ///< the last that was inserted
  // What the user has seen since the last comparison:
  std::vector<SeenBox> boxes;
  std::vector<SeenDialog> dialogs;

  explicit ReferenceModel(const TilePictures& pictures)
      : art(pictures), stamp(art.Of(*FindItem("pbfloor"))), source(stamp) {}

  void Pick(const Item& item) {
    source = art.Of(item);
    const bool isSmaller = item.set == 2;  // "TSR Original"
    stamp = Cut(source.View(), {0, 0, source.Width() - isSmaller, source.Height() - isSmaller});
    tile = item.caption;
    dimensions.clear();
    Choose(stamp, tile + " tile selected");
  }

  /// A picture file becomes the stamp; the preview is shown beside the buttons.
  void PickFile(const std::string& name, const Picture& picture) {
    const int W = picture.Width();
    const int H = picture.Height();
    const int longest = std::max(W, H);
    const auto shortened = [&](int side) {
      return longest <= 60 ? side : std::max(1, int(std::nearbyint(60.0 * side / longest)));
    };
    const Size small = {shortened(W), shortened(H)};
    custom = picture;
    stamp = PictureOf(small.width, small.height, [&](int x, int y) {
      const int from = (x * 2 + 1) * W / (small.width * 2);
      return picture.View().Row((y * 2 + 1) * H / (small.height * 2))[from];
    });
    if (stamp == picture) source = picture;
    tile = name;
    dimensions = std::to_string(picture.Width()) + "x" + std::to_string(picture.Height());
    Choose(picture, "Custom tile selected: " + name);
  }

  void ChooseSet(int number) {
    set = number;
    if (set == 4) custom = source;
  }

  void NextMode() {
    mode = mode == Mode::Wall ? Mode::Door : mode == Mode::Door ? Mode::Tile : Mode::Wall;
    outline.Visible = mode == Mode::Tile;
    const std::array texts = {"Tile Mode selected", "Wall Mode selected", "Door Mode selected"};
    status = texts.at(static_cast<std::size_t>(mode));
    if (mode == Mode::Door && set != 3) {
      status += " - left mouse button for normal doors, right mouse button for secret doors";
    }
  }

  void Undo() {
    Load(undo);
    canUndo = undoButton = false;
  }

  /// Replaces the map with a picture.
  void Load(const Picture& picture) {
    reserve = Picture();
    map = Grown(picture, Inside());
  }

  /// Resizes the inside of the window. A side of the map that would be negative doesn't change.
  void Resize(Size client) {
    const Size wanted = {client.width - 168, client.height - 28 - (statusBar ? 22 : 4)};
    if (wanted.width >= 0) box.width = wanted.width;
    if (wanted.height >= 0) box.height = wanted.height;
    Picture grown(std::max(map.Width(), Inside().width), std::max(map.Height(), Inside().height));
    for (const Picture* shown : {&reserve, &map}) Copy(*shown, 0, 0, grown, grown.View().Bounds());
    map = grown;
    blank = Grown(blank, box);
  }

  void SetFile(const std::string& path) {
    file = path;
    hasFile = true;
    caption = "Morvane - " + path.substr(path.rfind('/') + 1);
  }

  void Open(const std::string& path) {
    dialogs.push_back({"Open", "Map files (*.bmp)|*.bmp", "", mapFolder});
    if (path.empty()) return;
    const std::string message = "The map could not be opened.\n\n" + path;
    if (!files.contains(path)) return Report(message + "\n\nThere is no such file.");
    Result<Picture> picture = ReadBmp(files[path]);
    if (!picture.Ok()) return Report(message + "\n\nThe file ends too early.");
    Load(picture.Value());
    SetFile(path);
  }

  void SaveAs(const std::string& path, Answer answer) {
    dialogs.push_back({"Save As", "Map files (*.bmp)|*.bmp", file, mapFolder});
    if (path.empty()) return;
    if (files.contains(path)) {
      boxes.push_back(
          {"File already exists. Are you sure?", BoxStyle::YesNoExclamation, "Warning"});
      if (answer != Answer::Yes) return;
    }
    if (path.starts_with("/gone/")) {
      return Report("The map could not be saved.\n\n" + path + "\n\nThe folder doesn't exist.");
    }
    files[path] = WriteBmp(map.View());
    SetFile(path);
  }

  void Save(const std::string& path, Answer answer) {
    if (!hasFile) return SaveAs(path, answer);
    files[file] = WriteBmp(map.View());
    boxes.push_back({"Map saved as " + file, BoxStyle::OkOnly, "Morvane"});
  }

  void Report(const std::string& text) {
    boxes.push_back({text, BoxStyle::OkExclamation, "Morvane"});
  }

  void AskToSave() {
    boxes.push_back({"Do you want to save your map?", BoxStyle::YesNoCancelQuestion, "Save?"});
  }

  void NewMap(Answer answer, Color color, bool grid, Color gridColor) {
    boxes.push_back({"Are you sure?", BoxStyle::YesNoQuestion, "New map"});
    if (answer != Answer::Yes) return;
    hasFile = false;
    caption = "Morvane";
    const auto paper = [&](Size size, Size filled, Size lines) {
      return PictureOf(std::max(1, size.width), std::max(1, size.height), [&](int x, int y) {
        const bool isOnLine = grid && (x % 20 == 19 || y % 20 == 19);
        if (isOnLine && x < lines.width && y < lines.height) return PixelOf(gridColor);
        return PixelOf(x < filled.width && y < filled.height ? color : kWhite);
      });
    };
    const Size ahead = {1428, 1164};
    map = paper(Inside(), Inside(), ahead);
    reserve = grid ? paper(ahead, {}, ahead) : Picture();
    blank = paper(box, box, box);
  }

  /// A press after Insert Text. The block is the picture of the text; null if the user cancels.
  void Text(const std::string& typed, const Picture* block, int X, int Y) {
    const Pixel key = PixelOf(kWhite);
    dialogs.push_back({"Text", "", text});
    outline.Visible = false;
    canUndo = undoButton = true;
    if (block == nullptr) return;
    text = typed;
    undo = map;
    Copy(*block, X - 2, Y - 8, map, Visible(), &key);
  }

  void Turn(Transform transform) {
    source = stamp = Turned(stamp, transform);
    if (set == 4) custom = Turned(custom, transform);
    const char* done = IsFlip(transform) ? " tile flipped" : " tile rotated";
    Choose(set == 4 ? custom : stamp, tile + done);
  }

  static Picture Turned(const Picture& picture, Transform transform) {
    const int W = picture.Width();
    const int H = picture.Height();
    const auto pixelAt = [&](int x, int y) {
      if (transform == Transform::FlipHorizontal) return picture.View().Row(y)[W - 1 - x];
      if (transform == Transform::FlipVertical) return picture.View().Row(H - 1 - y)[x];
      if (transform == Transform::RotateRight) return picture.View().Row(H - 1 - x)[y];
      return picture.View().Row(x)[W - 1 - y];
    };
    return IsFlip(transform) ? PictureOf(W, H, pixelAt) : PictureOf(H, W, pixelAt);
  }

  /// A press of a button, or a move with a mask of held buttons.
  void Paint(bool press, int button, int X, int Y) {
    if (button == 0) return Hover(X, Y);
    if (press) outline.Visible = false;
    canUndo = undoButton = true;
    if (mode == Mode::Tile) {
      PaintTile(press, button, X, Y);
    } else if (mode == Mode::Door || button == 1) {
      const Edge door = button == 1 ? Edge::Door : Edge::SecretDoor;
      PaintSide(press, X, Y, mode == Mode::Wall ? Edge::Wall : door);
    }
  }

  Size Inside() const { return {std::max(0, box.width - 4), std::max(0, box.height - 4)}; }

 private:
  void Hover(int X, int Y) {
    if (mode != Mode::Tile) return;
    outline.Visible = true;
    if (IsInCell(X, box.width)) outline.Left = X / 20 * 20;
    if (IsInCell(Y, box.height)) outline.Top = Y / 20 * 20;
  }

  void Choose(const Picture& picture, const std::string& text) {
    outline.Width = picture.Width();
    outline.Height = picture.Height();
    mode = Mode::Tile;
    status = text;
  }

  Rect Visible() const { return {0, 0, Inside().width, Inside().height}; }

  static Picture Grown(const Picture& from, Size least) {
    Picture grown(std::max(from.Width(), least.width), std::max(from.Height(), least.height));
    Copy(from, 0, 0, grown, grown.View().Bounds());
    return grown;
  }

  static bool IsInCell(int v, int extent) {
    return v >= 0 && v % 20 != 19 && v / 20 <= extent / 20;
  }

  void PaintTile(bool press, int button, int X, int Y) {
    const int SnapX = IsInCell(X, box.width) ? X / 20 * 20 : 0;
    const int SnapY = IsInCell(Y, box.height) ? Y / 20 * 20 : 0;
    const int limit = button == 2 && !press ? 20 : 40;
    if ((X > limit && SnapX == 0) || (Y > limit && SnapY == 0) || button > 2) return;
    const Rect erased =
        Rect{0, 0, outline.Width, outline.Height}.Intersected(blank.View().Bounds());
    const Picture drawn = button == 2 ? Cut(blank.View(), erased) : set == 4 ? custom : stamp;
    if (press) undo = map;
    Copy(drawn, SnapX, SnapY, map, Visible());
  }

  void PaintSide(bool press, int X, int Y, Edge kind) {
    const auto isNearLine = [](int v, int extent) {
      return v >= -2 && (v + 2) % 20 < 5 && (v + 2) / 20 <= extent / 20;
    };
    const auto isInBody = [](int v, int extent) {
      return v >= 0 && v % 20 >= 4 && v % 20 <= 16 && v / 20 <= extent / 20;
    };
    const bool isVertical = isNearLine(X, Inside().width) && isInBody(Y, Inside().height);
    if (!isVertical && !(isNearLine(Y, Inside().height) && isInBody(X, Inside().width))) return;
    const Direction direction = isVertical ? Direction::Vertical : Direction::Horizontal;
    const Picture* picture = art.Of(set, kind, direction);
    if (picture == nullptr) return;
    if (press) undo = map;
    const bool isWall = kind == Edge::Wall;
    const int across = ((isVertical ? X : Y) + 2) / 20 * 20 - (isWall ? 2 : 3);
    const int along = (isVertical ? Y : X) / 20 * 20 + (isWall ? -1 : 2);
    const Rect whole = picture->View().Bounds();
    // Fences are two pixels longer than what is copied of them.
    const Picture side = Cut(picture->View(), whole.Intersected({0, 0, 22, 22}));
    const Pixel key = picture->View().Row(isVertical ? 4 : 0)[isVertical ? 0 : 4];
    Copy(side, isVertical ? across : along, isVertical ? along : across, map, Visible(),
         set == 3 && isWall ? &key : nullptr);
  }
};

}  // namespace morvane

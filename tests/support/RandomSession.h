#pragma once

#include <gtest/gtest.h>

#include <random>

#include "palette/CustomTiles.h"
#include "palette/PalettePages.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ReferenceModel.h"

namespace morvane {

/// Performs the actions of a user, on the core or on the real window.
class Driver {
 public:
  virtual ~Driver() = default;
  virtual void ChooseSet(int set) = 0;
  virtual void ChooseTab(int set, int tab) = 0;
  /// Clicks an item of the page that shows.
  virtual void PickItem(const Item& item) = 0;
  virtual void NextMode() = 0;
  virtual void Turn(Transform transform) = 0;
  virtual void Undo() = 0;
  virtual void Press(int button, int X, int Y) = 0;
  virtual void Move(int buttons, int X, int Y) = 0;
  /// Returns the inside of the window.
  virtual Size Resize(int width, int height) = 0;
  virtual void ToggleStatusBar() = 0;
  virtual void NewMap(Color color, bool grid, Color gridColor) = 0;
  virtual void OpenMap(const Bytes& file) = 0;
  virtual Bytes SaveMap() = 0;
  /// Chooses the set "Custom" and clicks a file there.
  virtual void PickFile(const std::string& name, const Bytes& file) = 0;
  /// Returns the picture of the text.
  virtual Picture InsertText(int X, int Y) = 0;
  /// The control that shows something else than the core; empty if there is none.
  virtual std::string WindowMismatch() { return {}; }
};

/// Random actions, and after each of them a comparison of the editor with the reference model.
class RandomSession {
 public:
  RandomSession(unsigned seed, MainForm& form, Driver& driver)
      : random_(seed), form_(form), driver_(driver) {}

  void Run(int steps) {
    for (int step = 0; step < steps; ++step) {
      Step();
      ExpectSame(step);
      if (testing::Test::HasFatalFailure()) return;
    }
  }

 private:
  int Random(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

  /// Most coordinates are near grid lines, where the rules differ. Moves may leave the map.
  int Coordinate(int extent, bool isInside) {
    if (Random(0, 2) == 0) return Random(0, std::max(0, extent / Random(1, 10) - 1));
    const int v = Random(0, extent / 20) * 20 + Random(-5, 5);
    return isInside ? std::clamp(v, 0, std::max(0, extent - 1)) : v + Random(0, 9) / 9 * 50;
  }

  void Step() {
    const int roll = Random(0, 99);
    if (roll < 55) return Paint();
    if (roll < 63) return Pick();
    if (roll < 68) return ChooseSet();
    if (roll < 75) return NextMode();
    if (roll < 82) return Turn();
    if (roll < 87) return Undo();
    if (roll < 90) return PickFile();
    if (roll < 93) return Resize();
    if (roll < 95) return NewMap();
    if (roll < 97) return OpenMap();
    if (roll < 98) return InsertText();
    EXPECT_EQ(driver_.SaveMap(), WriteBmp(model_.map.View()));
  }

  void Paint() {
    const Size inside = model_.Inside();
    const int kind = Random(0, 2);
    const int X = Coordinate(inside.width, kind != 1);
    const int Y = Coordinate(inside.height, kind != 1);
    if (inside.width == 0 || inside.height == 0) return;
    if (kind == 2) {
      driver_.Move(0, X, Y);
      if (!model_.wall && !model_.door) Hover(X, Y);
      return;
    }
    const int buttons = kind == 0 ? 1 << Random(0, 2) : Random(1, 7);
    kind == 0 ? driver_.Press(buttons, X, Y) : driver_.Move(buttons, X, Y);
    if (kind == 0) outline_.Visible = false;
    model_.Paint(kind == 0, buttons, X, Y);
    canUndo_ = buttonUndo_ = true;
  }

  void Hover(int X, int Y) {
    outline_.Visible = true;
    for (int i = 0; i <= model_.box.width / 20; ++i) {
      if (X >= 20 * i && X < 20 * i + 19) outline_.Left = 20 * i;
    }
    for (int i = 0; i <= model_.box.height / 20; ++i) {
      if (Y >= 20 * i && Y < 20 * i + 19) outline_.Top = 20 * i;
    }
  }

  void Pick() {
    const Item& item = Items()[static_cast<std::size_t>(Random(0, kItemCount - 1))];
    if (item.set != model_.set) driver_.ChooseSet(item.set);
    model_.ChooseSet(item.set);
    if (TileSets()[item.set].pageCount > 1) driver_.ChooseTab(item.set, item.page);
    pages_[item.set] = item.page;
    driver_.PickItem(item);
    model_.Pick(item);
    tile_ = item.caption;
    size_.clear();
    status_ = tile_ + " tile selected";
  }

  void ChooseSet() {
    const int set = Random(0, kBuiltInSets);
    driver_.ChooseSet(set);
    model_.ChooseSet(set);
  }

  void NextMode() {
    driver_.NextMode();
    outline_.Visible = model_.door;
    model_.NextMode();
    status_ = model_.wall ? "Wall Mode selected" : "Tile Mode selected";
    if (!model_.door) return;
    status_ = "Door Mode selected";
    if (model_.set != kClassicVillage) {
      status_ += " - left mouse button for normal doors, right mouse button for secret doors";
    }
  }

  void Turn() {
    using enum Transform;
    const Transform transform =
        std::array{FlipHorizontal, FlipVertical, RotateRight, RotateLeft}[Random(0, 3)];
    driver_.Turn(transform);
    model_.Turn(transform);
    status_ = tile_ + (IsFlip(transform) ? " tile flipped" : " tile rotated");
  }

  void Undo() {
    if (!canUndo_) return;
    driver_.Undo();
    model_.Undo();
    canUndo_ = buttonUndo_ = false;
  }

  void PickFile() {
    const Size size = {Random(1, 1 << Random(1, 8)), Random(1, 1 << Random(1, 8))};
    const Picture picture = Speckled(size.width, size.height, Random(1, 99));
    const bool isBroken = Random(0, 4) == 0;
    const std::string names[] = {"a tile.bmp", "é漢.bmp", "two\nlines.bmp", "<i>[*]%1&.bmp",
                                 std::string(251, 'n') + ".bmp"};
    const std::string& name = names[Random(0, 4)];
    driver_.PickFile(name, isBroken ? Bytes{'n', 'o'} : WriteBmp(picture.View()));
    model_.ChooseSet(kCustomSet);
    if (isBroken) {
      const std::string& status = form_.document.StatusText;
      EXPECT_TRUE(status.starts_with(name + " can't be used as a tile: This is not a picture"));
      status_ = status;
      return;
    }
    const Size small = PreviewSize(size);
    Picture preview(small.width, small.height);
    StretchBlt(preview.Draw(), 0, 0, small.width, small.height, picture.View(), 0, 0, size.width,
               size.height);
    model_.PickFile(picture, preview);
    tile_ = name;
    size_ = std::to_string(size.width) + "x" + std::to_string(size.height);
    status_ = "Custom tile selected: " + name;
  }

  void Resize() {
    if (Random(0, 3) == 0) {
      statusBar_ = !statusBar_;
      driver_.ToggleStatusBar();
    } else {
      const int most = Random(0, 3) == 0 ? 1700 : 850;
      client_ = driver_.Resize(Random(0, most), Random(0, most));
    }
    model_.Resize(client_.width, client_.height, statusBar_);
  }

  void NewMap() {
    const auto color = static_cast<Color>(Random(0, 0xFFFFFF));
    const auto gridColor = static_cast<Color>(Random(0, 0xFFFFFF));
    const bool grid = Random(0, 3) > 0;
    driver_.NewMap(color, grid, gridColor);
    model_.NewMap(color, grid, gridColor);
  }

  void OpenMap() {
    const Picture picture = Speckled(Random(1, 900), Random(1, 700), Random(1, 99));
    Bytes file = WriteBmp(picture.View());
    const bool isBroken = Random(0, 3) == 0;
    if (isBroken) file.resize(file.size() / 2);
    driver_.OpenMap(file);
    if (!isBroken) model_.Load(picture);
  }

  void InsertText() {
    const Size inside = model_.Inside();
    if (inside.width == 0 || inside.height == 0) return;
    const int X = Random(0, inside.width - 1);
    const int Y = Random(0, inside.height - 1);
    model_.Text(driver_.InsertText(X, Y), X, Y);
    outline_.Visible = false;
    canUndo_ = buttonUndo_ = true;
  }

  static PictureView ShownPart(const PictureBox& box) {
    PictureView view = box.Image();
    view.width = box.ScaleWidth();
    view.height = box.ScaleHeight();
    return view;
  }

  void ExpectSame(int step) {
    SCOPED_TRACE("step " + std::to_string(step));
    const Document& document = form_.document;
    const Palette& palette = form_.palette;
    ASSERT_EQ(Difference(document.Canvas.Image(), model_.map.View()), "");
    if (step % 10 == 0) {
      ASSERT_EQ(Difference(document.pbclear.Image(), model_.blank.View()), "");
    }
    ASSERT_EQ(Difference(ShownPart(palette.Picture1), model_.stamp.View()), "");
    if (model_.set == kCustomSet) {
      ASSERT_EQ(Difference(ShownPart(palette.Custom), model_.custom.View()), "");
    }
    ASSERT_EQ(document.Canvas.Width(), model_.box.width);
    ASSERT_EQ(document.Canvas.Height(), model_.box.height);
    ASSERT_EQ(palette.Shape1.Width, model_.outline.width);
    ASSERT_EQ(palette.Shape1.Height, model_.outline.height);
    ASSERT_EQ(palette.Shape1.Visible, outline_.Visible);
    ASSERT_EQ(palette.Shape1.Left, outline_.Left);
    ASSERT_EQ(palette.Shape1.Top, outline_.Top);
    ASSERT_EQ(palette.WallMode, model_.wall);
    ASSERT_EQ(palette.DoorMode, model_.door);
    ASSERT_EQ(palette.TileSetSelector.ListIndex, model_.set);
    ASSERT_EQ(palette.Label2, tile_);
    ASSERT_EQ(palette.Label5, size_);
    ASSERT_EQ(document.StatusText, status_);
    ASSERT_EQ(document.mnuEditUndoEnabled, canUndo_);
    ASSERT_EQ(document.UndoButtonEnabled, buttonUndo_);
    for (int set = 0; set < kBuiltInSets; ++set) {
      ASSERT_EQ(CurrentPage(palette, set), pages_[set]);
    }
    ASSERT_EQ(driver_.WindowMismatch(), "");
  }

  std::mt19937 random_;
  MainForm& form_;
  Driver& driver_;
  ReferenceModel model_{form_.palette.pictures};
  Size client_{787, 537};
  Outline outline_;
  std::array<int, kBuiltInSets> pages_ = {1, 1, 1, 1};
  std::string tile_ = form_.palette.Label2;
  std::string size_ = form_.palette.Label5;
  std::string status_ = form_.document.StatusText;
  bool statusBar_ = true;
  bool canUndo_ = false;
  bool buttonUndo_ = true;
};

}  // namespace morvane

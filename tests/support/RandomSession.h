#pragma once

#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "palette/CustomTiles.h"
#include "palette/PalettePages.h"
#include "tests/support/ReferenceModel.h"
#include "tools/Buttons.h"

namespace morvane {

/// Random actions of a user, and after each of them a comparison of the editor with the reference
/// model. The driver performs the actions, on the core or in the real window.
template <typename Driver>
class RandomSession {
 public:
  RandomSession(unsigned seed, Driver& driver) : random_(seed), driver_(driver) {
    model_.status = form_.document.StatusText;
  }

  void Run(int steps) {
    for (int step = 0; step < steps && !testing::Test::HasFatalFailure(); ++step) {
      SCOPED_TRACE(step);
      Step();
      ExpectSame();
    }
    End();
  }

 private:
  int Random(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }
  Color RandomColor() { return static_cast<Color>(Random(0, 0xFFFFFF)); }
  Picture RandomPicture(int maxWidth, int maxHeight) {
    return Speckled(Random(1, maxWidth), Random(1, maxHeight), Random(1, 99));
  }

  /// Most coordinates are near grid lines, where the rules differ, and the first lines have rules
  /// of their own. Moves may leave the map.
  int Coordinate(int extent, bool isInside) {
    if (Random(0, 2) == 0) return Random(0, std::max(0, extent / Random(1, 10) - 1));
    const int v = Random(0, Random(0, 1) == 0 ? 2 : extent / 20) * 20 + Random(-5, 5);
    return isInside ? std::clamp(v, 0, std::max(0, extent - 1)) : v + Random(0, 9) / 9 * 50;
  }

  void Step() {
    const int roll = Random(0, 99);
    if (roll < 55) return Paint();
    if (roll < 63) return Pick();
    if (roll < 68) return ChooseSet(Random(0, kBuiltInSets));
    if (roll < 75) return NextMode();
    if (roll < 82) return Turn();
    if (roll < 87) return Undo();
    if (roll < 90) return PickFile();
    if (roll < 92) return Resize();
    if (roll < 94) return InsertText();
    UseFiles();
  }

  void Paint() {
    const Size inside = model_.Inside();
    const int kind = Random(0, 2);
    const int X = Coordinate(inside.width, kind != 1);
    const int Y = Coordinate(inside.height, kind != 1);
    if (inside.width == 0 || inside.height == 0) return;
    const int buttons = kind == 0   ? 1 << Random(0, 2)
                        : kind == 1 ? Random(1, Random(0, 1) == 0 ? 2 : 7)
                                    : 0;
    kind == 0 ? driver_.Press(buttons, X, Y) : driver_.Move(buttons, X, Y);
    kind == 2 ? model_.Hover(X, Y) : model_.Paint(kind == 0, buttons, X, Y);
  }

  void Pick() {
    const Item& item = Items()[static_cast<std::size_t>(Random(0, kItemCount - 1))];
    if (item.set != model_.set) ChooseSet(item.set);
    if (TileSets()[item.set].pageCount > 1) driver_.ChooseTab(item.set, item.page);
    model_.pages[item.set] = item.page;
    driver_.PickItem(item);
    model_.Pick(item);
  }

  void ChooseSet(int set) {
    driver_.ChooseSet(set);
    model_.ChooseSet(set);
  }

  void NextMode() {
    driver_.NextMode();
    model_.NextMode();
  }

  void Turn() {
    using enum Transform;
    const std::array turns = {FlipHorizontal, FlipVertical, RotateRight, RotateLeft};
    const Transform transform = turns[Random(0, 3)];
    driver_.Turn(transform);
    model_.Turn(transform);
  }

  void Undo() {
    if (!model_.canUndo) return;
    driver_.Undo();
    model_.Undo();
  }

  void PickFile() {
    static const std::array<std::string, 5> kNames = {
        "a tile.bmp", "é漢.bmp", "two\nlines.bmp", "<i>[*]%1&.bmp", std::string(251, 'n') + ".bmp"};
    const std::string& name = kNames[Random(0, 4)];
    const Picture picture = RandomPicture(1 << Random(1, 8), 1 << Random(1, 8));
    const bool isBroken = Random(0, 4) == 0;
    WriteFile(name, isBroken ? Bytes{'n', 'o'} : WriteBmp(picture.View()));
    driver_.PickFile(name);
    model_.ChooseSet(kCustomSet);
    if (isBroken) {
      const std::string& status = form_.document.StatusText;
      EXPECT_TRUE(status.starts_with(name + " can't be used as a tile: This is not a picture"));
      model_.status = status;
      return;
    }
    model_.PickFile(name, picture);
  }

  void Resize() {
    if (Random(0, 3) == 0) {
      statusBar_ = !statusBar_;
      driver_.ToggleStatusBar();
    } else {
      const int most = Random(0, 3) == 0 ? 1700 : 850;
      client_ = driver_.Resize(Random(0, most), Random(0, most));
    }
    model_.Resize(client_, statusBar_);
  }

  void InsertText() {
    const auto [width, height] = model_.Inside();
    const int X = Random(0, std::max(0, width - 1));
    const int Y = Random(0, std::max(0, height - 1));
    driver_.ArmText();
    driver_.Move(kLeftButton, X, Y);  // nothing is painted before the press
    if (width == 0 || height == 0 || Random(0, 3) == 0) return driver_.CancelText();
    const std::string text = "<b>Crypt</b> of the " + std::to_string(X) + " kings";
    const bool isAccepted = Random(0, 3) > 0;
    if (isAccepted) driver_.platform.typedTexts = {text};
    driver_.Press(1 << Random(0, 2), X, Y);
    Picture block(509, 349);
    driver_.platform.DrawText(text, block);
    model_.Text(text, isAccepted ? &block : nullptr, X, Y);
  }

  /// Commands that use files, answered at random.
  void UseFiles() {
    ScriptedPlatform& platform = driver_.platform;
    const std::string name = Paths()[Random(0, 3)];
    const std::string path = Random(0, 4) == 0 ? "" : name;
    const Answer answer =
        std::array{Answer::Yes, Answer::Yes, Answer::No, Answer::Cancel}[Random(0, 3)];
    platform.chosenFiles = {path};
    platform.answers = {answer};
    const int roll = Random(0, 9);
    if (roll < 2) {
      NewMap(answer);
    } else if (roll < 5) {
      if (Random(0, 2) == 0 && name[1] != 'g') ChangeFile(name);
      driver_.Open();
      model_.Open(path);
    } else if (roll < 7) {
      driver_.Save();
      model_.Save(path, answer);
    } else if (roll < 8) {
      driver_.SaveAs();
      model_.SaveAs(path, answer);
    } else if (roll < 9) {
      Print();
    } else {
      platform.answers = {Answer::Cancel};
      model_.AskToSave();
      EXPECT_TRUE(driver_.IsExitCanceled());
    }
    platform.chosenFiles.clear();
    platform.answers.clear();
    ExpectSameFiles();
  }

  void NewMap(Answer answer) {
    const Color color = RandomColor();
    const Color gridColor = RandomColor();
    const bool grid = Random(0, 3) > 0;
    model_.mapFolder = Random(0, 1) == 0 ? "" : "/maps";
    std::ofstream("Morvane.ini") << "[Color]\nCanvas=" << color << "\nGrid=" << gridColor
                                 << "\n[Map]\nGrid=" << grid << "\nDir=" << model_.mapFolder;
    driver_.NewMap();
    model_.NewMap(answer, color, grid, gridColor);
  }

  /// Another program writes a file, perhaps an incomplete one.
  void ChangeFile(const std::string& path) {
    Bytes& file = model_.files[path];
    file = WriteBmp(RandomPicture(900, 700).View());
    if (Random(0, 2) == 0) file.resize(file.size() / 2);
    WriteFile(path, file);
  }

  void Print() {
    ScriptedPlatform& platform = driver_.platform;
    platform.printFailure = Random(0, 1) == 0 ? "" : "There is no printer.";
    driver_.Print();
    EXPECT_EQ(platform.printed.back(), model_.map);
    if (platform.printFailure.empty()) return;
    model_.boxes.push_back({"The map could not be printed.\n\nThere is no printer.",
                            BoxStyle::OkExclamation, "Morvane"});
  }

  /// The user exits, with or without a save.
  void End() {
    const bool isSaved = Random(0, 1) == 0;
    driver_.platform.answers = {isSaved ? Answer::Yes : Answer::No, Answer::Yes};
    driver_.platform.chosenFiles = {Paths()[0]};
    model_.AskToSave();
    if (isSaved) model_.Save(Paths()[0], Answer::Yes);
    EXPECT_FALSE(driver_.IsExitCanceled());
    ExpectSameDialogs();
    ExpectSameFiles();
  }

  std::array<std::string, 4> Paths() const {
    const auto& folder = driver_.folder;
    return {folder.File("a"), folder.File("b.bmp"), folder.File("[*] é.bmp"), "/gone/a.bmp"};
  }

  static PictureView ShownPart(const PictureBox& box) {
    PictureView view = box.Image();
    view.width = box.ScaleWidth();
    view.height = box.ScaleHeight();
    return view;
  }

  template <typename... Values>
  static std::string Listed(const Size& size, const Outline& outline, const Values&... values) {
    std::ostringstream list;
    list << size.width << 'x' << size.height << " outline " << outline.Left << ',' << outline.Top
         << ' ' << outline.Width << 'x' << outline.Height << ' ' << outline.Visible;
    ((list << " | " << values), ...);
    return list.str();
  }

  void ExpectSame() {
    const Document& document = form_.document;
    const Palette& palette = form_.palette;
    ASSERT_EQ(Difference(document.Canvas.Image(), model_.map.View()), "");
    ASSERT_EQ(Difference(document.pbclear.Image(), model_.blank.View()), "");
    ASSERT_EQ(Difference(ShownPart(palette.Picture1), model_.stamp.View()), "");
    if (model_.set == kCustomSet) {
      ASSERT_EQ(Difference(ShownPart(palette.Custom), model_.custom.View()), "");
    }
    ASSERT_EQ(Listed({document.Canvas.Width(), document.Canvas.Height()}, palette.Shape1,
                     static_cast<int>(palette.CurrentMode()), palette.TileSetSelector.ListIndex,
                     palette.Label2, palette.Label5, document.StatusText,
                     document.mnuEditUndoEnabled, document.UndoButtonEnabled, document.Caption),
              Listed(model_.box, model_.outline, static_cast<int>(model_.mode), model_.set,
                     model_.tile, model_.dimensions, model_.status, model_.canUndo,
                     model_.undoButton, model_.caption));
    for (int set = 0; set < kBuiltInSets; ++set) {
      ASSERT_EQ(CurrentPage(palette, set), model_.pages[set]);
    }
    ASSERT_EQ(driver_.WindowMismatch(), "");
    ExpectSameDialogs();
  }

  void ExpectSameDialogs() {
    ASSERT_EQ(std::exchange(driver_.platform.boxes, {}), std::exchange(model_.boxes, {}));
    ASSERT_EQ(std::exchange(driver_.platform.dialogs, {}), std::exchange(model_.dialogs, {}));
  }
  void ExpectSameFiles() const {
    for (const auto& [path, content] : model_.files) EXPECT_TRUE(ReadFile(path) == content) << path;
  }

  std::mt19937 random_;
  Driver& driver_;
  MainForm& form_ = driver_.form;
  ReferenceModel model_{form_.palette.pictures};
  Size client_{787, 537};
  bool statusBar_ = true;
};

}  // namespace morvane

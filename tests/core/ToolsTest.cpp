#include <gtest/gtest.h>

#include "document/Undo.h"
#include "document/bmp/Bmp.h"
#include "document/picture/Transform.h"
#include "palette/PalettePages.h"
#include "palette/StampTurn.h"
#include "palette/TileSelection.h"
#include "tests/support/Sample.h"
#include "tools/Buttons.h"
#include "tools/CanvasKeyboard.h"
#include "tools/CanvasMouse.h"
#include "tools/TextInsertion.h"
#include "tools/ToolModes.h"

namespace morvane {
namespace {

struct Tools : testing::Test, Editor {
  void Press(int button, float X, float Y) { Canvas_MouseDown(palette, button, X, Y); }
  void Move(int button, float X, float Y) { Canvas_MouseMove(palette, button, X, Y); }
  void EnterMode(Mode mode) {
    while (palette.CurrentMode() != mode) WallButton_Click(palette);
  }
};

TEST_F(Tools, TheModeCycleWithItsTexts) {
  const std::string secret =
      "Door Mode selected - left mouse button for normal doors, right mouse button for secret "
      "doors";
  for (const int set : {kClassicVillage, kAbandonedCathedral, kCustomSet}) {
    TileSetSelector_Click(palette, set);
    palette.Shape1.Visible = true;
    WallButton_Click(palette);
    EXPECT_EQ(palette.CurrentMode(), Mode::Wall);
    EXPECT_EQ(document.StatusText, "Wall Mode selected");
    EXPECT_FALSE(palette.Shape1.Visible);
    WallButton_Click(palette);
    EXPECT_EQ(palette.CurrentMode(), Mode::Door);
    EXPECT_EQ(document.StatusText, set == kClassicVillage ? "Door Mode selected" : secret);
    const std::string text = document.StatusText;
    TileSetSelector_Click(palette, kClassicVillage);
    EXPECT_EQ(document.StatusText, text);
    EXPECT_FALSE(palette.Shape1.Visible);
    WallButton_Click(palette);
    EXPECT_EQ(palette.CurrentMode(), Mode::Tile);
    EXPECT_EQ(document.StatusText, "Tile Mode selected");
    EXPECT_TRUE(palette.Shape1.Visible);
  }
}

TEST_F(Tools, WallsAndDoorsOfTheWorkedExamples) {
  EnterMode(Mode::Wall);
  Press(kLeftButton, 41, 50);
  Press(kLeftButton, 50, 60);
  Press(kLeftButton, 1, 110);
  const auto art = [this](Edge edge, Direction direction) {
    return palette.pictures.Of(kAbandonedCathedral, edge, direction)->View();
  };
  PictureView map = document.Canvas.Image();
  const PictureView wall = art(Edge::Wall, Direction::Vertical);
  EXPECT_TRUE(Holds(map, 39, 58, {22, 4}, art(Edge::Wall, Direction::Horizontal)));
  EXPECT_TRUE(Holds(map, 38, 39, {4, 19}, wall));
  EXPECT_EQ(Cut(map, {0, 99, 2, 121}), Cut(wall, {2, 0, 4, 22}));
  EnterMode(Mode::Door);
  Press(kMiddleButton, 41, 250);
  Press(kRightButton, 150, 260);
  Press(kLeftButton, 10, 1);
  map = document.Canvas.Image();
  EXPECT_TRUE(Holds(map, 37, 242, {6, 16}, art(Edge::SecretDoor, Direction::Vertical)));
  EXPECT_TRUE(Holds(map, 142, 257, {16, 6}, art(Edge::SecretDoor, Direction::Horizontal)));
  EXPECT_EQ(Cut(map, {2, 0, 18, 3}), Cut(art(Edge::Door, Direction::Horizontal), {0, 3, 16, 6}));
}

TEST_F(Tools, AStrokeIsOneStepOfUndoAndErasesWithItsOwnLimit) {
  const Picture blank = Map();
  Press(kLeftButton, 5, 33);
  for (float X = 5; X < 300; X += 7) Move(kLeftButton, X, 33);
  const Picture stroke = Map();
  EXPECT_EQ(platform.snapshots, 2);
  Move(kRightButton, 39, 33);  // a press there would erase the first cell
  Move(kLeftButton | kRightButton, 45, 100);
  EXPECT_EQ(Difference(Map(), stroke), "");
  mnuEditUndo_Click(document);
  EXPECT_EQ(Difference(Map(), blank), "");
  Move(kMiddleButton, 300, 300);
  EXPECT_TRUE(document.mnuEditUndoEnabled);
}

TEST_F(Tools, TheOutlineFollowsCellByCellOnEachAxis) {
  const auto at = [this] { return std::pair(palette.Shape1.Left, palette.Shape1.Top); };
  Move(0, 19, 19);
  EXPECT_TRUE(palette.Shape1.Visible);
  EXPECT_EQ(at(), std::pair(0, 0));
  Move(0, 45, 33);
  EXPECT_EQ(at(), std::pair(40, 20));
  Move(0, 39, 33);
  EXPECT_EQ(at(), std::pair(40, 20));
  Move(0, 39, 47);
  EXPECT_EQ(at(), std::pair(40, 40));
  EXPECT_FALSE(document.mnuEditUndoEnabled);
  Press(kLeftButton, 100, 100);
  Move(kLeftButton, 130, 100);
  EXPECT_FALSE(palette.Shape1.Visible);
  EnterMode(Mode::Wall);
  Move(0, 200, 200);
  EXPECT_FALSE(palette.Shape1.Visible);
  EXPECT_EQ(at(), std::pair(40, 40));
}

TEST_F(Tools, TextIsPlacedByAnyButtonInAnyMode) {
  Picture word(12, 6, kWhite);
  FillBox(word.Draw(), {2, 2, 10, 4}, 0xFEFEFE);
  platform.drawnTexts["word"] = word;
  FillBox(document.Canvas.hDC(), {0, 0, 615, 483}, 0x102030);
  Picture expected = Map();
  const std::map<Mode, int> rows = {
      {Mode::Tile, kRightButton}, {Mode::Wall, kMiddleButton}, {Mode::Door, kLeftButton}};
  for (const auto& [mode, button] : rows) {
    EnterMode(mode);
    mnuToolsInsertText_Click(document);
    EXPECT_TRUE(document.Canvas.TakeFocus());
    palette.Shape1.Visible = true;
    Move(0, 50, 50);
    Move(kLeftButton, 41, 50);
    EXPECT_TRUE(palette.Shape1.Visible);
    platform.typedTexts = {"word"};
    const Bytes before = WriteBmp(document.Canvas.Image());
    const int x = 41 + 50 * button;
    Press(button, static_cast<float>(x), 50);
    FillBox(expected.Draw(), {x, 44, x + 8, 46}, 0xFEFEFE);
    EXPECT_EQ(Difference(Map(), expected), "");
    EXPECT_EQ(platform.snapshot, before);
    EXPECT_EQ(palette.CurrentMode(), mode);
    EXPECT_EQ(document.Canvas.MousePointer, Pointer::Cross);
    EXPECT_FALSE(palette.Shape1.Visible);
  }
  EXPECT_EQ(document.TextToInsert, "word");
}

TEST_F(Tools, ACancelledTextLeavesTheMapAndTheOlderText) {
  document.TextToInsert = "older";
  mnuToolsInsertText_Click(document);
  const int snapshots = platform.snapshots;
  Press(kLeftButton, 0, 0);
  EXPECT_EQ(platform.snapshots, snapshots);
  EXPECT_FALSE(document.TextAccepted);
  EXPECT_EQ(document.TextToInsert, "older");
  EXPECT_TRUE(document.mnuEditUndoEnabled);
  EXPECT_EQ(Difference(Map(), Picture(615, 483, kWhite)), "");
  mnuToolsInsertText_Click(document);
  platform.drawnTexts["edge"] = Speckled(509, 349);
  platform.typedTexts = {"edge"};
  Press(kLeftButton, 0, 0);
  EXPECT_TRUE(Cut(document.Canvas.Image(), {0, 0, 507, 341}) ==
              Cut(platform.drawnTexts["edge"].View(), {2, 8, 509, 349}));
}

TEST_F(Tools, TurnsGiveEveryPixelBack) {
  using enum Transform;
  for (const Size size : {Size{1, 1}, {1, 7}, {20, 1}, {39, 19}, {45, 33}}) {
    const Picture picture = Speckled(size.width, size.height);
    const auto after = [&picture](std::initializer_list<Transform> transforms) {
      Picture result = picture;
      for (const Transform transform : transforms) result = Transformed(result.View(), transform);
      return result;
    };
    EXPECT_EQ(after({FlipHorizontal, FlipHorizontal}), picture);
    EXPECT_EQ(after({FlipVertical, FlipVertical}), picture);
    EXPECT_EQ(after({RotateRight, RotateRight, RotateRight, RotateRight}), picture);
    EXPECT_EQ(after({RotateRight, RotateLeft}), picture);
    EXPECT_EQ(after({RotateRight, RotateRight}), after({FlipHorizontal, FlipVertical}));
    EXPECT_EQ(GetPixel(after({RotateRight}).View(), size.height - 1, 0),
              GetPixel(picture.View(), 0, 0));
  }
}

TEST_F(Tools, ATurnReturnsToTileModeAndNamesTheTile) {
  Item_Click(palette, *FindItem("ptaltar"));
  palette.Label5 = "39x19";
  EnterMode(Mode::Door);
  document.Canvas.TakeFocus();
  Rotate_Click(palette);
  EXPECT_EQ(palette.CurrentMode(), Mode::Tile);
  EXPECT_EQ(document.StatusText, "Altar tile rotated");
  EXPECT_EQ(palette.Label5, "39x19");
  EXPECT_FALSE(document.Canvas.TakeFocus());
  EXPECT_EQ(palette.Picture1.Width(), 19);
  EXPECT_EQ(palette.Picture1Picture.Width(), 19);
  FlipVertical_Click(palette);
  EXPECT_EQ(document.StatusText, "Altar tile flipped");
  TileSetSelector_Click(palette, kCustomSet);  // the cut picture is what goes there now
  RotateLeft_Click(palette);
  EXPECT_EQ(palette.Custom.ScaleWidth(), 39);
  EXPECT_EQ(palette.Shape1.Width, 39);
}

TEST_F(Tools, KeysActAsTheirButtons) {
  Item_Click(palette, *FindItem("pbbed"));
  const Picture bed = palette.Picture1Picture;
  const std::map<int, Transform> turns = {{kKeyRight, Transform::RotateRight},
                                          {kKeyLeft, Transform::RotateLeft},
                                          {kKeyDown, Transform::FlipHorizontal},
                                          {kKeyUp, Transform::FlipVertical}};
  for (const auto& [key, transform] : turns) {
    Item_Click(palette, *FindItem("pbbed"));
    EXPECT_TRUE(Canvas_KeyDown(palette, key, kCtrl));
    EXPECT_EQ(palette.Picture1Picture, Transformed(bed.View(), transform));
  }
  document.Canvas.MousePointer = Pointer::IBeam;
  EXPECT_TRUE(Canvas_KeyDown(palette, kKeyEscape, 0));
  EXPECT_EQ(document.Canvas.MousePointer, Pointer::Cross);
  EXPECT_FALSE(Canvas_KeyDown(palette, kKeyM, kShift | kAlt));
  EXPECT_EQ(palette.CurrentMode(), Mode::Tile);
  EXPECT_TRUE(Canvas_KeyDown(palette, kKeyM, kCtrl | kShift));
  EXPECT_EQ(palette.CurrentMode(), Mode::Wall);
  EXPECT_TRUE(Canvas_KeyDown(palette, kKeyF11, 0));
  EXPECT_EQ(platform.dialogs.size(), 1U);
  EXPECT_FALSE(Canvas_KeyDown(palette, 65, 0));
}

}  // namespace
}  // namespace morvane

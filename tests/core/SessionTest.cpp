#include <gtest/gtest.h>

#include "document/MapFiles.h"
#include "document/NewMap.h"
#include "document/Undo.h"
#include "palette/FlipAndRotate.h"
#include "palette/PalettePages.h"
#include "palette/TileSelection.h"
#include "tests/support/RandomSession.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"
#include "tools/TextInsertion.h"
#include "tools/ToolModes.h"

namespace morvane {
namespace {

/// Fences with the colour key in every other column, but not in the very corner.
Picture SheetWithFence(const std::string& name) {
  Picture sheet = SpeckledSheet(name);
  if (name != "classic-village/edges") return sheet;
  for (int x = 0; x < 60; x += 2) FillBox(sheet.Draw(), {x, 0, x + 1, 30}, 0xFF00FF);
  for (const int x : {0, 30}) SetPixelV(sheet.Draw(), x, 0, 0x00FFFF);
  return sheet;
}

class CoreDriver : public Driver {
 public:
  CoreDriver() {
    form.Form_Initialize();
    form.Form_Resize(787, 537);
    Picture text = Speckled(40, 12);
    FillBox(text.Draw(), {5, 5, 30, 8}, kWhite);
    platform.drawnTexts["text"] = text;
    Dir1_Change(palette, "/custom");
  }
  void ChooseSet(int set) override { TileSetSelector_Click(palette, set); }
  void ChooseTab(int set, int tab) override { TabStrip_Click(palette, set, tab); }
  void PickItem(const Item& item) override { Item_Click(palette, item); }
  void NextMode() override { WallButton_Click(palette); }
  void Turn(Transform transform) override {
    if (transform == Transform::FlipHorizontal) FlipHorizontal_Click(palette);
    if (transform == Transform::FlipVertical) FlipVertical_Click(palette);
    if (transform == Transform::RotateRight) Rotate_Click(palette);
    if (transform == Transform::RotateLeft) RotateLeft_Click(palette);
  }
  void Undo() override { mnuEditUndo_Click(document); }
  void Press(int button, int X, int Y) override {
    Canvas_MouseDown(palette, button, static_cast<float>(X), static_cast<float>(Y));
  }
  void Move(int buttons, int X, int Y) override {
    Canvas_MouseMove(palette, buttons, static_cast<float>(X), static_cast<float>(Y));
  }
  Size Resize(int width, int height) override {
    size_ = {width, height};
    form.Form_Resize(width, height);
    return size_;
  }
  void ToggleStatusBar() override {
    form.mnuViewStatusBar_Click();
    form.Form_Resize(size_.width, size_.height);
  }
  void NewMap(Color color, bool grid, Color gridColor) override {
    platform.settings = {{"Color/Canvas", std::to_string(color)},
                         {"Color/Grid", std::to_string(gridColor)},
                         {"Map/Grid", grid ? "1" : "0"}};
    platform.answers = {Answer::Yes};
    mnuFileNew_Click(document);
  }
  void OpenMap(const Bytes& file) override {
    platform.files["/maps/map.bmp"] = file;
    platform.chosenFiles = {"/maps/map.bmp"};
    mnuFileOpen_Click(document);
  }
  Bytes SaveMap() override {
    platform.files.erase("/maps/map.bmp");
    platform.chosenFiles = {"/maps/map.bmp"};
    mnuFileSaveAs_Click(document);
    return platform.files["/maps/map.bmp"];
  }
  void PickFile(const std::string& name, const Bytes& file) override {
    platform.files["/custom/" + name] = file;
    ChooseSet(kCustomSet);
    File1_Click(palette, name);
  }
  Picture InsertText(int X, int Y) override {
    platform.typedTexts = {"text"};
    mnuToolsInsertText_Click(document);
    Press(kLeftButton, X, Y);
    Picture block(509, 349, kWhite);
    platform.DrawText("text", block);
    return block;
  }

  FakePlatform platform;
  MainForm form{platform, &SheetWithFence};

 private:
  Document& document = form.document;
  Palette& palette = form.palette;
  Size size_{787, 537};
};

class Session : public testing::TestWithParam<unsigned> {};

TEST_P(Session, AgreesWithTheReferenceModelAfterEveryStep) {
  CoreDriver driver;
  RandomSession(GetParam(), driver.form, driver).Run(800);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Session, testing::Range(1U, 7U));

}  // namespace
}  // namespace morvane

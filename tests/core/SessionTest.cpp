#include <gtest/gtest.h>

#include "document/MapFiles.h"
#include "document/NewMap.h"
#include "document/Undo.h"
#include "palette/FlipAndRotate.h"
#include "palette/TileSelection.h"
#include "tests/support/RandomSession.h"
#include "tools/Buttons.h"
#include "tools/CanvasMouse.h"
#include "tools/TextInsertion.h"
#include "tools/ToolModes.h"

namespace morvane {
namespace {

class CoreDriver : public Editor {
 public:
  CoreDriver() {
    Picture text = Speckled(40, 12);
    FillBox(text.Draw(), {5, 5, 30, 8}, kWhite);
    platform.drawnTexts["text"] = text;
    Dir1_Change(palette, "/custom");
  }
  void ChooseSet(int set) { TileSetSelector_Click(palette, set); }
  void ChooseTab(int set, int tab) { TabStrip_Click(palette, set, tab); }
  void PickItem(const Item& item) { Item_Click(palette, item); }
  void NextMode() { WallButton_Click(palette); }
  void Turn(Transform transform) {
    const std::array turns = {&FlipHorizontal_Click, &FlipVertical_Click, &Rotate_Click,
                              &RotateLeft_Click};
    turns.at(static_cast<std::size_t>(transform))(palette);
  }
  void Undo() { mnuEditUndo_Click(document); }
  void Press(int button, int X, int Y) {
    Canvas_MouseDown(palette, button, static_cast<float>(X), static_cast<float>(Y));
  }
  void Move(int buttons, int X, int Y) {
    Canvas_MouseMove(palette, buttons, static_cast<float>(X), static_cast<float>(Y));
  }
  Size Resize(int width, int height) {
    form.Form_Resize(width, height);
    return {width, height};
  }
  void ToggleStatusBar() { form.mnuViewStatusBar_Click(); }
  void NewMap(Color color, bool grid, Color gridColor) {
    platform.settings = {{"Color/Canvas", std::to_string(color)},
                         {"Color/Grid", std::to_string(gridColor)},
                         {"Map/Grid", grid ? "1" : "0"}};
    platform.answers = {Answer::Yes};
    mnuFileNew_Click(document);
  }
  void OpenMap(const Bytes& file) {
    platform.files["/maps/map.bmp"] = file;
    platform.chosenFiles = {"/maps/map.bmp"};
    mnuFileOpen_Click(document);
  }
  Bytes SaveMap() {
    platform.files.erase("/maps/map.bmp");
    platform.chosenFiles = {"/maps/map.bmp"};
    mnuFileSaveAs_Click(document);
    return platform.files["/maps/map.bmp"];
  }
  void PickFile(const std::string& name, const Bytes& file) {
    platform.files["/custom/" + name] = file;
    ChooseSet(kCustomSet);
    File1_Click(palette, name);
  }
  /// Returns the picture of the text.
  Picture InsertText(int X, int Y) {
    platform.typedTexts = {"text"};
    mnuToolsInsertText_Click(document);
    Press(kLeftButton, X, Y);
    Picture block(509, 349);
    platform.DrawText("text", block);
    return block;
  }
  static std::string WindowMismatch() { return {}; }
};

class Session : public testing::TestWithParam<unsigned> {};

TEST_P(Session, AgreesWithTheReferenceModelAfterEveryStep) {
  CoreDriver driver;
  RandomSession(GetParam(), driver).Run(800);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Session, testing::Range(1U, 7U));

}  // namespace
}  // namespace morvane

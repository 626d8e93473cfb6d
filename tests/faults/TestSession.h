#pragma once

#include <map>

#include "document/PictureFile.h"
#include "palette/CustomTiles.h"
#include "palette/PalettePages.h"
#include "platform/TextDrawing.h"
#include "shell/ArtSheets.h"
#include "shell/CanvasView.h"
#include "shell/ClientArea.h"
#include "shell/CustomFrame.h"
#include "shell/HoverReset.h"
#include "shell/LeftColumn.h"
#include "shell/MainMenu.h"
#include "shell/PaletteView.h"
#include "shell/ToolBar.h"
#include "shell/frmMain.h"
#include "shell/frmText.h"
#include "shell/widgets/TabStrip.h"
#include "tests/faults/MonkeyPlatform.h"
#include "tests/support/ReferenceModel.h"
#include "tools/CanvasKeyboard.h"
#include "tools/TextInsertion.h"

namespace morvane {

/// The real window from its opening to its closing, and beside it the plain model, which hears of
/// every event that the window's parts report.
class TestSession : public QObject {
 public:
  /// Counts what it hears.
  using Counts = std::map<std::string, int>;

  TestSession(Dice& dice, const Workshop& workshop, Counts& heard)
      : platform(dice, workshop), form(platform, &LoadArtSheet), window(form), heard_(heard) {
    platform.SetWindow(&window, [this] { window.ShowState(); });
    platform.SetTextForm([this](std::string& text) {
      frmText dialog(text, &window);
      if (dialog.exec() != QDialog::Accepted) return false;
      text = dialog.TextRTF();
      return true;
    });
    HearWindow();
    HearPalette();
    HearCanvas();
    window.show();
    QCoreApplication::processEvents();
  }

  template <typename Control = QWidget>
  Control* Find(const QString& name) {
    return window.findChild<Control*>(name);
  }

  MonkeyPlatform platform;
  MainForm form;
  frmMain window;
  ReferenceModel model{form.palette.pictures};

 protected:
  bool isArmed_ = false;
  bool menuUndo_ = false;
  bool buttonUndo_ = true;
  bool statusBar_ = true;
  bool outlineShows_ = false;
  QPoint outline_;
  std::array<int, kBuiltInSets> pages_ = {1, 1, 1, 1};
  std::string tile_ = "Floor";
  std::string dimensions_;
  std::string file_;
  std::string wrongFile_;

 private:
  template <typename Sender, typename Signal, typename Heard>
  void Hear(Signal signal, Heard heard) {
    connect(window.findChild<Sender*>(), signal, this, heard);
  }

  void HearWindow() {
    Hear<ClientArea>(&ClientArea::Resized, [this] { Resize(); });
    Hear<MainMenu>(&MainMenu::Chosen, [this](const QString& name) { Command(name); });
    Hear<ToolBar>(&ToolBar::Chosen, [this](const QString& name) { Command(name); });
    Hear<HoverReset>(&HoverReset::Moved, [this] { outlineShows_ = false; });
  }

  void HearPalette() {
    Hear<LeftColumn>(&LeftColumn::TileSetChosen, [this](int set) { model.ChooseSet(set); });
    Hear<LeftColumn>(&LeftColumn::ButtonClicked, [this](const QString& name) {
      if (name == "WallButton") NextMode();
      if (name == "FlipHorizontal") Turn(Qt::Key_Down);
      if (name == "FlipVertical") Turn(Qt::Key_Up);
      if (name == "Rotate") Turn(Qt::Key_Right);
      if (name == "RotateLeft") Turn(Qt::Key_Left);
    });
    Hear<PaletteView>(&PaletteView::ItemClicked, [this](const Item& item) {
      ++heard_["pick"];
      model.Pick(item);
      tile_ = item.caption;
      dimensions_.clear();
    });
    Hear<PaletteView>(&PaletteView::TabClicked, [this](int set, int tab) { pages_[set] = tab; });
    Hear<CustomFrame>(&CustomFrame::FileClicked, [this](const std::string& name) {
      const std::string path = WithTrailingBackslash(form.palette.File1.Path()) + name;
      Result<LoadedPicture> picture = LoadPicture(platform, path);
      ++heard_[picture.Ok() ? "custom tile" : "broken tile"];
      if (!picture.Ok()) return;
      const Picture& tile = picture.Value().picture;
      const Size full = {tile.Width(), tile.Height()};
      const Size size = PreviewSize(full);
      Picture preview(size.width, size.height);
      StretchBlt(preview.Draw(), 0, 0, size.width, size.height, tile.View(), 0, 0, full.width,
                 full.height);
      model.PickFile(tile, preview);
      tile_ = name;
      dimensions_ = std::to_string(full.width) + "x" + std::to_string(full.height);
    });
  }

  void HearCanvas() {
    Hear<CanvasView>(&CanvasView::Pressed, [this](int Button, float X, float Y) {
      outlineShows_ = false;
      ++heard_[isArmed_ ? "text" : "press"];
      if (!isArmed_) {
        model.Paint(true, Button, static_cast<int>(X), static_cast<int>(Y));
      } else if (platform.brought.text) {
        Picture block(509, 349);
        DrawRichText(*platform.brought.text, block);
        model.Text(block, static_cast<int>(X), static_cast<int>(Y));
      }
      isArmed_ = false;
      menuUndo_ = buttonUndo_ = true;
      platform.brought = {};
    });
    Hear<CanvasView>(&CanvasView::Moved, [this](int Button, float X, float Y) {
      if (isArmed_) return;
      ++heard_[Button != 0 ? "stroke" : "hover"];
      if (Button != 0) {
        model.Paint(false, Button, static_cast<int>(X), static_cast<int>(Y));
        menuUndo_ = buttonUndo_ = true;
      } else if (!model.wall && !model.door) {
        outlineShows_ = true;
        Hover(static_cast<int>(X), model.box.width, outline_.rx());
        Hover(static_cast<int>(Y), model.box.height, outline_.ry());
      }
    });
    Hear<CanvasView>(&CanvasView::KeyPressed, [this](int Key, int Modifiers, bool& /*handled*/) {
      if (Key == kKeyEscape) isArmed_ = false;
      if (Key == kKeyLeft) Turn(Qt::Key_Left);
      if (Key == kKeyUp) Turn(Qt::Key_Up);
      if (Key == kKeyRight) Turn(Qt::Key_Right);
      if (Key == kKeyDown) Turn(Qt::Key_Down);
      if (Key == kKeyF11) Command("mnuFileOpen");
      if (Key == kKeyM && (Modifiers & kCtrl) != 0) NextMode();
    });
  }

  static void Hover(int v, int extent, int& corner) {
    for (int i = 0; i <= extent / 20; ++i) {
      if (v > 20 * i - 1 && v < 20 * (i + 1) - 1) corner = 20 * i;
    }
  }

  void NextMode() {
    ++heard_["mode"];
    const bool wasDoor = model.door;
    model.NextMode();
    outlineShows_ = wasDoor;
  }

  void Turn(Qt::Key key) {
    ++heard_["turn"];
    using Place = std::pair<int, int>;
    if (key == Qt::Key_Down) {
      model.Turn(false, [](int x, int y, int W, int) { return Place(W - 1 - x, y); });
    } else if (key == Qt::Key_Up) {
      model.Turn(false, [](int x, int y, int, int H) { return Place(x, H - 1 - y); });
    } else if (key == Qt::Key_Right) {
      model.Turn(true, [](int x, int y, int, int H) { return Place(H - 1 - y, x); });
    } else {
      model.Turn(true, [](int x, int y, int W, int) { return Place(y, W - 1 - x); });
    }
  }

  void Resize() {
    ++heard_["resize"];
    const QWidget* client = window.centralWidget();
    model.Resize(client->width(), client->height(), statusBar_);
  }

  void Command(const QString& name) {
    ++heard_[name.toStdString()];
    if (name == "mnuFileNew") NewMap();
    if (name == "mnuFileOpen") Open();
    if (name == "mnuFileSave" && file_.empty()) SaveAs();
    if (name == "mnuFileSaveAs") SaveAs();
    if (name == "mnuToolsInsertText") isArmed_ = true;
    if (name == "mnuEditUndo") {
      model.Undo();
      menuUndo_ = buttonUndo_ = false;
    }
    if (name == "mnuViewStatusBar") {
      statusBar_ = !statusBar_;
      Resize();
    }
    platform.brought = {};
  }

  void NewMap() {
    if (platform.brought.boxes.at(0).second != Answer::Yes) return;
    ++heard_["new map"];
    const Settings& settings = form.document.settings;
    model.NewMap(ColorValue(settings.GetINIFileString("Color", "Canvas", "")),
                 settings.GetINIFileString("Map", "Grid", "") == "1",
                 ColorValue(settings.GetINIFileString("Color", "Grid", "")));
    file_.clear();
  }

  void Open() {
    if (platform.brought.file.empty()) return;
    Result<LoadedPicture> picture = LoadPicture(platform, platform.brought.file);
    ++heard_[picture.Ok() ? "opened" : "not opened"];
    if (!picture.Ok()) return;
    model.Load(picture.Value().picture);
    file_ = platform.brought.file;
  }

  void SaveAs() {
    if (platform.brought.file.empty()) return;
    for (const auto& [box, answer] : platform.brought.boxes) {
      if (box.title == "Warning" && answer != Answer::Yes) return;
      if (box.text.starts_with("The map could not be saved.")) return;
    }
    ++heard_["saved"];
    file_ = platform.brought.file;
    Result<LoadedPicture> saved = LoadPicture(platform, file_);
    if (!saved.Ok() || saved.Value().picture != model.map) wrongFile_ = file_;
  }

  Counts& heard_;
};

}  // namespace morvane

#pragma once

#include <QAction>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QTabBar>
#include <cstring>
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
#include "shell/TabStrip.h"
#include "shell/Text.h"
#include "shell/ToolBar.h"
#include "shell/frmMain.h"
#include "shell/frmText.h"
#include "tests/faults/MonkeyPlatform.h"
#include "tests/support/PlainModel.h"
#include "tools/CanvasKeyboard.h"
#include "tools/TextInsertion.h"

namespace morvane {

/// The real window from its opening to its closing, and beside it the plain model, which hears of
/// every event that the window's parts report.
class MonkeySession : public QObject {
 public:
  /// Counts what it hears.
  using Counts = std::map<std::string, int>;

  MonkeySession(Dice& dice, const Workshop& workshop, Counts& heard)
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

  /// What is wrong between the window, the core and the model; empty where nothing is.
  std::string Fault(bool withPictures) {
    std::string fault = FaultInState();
    if (fault.empty()) fault = FaultOnForm();
    if (fault.empty() && withPictures) fault = FaultInPictures();
    return fault;
  }

  template <typename Control = QWidget>
  Control* Find(const QString& name) {
    return window.findChild<Control*>(name);
  }

  MonkeyPlatform platform;
  MainForm form;
  frmMain window;
  PlainModel model{form.palette.pictures};

 private:
  template <typename Sender, typename Signal, typename Heard>
  void Hear(Signal signal, Heard heard) {
    connect(window.findChild<Sender*>(), signal, this, heard);
  }

  void HearWindow() {
    Hear<ClientArea>(&ClientArea::Resized, [this] { Resize(); });
    Hear<MainMenu>(&MainMenu::Chosen, [this](const QString& name) { Command(name); });
    Hear<ToolBar>(&ToolBar::ButtonClicked, [this](const QString& key) {
      Command((key == "Undo" ? "mnuEdit" : "mnuFile") + key);
    });
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
      Result<Picture> picture = LoadPicture(platform, path);
      ++heard_[picture.Ok() ? "custom tile" : "broken tile"];
      if (!picture.Ok()) return;
      const Size full = {picture.Value().Width(), picture.Value().Height()};
      const Size size = PreviewSize(full);
      Picture preview(size.width, size.height);
      StretchBlt(preview.Draw(), 0, 0, size.width, size.height, picture.Value().View(), 0, 0,
                 full.width, full.height);
      model.PickFile(picture.Value(), preview);
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
    Result<Picture> picture = LoadPicture(platform, platform.brought.file);
    ++heard_[picture.Ok() ? "opened" : "not opened"];
    if (!picture.Ok()) return;
    model.Load(picture.Value());
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
    Result<Picture> saved = LoadPicture(platform, file_);
    if (!saved.Ok() || saved.Value() != model.map) wrongFile_ = file_;
  }

  std::string FaultInState() const {
    const Document& document = form.document;
    const Palette& palette = form.palette;
    const Outline& Shape1 = palette.Shape1;
    const std::string title =
        file_.empty() ? "Morvane" : "Morvane - " + file_.substr(file_.rfind('/') + 1);
    if (palette.WallMode && palette.DoorMode) return "two modes at once";
    if (palette.WallMode != model.wall || palette.DoorMode != model.door) return "mode";
    if (palette.TileSetSelector.ListIndex != model.set) return "tile set";
    if (document.Caption != title) return "title " + document.Caption + " is not " + title;
    if (!wrongFile_.empty()) return "what was saved as " + wrongFile_;
    if (document.mnuEditUndoEnabled != menuUndo_) return "Undo in the menu";
    if (document.UndoButtonEnabled != buttonUndo_) return "Undo in the tool bar";
    if (IsTextArmed(document) != isArmed_) return "text armed";
    if (form.StatusBarVisible != statusBar_) return "status bar";
    if (Shape1.Visible != outlineShows_) return "outline shown or hidden";
    if (Shape1.Width != model.outline.width || Shape1.Height != model.outline.height) {
      return "size of the outline";
    }
    if (Shape1.Left != outline_.x() || Shape1.Top != outline_.y()) return "place of the outline";
    if (palette.Label2 != tile_ || palette.Label5 != dimensions_) return "name of the tile";
    for (int set = 0; set < kBuiltInSets; ++set) {
      if (set != kTsrOriginal && CurrentPage(palette, set) != pages_[set]) return "page";
    }
    if (document.MousePointer != Pointer::Standard) return "pointer of the window";
    return {};
  }

  std::string FaultOnForm() {
    const Document& document = form.document;
    static const std::array kModes = {"Tile", "Wall", "Door"};
    const auto* tool = Find("tbToolBar")->findChild<QAction*>("Undo");
    auto* canvas = Find("Canvas");
    if (window.windowTitle() != TextOf(document.Caption)) return "shown title";
    if (Find<QLabel>("lbMode")->text() != kModes[model.wall ? 1 : model.door ? 2 : 0]) {
      return "shown mode";
    }
    if (Find<QLabel>("Label2")->toolTip() != ToolTipOf(TextOf(form.palette.Label2))) {
      return "shown tile";
    }
    if (Find<QAction>("mnuEditUndo")->isEnabled() != menuUndo_) return "shown menu Undo";
    if (tool->isEnabled() != buttonUndo_) return "shown tool bar Undo";
    if (Find("sbStatusBar")->isHidden() == statusBar_) return "shown status bar";
    if (Find<QAction>("mnuViewStatusBar")->isChecked() != statusBar_) return "check mark";
    if (Find<QLabel>("SimpleText")->text() != TextOf(document.StatusText)) return "shown status";
    if (canvas->size() != QSize(model.box.width, model.box.height)) return "size of the map";
    if (canvas->cursor().shape() != (isArmed_ ? Qt::IBeamCursor : Qt::CrossCursor)) {
      return "pointer of the map";
    }
    if (Find("Picture1")->size() != QSize(model.stamp.Width(), model.stamp.Height())) {
      return "size of the shown stamp";
    }
    if (Find<QComboBox>("TileSetSelector")->currentIndex() != model.set) return "shown tile set";
    return FaultOnPages();
  }

  std::string FaultOnPages() {
    for (int set = 0; set < kBuiltInSets; ++set) {
      auto* strip = Find(TextOf(TileSets()[set].tabStrip));
      if (strip->isHidden() == (set == model.set)) return "shown tab strip";
      if (strip->findChild<QTabBar*>()->currentIndex() + 1 != pages_[set]) return "shown tab";
      for (int page = 1; page <= TileSets()[set].pageCount; ++page) {
        auto* frame = Find(TextOf(TileSets()[set].frame) + "-" + QString::number(page));
        if (frame->isHidden() == (set == model.set && page == pages_[set])) return "shown page";
      }
    }
    if (Find("Frame5")->isHidden() == (model.set == kCustomSet)) return "shown custom frame";
    if (model.set != kCustomSet) return {};
    if (Find<QLabel>("Label5")->text() != TextOf(dimensions_)) return "shown dimensions";
    const auto* files = Find<QListWidget>("File1");
    const std::vector<std::string>& names = form.palette.File1.Files();
    if (files->count() != static_cast<int>(names.size())) return "shown files";
    for (int i = 0; i < files->count(); ++i) {
      if (files->item(i)->text() != TextOf(names[static_cast<std::size_t>(i)])) return "shown file";
    }
    return {};
  }

  std::string FaultInPictures() {
    const Palette& palette = form.palette;
    std::string fault = Unlike("map", form.document.Canvas.Image(), model.map);
    if (fault.empty()) fault = Unlike("blank map", form.document.pbclear.Image(), model.blank);
    if (fault.empty()) fault = Unlike("stamp", Shown(palette.Picture1), model.stamp);
    if (fault.empty() && model.set == kCustomSet) {
      fault = Unlike("custom tile", Shown(palette.Custom), model.custom);
    }
    return fault;
  }

  static PictureView Shown(const PictureBox& box) {
    PictureView view = box.Image();
    view.width = box.ScaleWidth();
    view.height = box.ScaleHeight();
    return view;
  }

  static std::string Unlike(const char* name, const PictureView& seen, Picture& expected) {
    bool same = seen.width == expected.Width() && seen.height == expected.Height();
    for (int y = 0; same && y < seen.height; ++y) {
      const auto bytes = static_cast<std::size_t>(seen.width) * sizeof(Pixel);
      same = std::memcmp(seen.Row(y), expected.Row(y), bytes) == 0;
    }
    return same ? std::string() : name + (": " + Difference(seen, expected.View()));
  }

  Counts& heard_;
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
};

}  // namespace morvane

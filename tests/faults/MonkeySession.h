#pragma once

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTabBar>
#include <cstring>

#include "palette/PalettePages.h"
#include "shell/widgets/Text.h"
#include "tests/faults/TestSession.h"
#include "tests/support/Difference.h"
#include "tools/TextInsertion.h"

namespace morvane {

/// A session that tells where the window, the core and the plain model part.
class MonkeySession : public TestSession {
 public:
  using TestSession::TestSession;

  /// What is wrong between the window, the core and the model; empty where nothing is.
  std::string Fault(bool withPictures) {
    std::string fault = FaultInState();
    if (fault.empty()) fault = FaultOnForm();
    if (fault.empty() && withPictures) fault = FaultInPictures();
    return fault;
  }

 private:
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
};

}  // namespace morvane

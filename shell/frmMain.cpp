#include "shell/frmMain.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QBackingStore>
#include <QCloseEvent>
#include <QMenuBar>
#include <map>
#include <new>

#include "document/MapFiles.h"
#include "document/NewMap.h"
#include "document/Printing.h"
#include "document/Rescue.h"
#include "document/Undo.h"
#include "palette/CustomTiles.h"
#include "palette/FlipAndRotate.h"
#include "palette/PalettePages.h"
#include "palette/TileSelection.h"
#include "platform/ScreenRoom.h"
#include "shell/CanvasView.h"
#include "shell/ClientArea.h"
#include "shell/CustomFrame.h"
#include "shell/HoverReset.h"
#include "shell/LeftColumn.h"
#include "shell/MainMenu.h"
#include "shell/PaletteView.h"
#include "shell/StatusBar.h"
#include "shell/ToolBar.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/widgets/FileDrop.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/TabRing.h"
#include "shell/widgets/TabStrip.h"
#include "shell/widgets/Text.h"
#include "tools/CanvasKeyboard.h"
#include "tools/CanvasMouse.h"
#include "tools/TextInsertion.h"
#include "tools/ToolModes.h"

namespace morvane {
namespace {

void ShowPointer(QWidget* widget, Pointer pointer) {
  static const std::map<Pointer, Qt::CursorShape> kShapes = {
      {Pointer::Standard, Qt::ArrowCursor},
      {Pointer::Cross, Qt::CrossCursor},
      {Pointer::IBeam, Qt::IBeamCursor},
      {Pointer::Hourglass, Qt::WaitCursor},
  };
  const Qt::CursorShape shape = kShapes.at(pointer);
  if (widget->cursor().shape() != shape) widget->setCursor(shape);
}

}  // namespace

template <typename Rule>
auto frmMain::Event(Rule rule) {
  return
      [this, rule](const auto&... arguments) { Run([&] { rule(form_.palette, arguments...); }); };
}

void frmMain::Run(const std::function<void()>& command) {
  try {
    command();
  } catch (const std::bad_alloc&) {
    form_.document.StatusText = "There is not enough memory for this.";
  }
  ShowState();
}

frmMain::frmMain(MainForm& form)
    : form_(form),
      client_(new ClientArea(this)),
      menu_(new MainMenu(menuBar())),
      tbToolBar_(new ToolBar(client_)),
      sbStatusBar_(new StatusBar(client_)),
      leftColumn_(new LeftColumn(form.palette, client_)),
      palette_(new PaletteView(form.palette, client_)),
      frame5_(new CustomFrame(form.palette, client_)),
      canvas_(new CanvasView(form.document.Canvas, form.palette.Shape1, client_)),
      tabRing_(new TabRing(this)) {
  setObjectName("frmMain");
  setCentralWidget(client_);
  canvas_->move(Px(2520), Px(480));
  canvas_->setFocus();
  ConnectEvents();
  WatchHover();
  AddTabStops();
  form_.Form_Initialize();
  ShowState();
  const QSize designed(kClientSize.width, kClientSize.height + menuBar()->sizeHint().height());
  resize(designed.boundedTo(ScreenRoomOf(*this)));
}

void frmMain::Prepare() {
  create();
  // This picture is discarded: drawing it loads fonts, computes styles and layouts, and allocates
  // memory.
  QBackingStore* store = backingStore();
  store->resize(size());
  store->beginPaint(rect());
  render(store->paintDevice());
  store->endPaint();
}

void frmMain::Open(const std::string& path) {
  Run([&] { OpenMap(form_.document, path); });
}

void frmMain::ReportRescueCopies() {
  Run([&] { morvane::ReportRescueCopies(form_.document); });
}

void frmMain::ConnectEvents() {
  connect(client_, &ClientArea::Resized, this, &frmMain::Form_Resize);
  connect(menu_, &MainMenu::Chosen, this, &frmMain::RunCommand);
  connect(tbToolBar_, &ToolBar::Chosen, this, &frmMain::RunCommand);
  connect(leftColumn_, &LeftColumn::TileSetChosen, this, Event(&TileSetSelector_Click));
  connect(palette_, &PaletteView::TabClicked, this, Event(&TabStrip_Click));
  connect(palette_, &PaletteView::ItemClicked, this, Event(&Item_Click));
  connect(frame5_, &CustomFrame::DriveChosen, this, Event(&Drive1_Change));
  connect(frame5_, &CustomFrame::FolderOpened, this, Event(&Dir1_Change));
  connect(frame5_, &CustomFrame::FileClicked, this, Event(&File1_Click));
  connect(frame5_, &CustomFrame::FileDropped, this, Event(&File1_Drop));
  connect(new FileDrop(canvas_), &FileDrop::Dropped, this, &frmMain::Open);
  connect(canvas_, &CanvasView::Pressed, this, Event(&Canvas_MouseDown));
  connect(canvas_, &CanvasView::Moved, this, Event(&Canvas_MouseMove));
  connect(canvas_, &CanvasView::KeyPressed, this, [this](int Key, int Modifiers, bool& handled) {
    Run([&] { handled = Canvas_KeyDown(form_.palette, Key, Modifiers); });
  });
  connect(leftColumn_, &LeftColumn::ButtonClicked, this, [this](const QString& name) {
    static const std::map<QString, void (*)(Palette&)> kClicks = {
        {"WallButton", &WallButton_Click},     {"FlipHorizontal", &FlipHorizontal_Click},
        {"FlipVertical", &FlipVertical_Click}, {"Rotate", &Rotate_Click},
        {"RotateLeft", &RotateLeft_Click},
    };
    Event(kClicks.at(name))();
  });
}

void frmMain::WatchHover() {
  // Other controls must not pass their mouse moves on to the controls behind them.
  for (QWidget* holder : {static_cast<QWidget*>(client_), static_cast<QWidget*>(frame5_)}) {
    for (QWidget* control : holder->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      control->setAttribute(Qt::WA_NoMousePropagation);
    }
  }
  auto* reset = new HoverReset(this);
  reset->WatchWithoutChildren(client_);
  reset->Watch(tbToolBar_);
  reset->Watch(sbStatusBar_);
  reset->WatchWithoutChildren(frame5_);
  reset->Watch(frame5_->File1());
  for (TabStrip* strip : palette_->Strips()) reset->Watch(strip);
  connect(reset, &HoverReset::Moved, this, [this] {
    HideOutline(form_.palette);
    canvas_->ShowState();
  });
}

void frmMain::AddTabStops() {
  tabRing_->Add(tbToolBar_->Buttons());
  leftColumn_->AddStops(*tabRing_);
  palette_->AddStops(*tabRing_);
  frame5_->AddStops(*tabRing_);
  tabRing_->Add({canvas_});
}

bool frmMain::focusNextPrevChild(bool next) {
  return tabRing_->Move(focusWidget(), next);
}

void frmMain::RunCommand(const QString& name) {
  static const std::map<QString, void (*)(Document&)> kDocumentCommands = {
      {"mnuFileNew", &mnuFileNew_Click},
      {"mnuFileOpen", &mnuFileOpen_Click},
      {"mnuFileSave", &mnuFileSave_Click},
      {"mnuFileSaveAs", &mnuFileSaveAs_Click},
      {"mnuEditUndo", &mnuEditUndo_Click},
      {"mnuFilePrint", &mnuFilePrint_Click},
      {"mnuFilePageSetup", &mnuFilePageSetup_Click},
      {"mnuToolsInsertText", &mnuToolsInsertText_Click},
  };
  Run([&] {
    const auto found = kDocumentCommands.find(name);
    if (found != kDocumentCommands.end()) {
      found->second(form_.document);
    } else if (name == "mnuViewStatusBar") {
      form_.mnuViewStatusBar_Click();
    } else if (name == "mnuToolsOptions") {
      frmOptions(form_.document, this).exec();
      ShowStoredFolder(form_.palette);
    } else if (name == "mnuHelpAbout") {
      frmAbout(form_.document.platform, this).exec();
    } else if (name == "mnuFileExit") {
      close();
    }
  });
}

void frmMain::Form_Resize() {
  tbToolBar_->setGeometry(0, 0, client_->width(), kToolBarHeight);
  sbStatusBar_->setGeometry(0, client_->height() - kStatusBarHeight, client_->width(),
                            kStatusBarHeight);
  Run([this] { form_.Form_Resize(client_->width(), client_->height()); });
}

void frmMain::ShowState() {
  Document& document = form_.document;
  // Qt replaces a single "[*]" in window titles.
  setWindowTitle(TextOf(document.Caption).replace("[*]", "[*][*]"));
  ShowPointer(this, document.MousePointer);
  ShowPointer(canvas_, document.Canvas.MousePointer);
  menu_->Find("mnuEditUndo")->setEnabled(document.mnuEditUndoEnabled);
  menu_->Find("mnuViewStatusBar")->setChecked(form_.StatusBarVisible);
  tbToolBar_->SetUndoEnabled(document.UndoButtonEnabled);
  sbStatusBar_->SetSimpleText(TextOf(document.StatusText));
  sbStatusBar_->setVisible(form_.StatusBarVisible);
  leftColumn_->ShowState();
  palette_->ShowState();
  frame5_->ShowState();
  canvas_->ShowState();
  if (document.Canvas.TakeFocus()) canvas_->setFocus();
}

void frmMain::closeEvent(QCloseEvent* event) {
  if (form_.Form_Unload()) {
    event->ignore();
    return;
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window != this) window->close();
  }
  form_.EndRun();
}

}  // namespace morvane

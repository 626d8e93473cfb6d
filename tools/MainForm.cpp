#include "tools/MainForm.h"

#include "document/MapFiles.h"
#include "document/Snapshot.h"
#include "palette/PalettePages.h"

namespace morvane {
namespace {

constexpr int kTabStripRight = 8 + 154;
constexpr int kToolBarBottom = 28;

}  // namespace

void MainForm::Form_Initialize() {
  Form_Load();
  palette.File1.SetPath(document.platform, document.settings.GetINIFileString("Custom", "Dir", ""));
}

void MainForm::Form_Load() {
  Platform& platform = document.platform;
  palette.File1.SetPath(platform, platform.CurrentDirectory());

  palette.Label2 = "Floor";
  TileSetSelector_Click(palette, kAbandonedCathedral);
  palette.Picture1.SetPicture(palette.pictures.Of(*FindItem("pbfloor")));
  palette.Picture1.SetWidth(20);
  palette.Picture1.SetHeight(20);
  document.pbclear.SetWidth(document.Canvas.Width());
  document.pbclear.SetHeight(document.Canvas.Height());
  TakeSnapshot(document);
  document.settings.StartDir = platform.CurrentDirectory();
}

void MainForm::Form_Resize(int ScaleWidth, int ScaleHeight) {
  scaleWidth_ = ScaleWidth;
  scaleHeight_ = ScaleHeight;
  PictureBox& Canvas = document.Canvas;
  Canvas.SetWidth(ScaleWidth - (kTabStripRight + 4) - 2);
  Canvas.SetHeight(ScaleHeight - kToolBarBottom - (StatusBarVisible ? 22 : 4));
  document.pbclear.SetWidth(Canvas.Width());
  document.pbclear.SetHeight(Canvas.Height());
}

void MainForm::mnuViewStatusBar_Click() {
  StatusBarVisible = !StatusBarVisible;
  Form_Resize(scaleWidth_, scaleHeight_);
}

bool MainForm::Form_Unload() {
  return AskToSave(document);
}

void MainForm::EndRun() {
  document.platform.DeleteSnapshot();
}

}  // namespace morvane

#include "editor/MainForm.h"

#include <new>

#include "document/MapFiles.h"
#include "document/Rescue.h"
#include "document/Undo.h"
#include "document/bmp/Bmp.h"
#include "palette/PalettePages.h"
#include "palette/TileSelection.h"

namespace morvane {

void MainForm::Form_Initialize() {
  Form_Load();
  palette.File1.SetPath(document.platform, document.settings.GetINIFileString("Custom", "Dir", ""));
}

void MainForm::Form_Load() {
  Platform& platform = document.platform;
  document.StatusText = "Morvane, maps for role-playing games, painted tile by tile";
  palette.Dir1.SetPath(platform, platform.CurrentDirectory());
  palette.File1.SetPath(platform, platform.CurrentDirectory());

  TileSetSelector_Click(palette, kAbandonedCathedral);
  ShowStamp(palette, *FindItem("pbfloor"));
  document.pbclear.SetSize({document.Canvas.Width(), document.Canvas.Height()});
  RescueLeftovers(document);
  TakeSnapshot(document);
  document.settings.StartDir = platform.CurrentDirectory();
}

void MainForm::Form_Resize(int ScaleWidth, int ScaleHeight) {
  scale_ = {ScaleWidth, ScaleHeight};
  PictureBox& Canvas = document.Canvas;
  Canvas.SetSize({ScaleWidth - kTabStripRight - 6,
                  ScaleHeight - kToolBarHeight - (StatusBarVisible ? kStatusBarHeight : 0) - 4});
  document.pbclear.SetSize({Canvas.Width(), Canvas.Height()});
}

void MainForm::mnuViewStatusBar_Click() {
  StatusBarVisible = !StatusBarVisible;
  Form_Resize(scale_.width, scale_.height);
}

bool MainForm::Form_Unload() {
  isAsking_ = true;
  const bool isCancelled = AskToSave(document);
  isAsking_ = false;
  return isCancelled;
}

void MainForm::EndRun() {
  hasEnded_ = true;
  document.platform.DeleteSnapshot();
}

void MainForm::RescueAtTermination() {
  if (hasEnded_) return;
  hasEnded_ = true;
  try {
    // If the rescue copy takes too long or fails, the next run finds the complete map here.
    BmpEncoder map(document.Canvas.Image());
    document.platform.WriteSnapshot(map);
    if (RescueUnsavedMap(document)) document.platform.DeleteSnapshot();
  } catch (const std::bad_alloc&) {
    // The snapshot stays.
  }
}

bool MainForm::SessionEnds(bool mayAsk) {
  // While the exit question is open, it must not be asked again.
  if (!mayAsk || isAsking_) {
    try {
      RescueForSession(document);
    } catch (const std::bad_alloc&) {
      // The session ends in any case.
    }
    return false;
  }
  if (Form_Unload()) return true;
  document.SessionCopy.clear();
  SettleMap(document);
  return false;
}

}  // namespace morvane

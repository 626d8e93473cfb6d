#pragma once

#include "editor/WindowLayout.h"
#include "palette/Palette.h"

namespace morvane {

/// The working state of one run, and the events from its start to its end.
struct MainForm {
  MainForm(Platform& platform, const TilePictures::SheetLoader& loadSheet)
      : document(platform), palette(document, loadSheet) {}

  Document document;
  Palette palette;
  bool StatusBarVisible = true;  ///< also the check mark of mnuViewStatusBar

  /// The start of the run: sets the first stamp, rescues maps that earlier runs left behind, takes
  /// the first snapshot, and lists the folder of custom tiles from the settings.
  void Form_Initialize();

  /// The inside of the window has a new size, in pixels.
  void Form_Resize(int ScaleWidth, int ScaleHeight);

  /// View > Status Bar.
  void mnuViewStatusBar_Click();

  /// The window is about to close. Returns whether that is cancelled.
  bool Form_Unload();

  /// All windows are closed: deletes the files of this run.
  void EndRun();

  bool HasEnded() const { return hasEnded_; }

  /// The process ends without the exit question: writes a rescue copy of a map that would be lost.
  /// Does nothing after the run has ended.
  void RescueAtTermination();

  /// The desktop session is about to end, which another program may still prevent. Asks the exit
  /// question if that is permitted, else writes a rescue copy of a map that would be lost. Returns
  /// whether the user cancels the end of the session.
  bool SessionEnds(bool mayAsk);

 private:
  void Form_Load();

  bool isAsking_ = false;  ///< the exit question is open
  bool hasEnded_ = false;
  Size scale_ = kClientSize;
};

}  // namespace morvane

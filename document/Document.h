#pragma once

#include <string>

#include "document/PictureBox.h"
#include "document/Settings.h"
#include "platform/Platform.h"

namespace morvane {

/// The map, its blank twin and all that belongs to it.
struct Document {
  explicit Document(Platform& thePlatform) : platform(thePlatform), settings(thePlatform) {
    Canvas.MousePointer = Pointer::Cross;
  }

  Platform& platform;
  Settings settings;

  /// The map. The size is the designed one; the window sets another as soon as it is laid out.
  PictureBox Canvas{617, 484, PictureBox::Border::Sunken};
  /// A blank map, never shown: what erasing copies from.
  PictureBox pbclear{617, 484, PictureBox::Border::None};
  /// Pointer of the main window.
  Pointer MousePointer = Pointer::Standard;

  std::string CurrentFile;  ///< full path; keeps its text when a new map has no file yet
  bool HasCurrentFile = false;
  std::string Caption = kProgramName;
  std::string StatusText = "Morvane, maps for role-playing games, painted tile by tile";

  bool mnuEditUndoEnabled = false;
  bool UndoButtonEnabled = true;  ///< button 7 of tbToolBar

  bool SnapshotFailureTold = false;
};

}  // namespace morvane

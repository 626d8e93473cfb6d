#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "document/Platform.h"
#include "document/Settings.h"
#include "document/picture/PictureBox.h"

namespace morvane {

/// The map, the blank map, the current file, and what the main window shows of them.
struct Document {
  explicit Document(Platform& thePlatform) : platform(thePlatform), settings(thePlatform) {
    Canvas.MousePointer = Pointer::Cross;
  }

  Platform& platform;
  Settings settings;

  /// The map. The size is the designed one; the window sets another as soon as it is laid out.
  PictureBox Canvas{617, 484, PictureBox::Border::Sunken};
  /// A blank map that is never shown. Erasing copies from it.
  PictureBox pbclear{617, 484, PictureBox::Border::None};
  /// Pointer of the main window.
  Pointer MousePointer = Pointer::Standard;

  /// Work picture that text is drawn on.
  PictureBox pbTempText{513, 353, PictureBox::Border::Sunken};
  std::string TextToInsert;  ///< rich text that was last accepted in the dialog
  bool TextAccepted = false;
  std::int16_t TextX = 0;  ///< pixel of the map where the press opened the dialog
  std::int16_t TextY = 0;

  std::string CurrentFile;  ///< full path; keeps its value while a new map has no file yet
  bool HasCurrentFile = false;
  std::string Caption = kProgramName;
  std::string StatusText;

  bool mnuEditUndoEnabled = false;
  bool UndoButtonEnabled = true;  ///< button 7 of tbToolBar

  bool SnapshotFailureReported = false;

  std::vector<std::string> RescueCopies;  ///< paths to be reported to the user
  /// Maps of earlier runs that no folder accepted, held so that their files stay locked.
  std::vector<std::unique_ptr<Leftover>> UnplacedLeftovers;
  /// The last map that needs no further rescue copy, because it has one or the user has answered
  /// the exit question.
  Picture SettledMap;
  std::string SessionCopy;  ///< path of this run's last rescue copy; empty if there is none
};

}  // namespace morvane

#pragma once

#include <string>

#include "palette/Palette.h"

namespace morvane {

/// A drive was chosen: shows its folder and its files.
void Drive1_Change(Palette& palette, const std::string& drive);

/// A folder was opened: shows its files.
void Dir1_Change(Palette& palette, const std::string& path);

/// A file was clicked: its picture becomes the stamp. One that can't be read changes nothing but
/// the status text.
void File1_Click(Palette& palette, const std::string& FileName);

/// A file was dropped on the list of files: the list shows its folder, and it becomes the stamp.
void File1_Drop(Palette& palette, const std::string& path);

/// Shows the folder of custom tiles that the settings name, as after the Options dialog.
void ShowStoredFolder(Palette& palette);

/// The size that a picture is shown at beside the buttons: at most 60 pixels a side.
Size PreviewSize(Size picture);

}  // namespace morvane

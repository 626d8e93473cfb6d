#pragma once

#include <string>

#include "palette/Palette.h"

namespace morvane {

/// A drive was chosen: lists the folders and pictures in its root.
void Drive1_Change(Palette& palette, const std::string& drive);

/// A folder was opened: lists its folders and pictures. If it can't be read, the lists keep the
/// folder that they show.
void Dir1_Change(Palette& palette, const std::string& path);

/// A file was clicked: its picture becomes the stamp. One that can't be read changes nothing but
/// the status text.
void File1_Click(Palette& palette, const std::string& FileName);

/// A file was dropped on the list of files: the list shows its folder, and it becomes the stamp.
void File1_Drop(Palette& palette, const std::string& path);

/// The Options dialog was closed: lists the folder of custom tiles from the settings.
void ShowStoredFolder(Palette& palette);

/// The size of the reduced picture in the left column: at most 60 pixels wide and high.
Size PreviewSize(Size picture);

}  // namespace morvane

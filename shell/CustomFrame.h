#pragma once

#include "palette/Palette.h"
#include "shell/widgets/GroupFrame.h"

class QAbstractScrollArea;
class QComboBox;
class QListWidget;
class QListWidgetItem;

namespace morvane {

class FileRows;
class FittedLabel;
class TabRing;

/// The frame "Custom Tiles" in the place of the palette pages: drives, folders and picture files.
class CustomFrame : public GroupFrame {
  Q_OBJECT

 public:
  CustomFrame(const Palette& palette, QWidget* window);

  void ShowState();
  void AddStops(TabRing& ring) const;

  /// The list of files. While the pointer is over it, the outline on the map is hidden.
  QAbstractScrollArea* File1() const;

 signals:
  /// A drive was chosen, by its root.
  void DriveChosen(const std::string& root);
  /// A folder was opened by double click or Enter.
  void FolderOpened(const std::string& path);
  /// A file was chosen, by its name without the folder.
  void FileClicked(const std::string& name);
  /// A file was dropped on the list, by its absolute path.
  void FileDropped(const std::string& path);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ConnectEvents();
  void ListDrives();
  void ShowDrive();
  void ShowFolders();
  void ShowFiles();

  const Palette& palette_;
  QComboBox* drive_;
  FittedLabel* dimensions_;
  QListWidget* folders_;
  QListWidget* files_;
  FileRows* fileRows_;
  int currentDrive_ = 0;  ///< row of the drive that contains the current folder
  int shownFolders_ = 0;  ///< ReadCount() of the folder list when it was last shown
  int shownFiles_ = 0;    ///< the same of the file list
};

}  // namespace morvane

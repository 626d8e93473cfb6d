#include "shell/CustomFrame.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>

#include "shell/Layout.h"
#include "shell/Text.h"

namespace morvane {

CustomFrame::CustomFrame(const Palette& palette, QWidget* window)
    : GroupFrame("Custom Tiles", window),
      palette_(palette),
      drive_(new QComboBox(this)),
      dimensions_(new QLabel(this)),
      folders_(new QListWidget(this)),
      files_(new QListWidget(this)) {
  setObjectName("Frame5");
  setFont(ArialFont(kSmallText));
  setGeometry(PlaceOf(120, 2880, 2295, 4815));
  drive_->setObjectName("Drive1");
  drive_->setAccessibleName("Drive");
  drive_->setGeometry(PlaceOf(120, 240, 1095, 315));
  for (const std::string& root : palette.document.platform.ListDrives()) {
    drive_->addItem(TextOf(root));
  }
  dimensions_->setObjectName("Label5");
  dimensions_->setGeometry(PlaceOf(1320, 300, 855, 255));
  dimensions_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  folders_->setObjectName("Dir1");
  folders_->setAccessibleName("Folder");
  folders_->setGeometry(PlaceOf(120, 600, 2055, 1215));
  files_->setObjectName("File1");
  files_->setAccessibleName("Custom tile pictures");
  files_->setGeometry(PlaceOf(120, 1800, 2055, 2820));
  files_->setUniformItemSizes(true);

  connect(drive_, &QComboBox::textActivated, this,
          [this](const QString& root) { emit DriveChosen(root.toStdString()); });
  // Double click and Enter both open a folder.
  connect(folders_, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
    emit FolderOpened(item->data(Qt::UserRole).toString().toStdString());
  });
  const auto click = [this](const QListWidgetItem* item) {
    emit FileClicked(item->text().toStdString());
  };
  connect(files_, &QListWidget::itemClicked, this, click);
  connect(files_, &QListWidget::itemActivated, this, click);
}

void CustomFrame::ShowState() {
  setVisible(palette_.TileSetSelector.ListIndex == kCustomSet);
  if (isHidden()) return;
  dimensions_->setText(TextOf(palette_.Label5));
  ShowFolders();
  ShowFiles();
}

void CustomFrame::ShowFolders() {
  if (shownFolders_ == palette_.Dir1.Rows()) return;
  shownFolders_ = palette_.Dir1.Rows();
  folders_->clear();
  constexpr qsizetype kIndent = 2;
  int present = 0;
  for (const FolderList::Row& row : shownFolders_) {
    auto* item = new QListWidgetItem(
        style()->standardIcon(row.isOnTheWay ? QStyle::SP_DirOpenIcon : QStyle::SP_DirIcon),
        QString(row.depth * kIndent, ' ') + TextOf(row.name), folders_);
    item->setData(Qt::UserRole, TextOf(row.path));
    item->setToolTip(TextOf(row.path));
    if (row.isOnTheWay) present = folders_->row(item);
  }
  folders_->setCurrentRow(present);
  folders_->scrollToItem(folders_->item(present), QAbstractItemView::PositionAtCenter);
}

void CustomFrame::ShowFiles() {
  if (shownFiles_ == palette_.File1.Files()) return;
  shownFiles_ = palette_.File1.Files();
  QStringList names;
  for (const std::string& name : shownFiles_) names << TextOf(name);
  files_->clear();
  files_->addItems(names);
}

QWidget* CustomFrame::File1() const {
  return files_;
}

}  // namespace morvane

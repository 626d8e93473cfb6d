#include "shell/CustomFrame.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>

#include "shell/Layout.h"
#include "shell/Text.h"

namespace morvane {
namespace {

/// Fills a list anew only if it differs, so that scroll bar and selection stay.
void ShowRows(QListWidget* list, const QStringList& rows) {
  QStringList shown;
  for (int i = 0; i < list->count(); ++i) shown << list->item(i)->text();
  if (shown == rows) return;
  list->clear();
  list->addItems(rows);
}

}  // namespace

CustomFrame::CustomFrame(const Palette& palette, QWidget* window)
    : QGroupBox("Custom Tiles", window),
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
  drive_->addItem("/");
  dimensions_->setObjectName("Label5");
  dimensions_->setGeometry(PlaceOf(1320, 300, 855, 255));
  dimensions_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  folders_->setObjectName("Dir1");
  folders_->setAccessibleName("Folder");
  folders_->setGeometry(PlaceOf(120, 600, 2055, 1215));
  files_->setObjectName("File1");
  files_->setAccessibleName("Custom tile pictures");
  files_->setGeometry(PlaceOf(120, 1800, 2055, 2820));
}

void CustomFrame::ShowState() {
  setVisible(palette_.TileSetSelector.ListIndex == kCustomSet);
  if (isHidden()) return;
  dimensions_->setText(TextOf(palette_.Label5));
  QStringList files;
  for (const std::string& file : palette_.File1.Files()) files << TextOf(file);
  ShowRows(files_, files);
  ShowRows(folders_, {TextOf(palette_.File1.Path())});
}

QWidget* CustomFrame::File1() const {
  return files_;
}

}  // namespace morvane

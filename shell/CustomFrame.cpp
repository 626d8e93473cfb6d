#include "shell/CustomFrame.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>
#include <optional>

#include "shell/FileRows.h"
#include "shell/widgets/Accessible.h"
#include "shell/widgets/FileDrop.h"
#include "shell/widgets/FittedLabel.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/TabRing.h"
#include "shell/widgets/Text.h"

namespace morvane {
namespace {

constexpr int kDepthRole = Qt::UserRole + 1;

/// Indents a row by its depth below the root, within the width of the list.
class IndentDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    constexpr int kStep = 8;
    QStyleOptionViewItem moved = option;
    moved.rect.adjust(index.data(kDepthRole).toInt() * kStep, 0, 0, 0);
    const auto* list = qobject_cast<const QAbstractItemView*>(option.widget);
    moved.rect.setRight(std::min(moved.rect.right(), list->viewport()->rect().right()));
    QStyledItemDelegate::paint(painter, moved, index);
  }
};

}  // namespace

CustomFrame::CustomFrame(const Palette& palette, QWidget* window)
    : GroupFrame("Custom Tiles", window),
      palette_(palette),
      drive_(Placed(new QComboBox(this), "Drive1", PlaceOf(120, 240, 1095, 315))),
      dimensions_(Placed(new FittedLabel(Px(855), this), "Label5", PlaceOf(1320, 300, 855, 255))),
      folders_(Placed(new QListWidget(this), "Dir1", PlaceOf(120, 600, 2055, 1215))),
      files_(Placed(new QListWidget(this), "File1", PlaceOf(120, 1800, 2055, 2820))),
      fileRows_(new FileRows(files_)) {
  setFont(ArialFont(kSmallText));
  Placed(this, "Frame5", PlaceOf(120, 2880, 2295, 4815));
  for (QListWidget* list : {folders_, files_}) {
    list->setUniformItemSizes(true);
    list->installEventFilter(this);
  }
  drive_->setAccessibleName("Drive");
  AnnounceEntry(drive_);
  // Qt takes the accessible name of a drop-down list only from its label. There is no room for a
  // visible one.
  auto* label = new QLabel("Drive", this);
  label->setBuddy(drive_);
  label->hide();
  dimensions_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  folders_->setAccessibleName("Folder");
  files_->setAccessibleName("Custom tile pictures");
  files_->setItemDelegate(fileRows_);

  // Four rows leave no room for a horizontal scroll bar: tool tips show elided names.
  folders_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  folders_->setIconSize({16, 16});
  folders_->setItemDelegate(new IndentDelegate(folders_));
  ConnectEvents();
}

void CustomFrame::ConnectEvents() {
  connect(drive_, &QComboBox::activated, this,
          [this](int row) { emit DriveChosen(drive_->itemData(row).toByteArray().toStdString()); });
  const auto open = [this](const QListWidgetItem* item) {
    if (item != nullptr) emit FolderOpened(item->data(Qt::UserRole).toByteArray().toStdString());
  };
  connect(folders_, &QListWidget::itemDoubleClicked, this, open);
  new QShortcut(
      Qt::Key_Return, folders_, [this, open] { open(folders_->currentItem()); },
      Qt::WidgetShortcut);
  const auto click = [this](const QListWidgetItem* item) {
    if (item == nullptr) return;
    emit FileClicked(fileRows_->Names()[static_cast<std::size_t>(files_->row(item))]);
  };
  connect(files_, &QListWidget::itemClicked, this, click);
  new QShortcut(
      Qt::Key_Return, files_, [this, click] { click(files_->currentItem()); }, Qt::WidgetShortcut);
  connect(new FileDrop(files_->viewport()), &FileDrop::Dropped, this,
          [this](const std::string& path) {
            emit FileDropped(path);
            const int row = fileRows_->RowOf(path);
            if (row >= 0) files_->setCurrentRow(row);
          });
}

void CustomFrame::ShowState() {
  const bool shows = palette_.TileSetSelector.ListIndex == kCustomSet;
  if (shows && isHidden()) ListDrives();
  setVisible(shows);
  if (!shows) return;
  dimensions_->ShowText(TextOf(palette_.Label5));
  dimensions_->setVisible(!palette_.Label5.empty());
  ShowFolders();
  ShowFiles();
  drive_->setCurrentIndex(currentDrive_);
}

void CustomFrame::AddStops(TabRing& ring) const {
  for (QWidget* stop : std::initializer_list<QWidget*>{drive_, folders_, files_}) ring.Add({stop});
}

void CustomFrame::ListDrives() {
  drive_->clear();
  for (const std::string& root : palette_.document.platform.ListDrives()) {
    drive_->addItem(TextOf(root), QByteArray::fromStdString(root));
    drive_->setItemData(drive_->count() - 1, ToolTipOf(TextOf(root)), Qt::ToolTipRole);
  }
  ShowDrive();
}

void CustomFrame::ShowDrive() {
  currentDrive_ = 0;
  std::size_t longest = 0;
  const std::string path = WithTrailingBackslash(palette_.Dir1.Path());
  for (int i = 0; i < drive_->count(); ++i) {
    const std::string root = WithTrailingBackslash(drive_->itemData(i).toByteArray().toStdString());
    if (!path.starts_with(root) || root.size() <= longest) continue;
    longest = root.size();
    currentDrive_ = i;
  }
  drive_->setToolTip(ToolTipOf(drive_->itemText(currentDrive_)));
}

void CustomFrame::ShowFolders() {
  // Reading the folder may change the count.
  const std::vector<FolderList::Row>& rows = palette_.Dir1.Rows();
  if (shownFolders_ == palette_.Dir1.ReadCount()) return;
  shownFolders_ = palette_.Dir1.ReadCount();
  ShowDrive();
  folders_->clear();
  const QIcon open = style()->standardIcon(QStyle::SP_DirOpenIcon);
  const QIcon closed = style()->standardIcon(QStyle::SP_DirIcon);
  int current = 0;
  for (const FolderList::Row& row : rows) {
    auto* item = new QListWidgetItem(row.isOnPath ? open : closed, TextOf(row.name), folders_);
    item->setData(Qt::UserRole, QByteArray::fromStdString(row.path));
    item->setData(kDepthRole, row.depth);
    item->setToolTip(ToolTipOf(TextOf(row.path)));
    item->setData(Qt::AccessibleDescriptionRole, TextOf(row.path));
    if (row.isOnPath) current = folders_->count() - 1;
  }
  // The list reports the focus to screen readers with each new row, even if it has none.
  std::optional<QSignalBlocker> silence;
  if (!folders_->hasFocus()) silence.emplace(folders_->selectionModel());
  folders_->setCurrentRow(current);
  folders_->scrollToItem(folders_->item(current), QAbstractItemView::PositionAtCenter);
}

void CustomFrame::ShowFiles() {
  const std::vector<std::string>& files = palette_.File1.Files();
  if (shownFiles_ == palette_.File1.ReadCount()) return;
  shownFiles_ = palette_.File1.ReadCount();
  const bool areNew = files != fileRows_->Names();
  fileRows_->SetFiles(palette_.File1.Path(), files);
  if (!areNew) return;
  QStringList names;
  names.reserve(std::ssize(files));
  for (const std::string& name : files) names << TextOf(name);
  files_->clear();
  files_->addItems(names);
}

bool CustomFrame::eventFilter(QObject* watched, QEvent* event) {
  // The lists overlap, and would hide each other's focus frame.
  if (event->type() == QEvent::FocusIn) qobject_cast<QWidget*>(watched)->raise();
  return false;
}

QAbstractScrollArea* CustomFrame::File1() const {
  return files_;
}

}  // namespace morvane

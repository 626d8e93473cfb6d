#include "shell/FileRows.h"

#include <QBuffer>
#include <QHelpEvent>
#include <QListView>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "document/Settings.h"
#include "shell/widgets/Text.h"

namespace morvane {
namespace {

/// Of the picture in a row, and of that in a tool tip.
constexpr ThumbnailSizes kSizes = {.small = 16, .large = 120};

/// The shortest time between two requests for thumbnails.
constexpr std::chrono::milliseconds kRequestInterval(30);

/// A tool tip with a picture, which is shown in physical pixels, above a line of text.
QString PictureToolTip(const QImage& image, const QString& text) {
  QByteArray png;
  QBuffer buffer(&png);
  image.save(&buffer, "PNG");
  const QSize size = image.deviceIndependentSize().toSize();
  return QString(
             "<div style='white-space:pre'>"
             "<img src='data:image/png;base64,%1' width='%2' height='%3'><br>%4</div>")
      .arg(QString::fromLatin1(png.toBase64()), QString::number(size.width()),
           QString::number(size.height()), text.toHtmlEscaped());
}

}  // namespace

FileRows::FileRows(QListView* list) : QStyledItemDelegate(list), list_(list), thumbnails_(kSizes) {
  requestTimer_.setSingleShot(true);
  requestTimer_.setInterval(kRequestInterval);
  connect(&requestTimer_, &QTimer::timeout, this, &FileRows::RequestVisibleRows);
  connect(&thumbnails_, &ThumbnailCache::ThumbnailReady, this,
          [this] { list_->viewport()->update(); });
}

void FileRows::SetFiles(const std::string& folder, std::vector<std::string> names) {
  folder_ = WithTrailingBackslash(folder);
  names_ = std::move(names);
  thumbnails_.Clear();
  list_->viewport()->update();
}

int FileRows::RowOf(const std::string& path) const {
  const auto row = std::find_if(names_.begin(), names_.end(),
                                [&](const std::string& name) { return folder_ + name == path; });
  return row == names_.end() ? -1 : static_cast<int>(row - names_.begin());
}

void FileRows::paint(QPainter* painter, const QStyleOptionViewItem& option,
                     const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const Thumbnail* thumbnail = thumbnails_.Of(PathOf(index));
  // Requests drop those of rows that have been scrolled out of view.
  if (!requestTimer_.isActive()) requestTimer_.start();
  if (thumbnail == nullptr || thumbnail->size.isEmpty()) return;
  QStyleOptionViewItem full = option;
  initStyleOption(&full, index);
  const QRect place =
      list_->style()->subElementRect(QStyle::SE_ItemViewItemDecoration, &full, list_);
  const QSize size = thumbnail->small.deviceIndependentSize().toSize();
  painter->drawImage(QStyle::alignedRect(option.direction, Qt::AlignCenter, size, place).topLeft(),
                     thumbnail->small);
}

bool FileRows::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                         const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  const QString name = index.data().toString();
  const Thumbnail* thumbnail = thumbnails_.Of(PathOf(index));
  QString text;
  if (thumbnail != nullptr && !thumbnail->size.isEmpty()) {
    const QSize size = thumbnail->size;
    const QString sides = QString("%1 x %2").arg(size.width()).arg(size.height());
    text = PictureToolTip(thumbnail->large, name + ", " + sides);
  } else if (sizeHint(option, index).width() > view->viewport()->width()) {
    text = ToolTipOf(name);
  }
  QToolTip::showText(event->globalPos(), text, view->viewport(), option.rect);
  return true;
}

void FileRows::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  // Reserves space for the picture. If it were the icon, it would be tinted in the selected row.
  option->features |= QStyleOptionViewItem::HasDecoration;
  option->decorationSize = {kSizes.small, kSizes.small};
}

std::string FileRows::PathOf(const QModelIndex& index) const {
  return folder_ + names_[static_cast<std::size_t>(index.row())];
}

void FileRows::RequestVisibleRows() {
  std::deque<std::string> paths;
  const QRect view = list_->viewport()->rect();
  QModelIndex index = list_->indexAt(view.topLeft());
  while (index.isValid() && list_->visualRect(index).top() <= view.bottom()) {
    paths.push_back(PathOf(index));
    index = index.siblingAtRow(index.row() + 1);
  }
  thumbnails_.Request(std::move(paths), std::max(1, qRound(list_->devicePixelRatioF())));
}

}  // namespace morvane

#pragma once

#include <QStyledItemDelegate>
#include <QTimer>
#include <string>
#include <vector>

#include "shell/Thumbnails.h"

class QListView;

namespace morvane {

/// Draws the rows of a list of picture files: a thumbnail and the name. A tool tip shows a larger
/// picture, and the names that are cut off.
class FileRows : public QStyledItemDelegate {
 public:
  /// The names are those of the list's rows, and stay their owner's.
  FileRows(const std::vector<std::string>& names, QListView* list);

  /// The rows are files of this folder from now on, and their pictures are read afresh.
  void SetFolder(const std::string& folder);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  std::string PathOf(const QModelIndex& index) const;
  /// Pixels of the display to one of the window; another display may have more.
  int Zoom() const;
  void WantRowsInView();

  const std::vector<std::string>& names_;
  QListView* list_;
  std::string folder_;
  Thumbnails thumbnails_;
  mutable QTimer want_;
};

}  // namespace morvane

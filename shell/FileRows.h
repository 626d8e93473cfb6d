#pragma once

#include <QStyledItemDelegate>
#include <QTimer>
#include <string>
#include <vector>

#include "shell/ThumbnailCache.h"

class QListView;

namespace morvane {

/// Draws the rows of a list of picture files: a thumbnail and the name. A tool tip shows a larger
/// picture, or a name that is elided.
class FileRows : public QStyledItemDelegate {
 public:
  explicit FileRows(QListView* list);

  /// Sets the folder, and the name of the file in each row, in any encoding. Drops all thumbnails.
  void SetFiles(const std::string& folder, std::vector<std::string> names);
  const std::vector<std::string>& Names() const { return names_; }
  /// The row of a file, or -1 if it isn't in the list.
  int RowOf(const std::string& path) const;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  std::string PathOf(const QModelIndex& index) const;
  void RequestVisibleRows();

  QListView* list_;
  std::vector<std::string> names_;
  std::string folder_;
  ThumbnailCache thumbnails_;
  mutable QTimer requestTimer_;  ///< started by paint(), which is const
};

}  // namespace morvane

#pragma once

#include <QStyledItemDelegate>
#include <QTimer>
#include <string>
#include <vector>

#include "shell/Thumbnails.h"

class QListView;

namespace morvane {

/// Draws the rows of a list of picture files: a thumbnail and the name. A tool tip shows a larger
/// picture, or a name that is elided.
class FileRows : public QStyledItemDelegate {
 public:
  /// names has one entry for each row, and must outlive this object.
  FileRows(const std::vector<std::string>& names, QListView* list);

  /// Sets the folder of the files, and drops all thumbnails.
  void SetFolder(const std::string& folder);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  std::string PathOf(const QModelIndex& index) const;
  /// Physical pixels per logical pixel on the current display.
  int Zoom() const;
  void WantRowsInView();

  const std::vector<std::string>& names_;
  QListView* list_;
  std::string folder_;
  Thumbnails thumbnails_;
  mutable QTimer want_;
};

}  // namespace morvane

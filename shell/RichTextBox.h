#pragma once

#include <QTextEdit>

namespace morvane {

/// An editor of rich text that takes nothing from outside but text: what is pasted or dropped can't
/// load pictures or anything else from disk or network, and is cut to a length that fits a map.
class RichTextBox : public QTextEdit {
  Q_OBJECT

 public:
  explicit RichTextBox(QWidget* parent);

 protected:
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;
};

}  // namespace morvane

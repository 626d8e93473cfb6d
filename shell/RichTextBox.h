#pragma once

#include <QImage>
#include <QTextEdit>

namespace morvane {

/// An editor of rich text that takes nothing from outside but text: what is pasted or dropped can't
/// load pictures or anything else from disk or network, and is cut to a length that fits a map. The
/// text looks as it will on a white map, whatever the desktop's colours and fineness.
class RichTextBox : public QTextEdit {
  Q_OBJECT

 public:
  explicit RichTextBox(QWidget* parent);

 protected:
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  QImage mapFineness_{1, 1, QImage::Format_RGB32};
};

}  // namespace morvane

#pragma once

#include <QImage>
#include <QTextCharFormat>
#include <QTextEdit>

namespace morvane {

/// An editor of rich text that takes nothing from outside but text: what is pasted or dropped can't
/// load pictures or anything else from disk or network, and is cut to what TextLimits allows. The
/// text looks as it will on a white map, whatever the desktop's colours and fineness.
class RichTextBox : public QTextEdit {
  Q_OBJECT

 public:
  explicit RichTextBox(QWidget* parent);

  /// Gives the selection, or what is typed next, a format with a size in points. A larger size than
  /// fits the map's text becomes the largest.
  void Format(QTextCharFormat format);

 protected:
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  void Insert(const QTextDocument& pasted);

  QImage mapFineness_{1, 1, QImage::Format_RGB32};
};

}  // namespace morvane

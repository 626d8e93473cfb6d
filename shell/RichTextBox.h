#pragma once

#include <QImage>
#include <QTextCharFormat>
#include <QTextEdit>

namespace morvane {

/// An editor of rich text. What is pasted or dropped can't load pictures or anything else from disk
/// or network, and is limited by TextLimits. The text looks as on a white map, whatever the colours
/// and resolution of the desktop.
class RichTextBox : public QTextEdit {
  Q_OBJECT

 public:
  explicit RichTextBox(QWidget* parent);

  /// Applies a format to the selection, or to what is typed next. Font sizes in points are limited
  /// to what fits on the map.
  void Format(QTextCharFormat format);

 protected:
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  /// Inserts the text and its formats, without pictures, tables and lists.
  void Insert(const QTextDocument& pasted);

  QImage mapDevice_{1, 1, QImage::Format_RGB32};  ///< has the resolution of the map
};

}  // namespace morvane

#include "shell/RichTextBox.h"

#include <QAbstractTextDocumentLayout>
#include <QMimeData>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>

#include "platform/TextDrawing.h"
#include "shell/TextLimits.h"

namespace morvane {
namespace {

/// Qt would need minutes for longer or deeper mark-up; its plain text is used instead.
constexpr qsizetype kMaxMarkup = 50'000;
constexpr int kMaxNesting = 10;

/// The mark-up with table cells replaced by paragraphs. No table is kept, and Qt would need minutes
/// to lay out a cell that spans thousands of others.
QString WithoutTables(QString markup) {
  static const QRegularExpression kTags(
      "<(/?)(table|thead|tbody|tfoot|caption|col|colgroup|tr|td|th)\\b",
      QRegularExpression::CaseInsensitiveOption);
  return markup.replace(kTags, "<\\1p");
}

/// Qt needs twice the time for each level of nested tables or lists. Their number limits the depth.
bool MayBeDeep(const QString& markup) {
  return markup.count("<table", Qt::CaseInsensitive) > kMaxNesting ||
         markup.count("<ul", Qt::CaseInsensitive) > kMaxNesting ||
         markup.count("<ol", Qt::CaseInsensitive) > kMaxNesting;
}

}  // namespace

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent) {
  setTabChangesFocus(true);
  QPalette paper = palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  setPalette(paper);
  mapDevice_.setDotsPerMeterX(kDotsPerMetre);
  mapDevice_.setDotsPerMeterY(kDotsPerMetre);
  document()->documentLayout()->setPaintDevice(&mapDevice_);
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const {
  return source->hasText() || source->hasHtml();
}

void RichTextBox::insertFromMimeData(const QMimeData* source) {
  const QString markup = source->hasHtml() ? source->html() : QString();
  textCursor().removeSelectedText();
  if (markup.isEmpty() || markup.size() > kMaxMarkup || MayBeDeep(markup)) {
    insertPlainText(TextLimits(*document()).Take(source->text(), currentCharFormat()));
    return;
  }
  ClosedDocument pasted;
  pasted.setHtml(WithoutTables(markup));
  Insert(pasted);
}

void RichTextBox::Format(QTextCharFormat format) {
  format.setFontPointSize(TextLimits::FittingPointSize(format.fontPointSize(), *document()));
  mergeCurrentCharFormat(format);
}

void RichTextBox::Insert(const QTextDocument& pasted) {
  TextLimits limits(*document());
  QTextCursor cursor = textCursor();
  // Without an edit block the paragraph would be laid out again for every piece.
  cursor.beginEditBlock();
  for (QTextBlock block = pasted.begin(); block.isValid() && !limits.IsFull();
       block = block.next()) {
    if (block != pasted.begin()) {
      limits.Take("\n", {});
      cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    }
    for (auto part = block.begin(); !part.atEnd() && !limits.IsFull(); ++part) {
      const QTextCharFormat kept = limits.Fit(part.fragment().charFormat());
      const QString text = part.fragment().text().remove(QChar::ObjectReplacementCharacter);
      cursor.insertText(limits.Take(text, kept), kept);
    }
  }
  cursor.endEditBlock();
  setTextCursor(cursor);
}

}  // namespace morvane

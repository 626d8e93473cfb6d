#include "shell/RichTextBox.h"

#include <QAbstractTextDocumentLayout>
#include <QMimeData>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>

#include "platform/TextDrawing.h"

namespace morvane {
namespace {

/// No map has room for more letters than this.
constexpr qsizetype kMostLetters = 20'000;
/// Changes of format in one piece of pasted text; the rest comes as plain text.
constexpr int kMostRuns = 500;
/// Longer or deeper mark-up would keep the toolkit busy for minutes; its plain text is taken.
constexpr qsizetype kMostMarkup = 50'000;
constexpr int kDeepestMarkup = 10;

/// What formatting of a pasted text is kept: font, size, four effects and an opaque colour.
QTextCharFormat KeptFormat(const QTextCharFormat& pasted) {
  QTextCharFormat kept;
  for (const int property :
       {QTextFormat::FontFamilies, QTextFormat::FontPointSize, QTextFormat::FontPixelSize,
        QTextFormat::FontWeight, QTextFormat::FontItalic, QTextFormat::FontStrikeOut,
        QTextFormat::TextUnderlineStyle}) {
    if (pasted.hasProperty(property)) kept.setProperty(property, pasted.property(property));
  }
  if (pasted.hasProperty(QTextFormat::ForegroundBrush)) {
    QColor color = pasted.foreground().color();
    color.setAlpha(255);
    kept.setForeground(color);
  }
  return kept;
}

/// The mark-up with paragraphs in the place of table cells. No table is kept, and a cell that
/// spans thousands of others would take the toolkit minutes to lay out.
QString WithoutTables(QString markup) {
  static const QRegularExpression kTags(
      "<(/?)(table|thead|tbody|tfoot|caption|col|colgroup|tr|td|th)\\b",
      QRegularExpression::CaseInsensitiveOption);
  return markup.replace(kTags, "<\\1p");
}

/// Tables in tables cost the toolkit twice the time for each level.
bool IsDeep(const QString& markup) {
  return markup.count("<table", Qt::CaseInsensitive) > kDeepestMarkup ||
         markup.count("<ul", Qt::CaseInsensitive) > kDeepestMarkup ||
         markup.count("<ol", Qt::CaseInsensitive) > kDeepestMarkup;
}

}  // namespace

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent) {
  setDocument(new ClosedDocument(this));
  setTabChangesFocus(true);
  QPalette paper = palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  setPalette(paper);
  mapFineness_.setDotsPerMeterX(kDotsPerMetre);
  mapFineness_.setDotsPerMeterY(kDotsPerMetre);
  document()->documentLayout()->setPaintDevice(&mapFineness_);
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const {
  return source->hasText() || source->hasHtml();
}

void RichTextBox::insertFromMimeData(const QMimeData* source) {
  const QString markup = source->hasHtml() ? source->html() : QString();
  textCursor().removeSelectedText();
  qsizetype room = std::max<qsizetype>(0, kMostLetters - document()->characterCount());
  if (markup.isEmpty() || markup.size() > kMostMarkup || IsDeep(markup)) {
    insertPlainText(source->text().left(room));
    return;
  }
  // The pasted document is taken apart and told again: pictures, tables and lists stay outside.
  ClosedDocument pasted;
  pasted.setHtml(WithoutTables(markup));
  QTextCursor cursor = textCursor();
  int runs = 0;
  for (QTextBlock block = pasted.begin(); block.isValid() && room > 0; block = block.next()) {
    if (block != pasted.begin()) {
      cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
      --room;
    }
    for (auto part = block.begin(); !part.atEnd() && room > 0; ++part) {
      const QString text =
          part.fragment().text().remove(QChar::ObjectReplacementCharacter).left(room);
      const bool keeps = ++runs <= kMostRuns;
      cursor.insertText(text, keeps ? KeptFormat(part.fragment().charFormat()) : QTextCharFormat());
      room -= text.size();
    }
  }
  setTextCursor(cursor);
}

}  // namespace morvane

#include "shell/RichTextBox.h"

#include <QMimeData>
#include <QTextDocumentFragment>

#include "platform/TextDrawing.h"

namespace morvane {
namespace {

/// No map has room for more letters than this.
constexpr qsizetype kMostLetters = 20'000;
/// Formatted text is mostly mark-up; longer than this it is taken as plain text.
constexpr qsizetype kMostMarkup = 500'000;

/// A picture in a text is fetched as soon as the text is laid out, so it must not get that far.
void RemovePictures(QTextDocument& document) {
  const QString picture(QChar::ObjectReplacementCharacter);
  for (QTextCursor found = document.find(picture); !found.isNull();
       found = document.find(picture, found)) {
    found.removeSelectedText();
  }
}

}  // namespace

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent) {
  setDocument(new ClosedDocument(this));
  setTabChangesFocus(true);
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const {
  return source->hasText() || source->hasHtml();
}

void RichTextBox::insertFromMimeData(const QMimeData* source) {
  const QString markup = source->hasHtml() ? source->html() : QString();
  if (!markup.isEmpty() && markup.size() <= kMostMarkup) {
    ClosedDocument pasted;
    pasted.setHtml(markup);
    RemovePictures(pasted);
    textCursor().insertFragment(QTextDocumentFragment(&pasted));
  } else {
    insertPlainText(source->text().left(kMostLetters));
  }
}

}  // namespace morvane

#include "platform/TextDrawing.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextCursor>

#include "platform/Images.h"

namespace morvane {
namespace {

void DisableAntialiasing(QTextDocument& document) {
  QTextCharFormat hard;
  hard.setFontStyleStrategy(
      static_cast<QFont::StyleStrategy>(QFont::NoAntialias | QFont::NoSubpixelAntialias));
  // Without anti-aliasing, text is legible only with full hinting.
  hard.setFontHintingPreference(QFont::PreferFullHinting);
  QTextCursor all(&document);
  all.select(QTextCursor::Document);
  all.mergeCharFormat(hard);
}

}  // namespace

void DrawRichText(const std::string& text, Picture& picture) {
  const Surface surface = picture.Draw();
  QImage image = ImageOver(surface);
  image.setDotsPerMeterX(kDotsPerMetre);
  image.setDotsPerMeterY(kDotsPerMetre);

  ClosedDocument document;
  document.setDocumentMargin(0);
  document.setHtml(QString::fromStdString(text));
  DisableAntialiasing(document);
  document.documentLayout()->setPaintDevice(&image);
  document.setTextWidth(surface.width);

  QPainter painter(&image);
  painter.setRenderHint(QPainter::TextAntialiasing, false);
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = QRectF(image.rect());
  context.palette.setColor(QPalette::Text, Qt::black);
  document.documentLayout()->draw(&painter, context);
  painter.end();
  MakeOpaque(surface);
}

}  // namespace morvane

#include "shell/TextLimits.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <array>

namespace morvane {
namespace {

constexpr double kPointsPerPixel = 72.0 / 96;
/// In pixels. Smaller characters count as this size.
constexpr double kSmallFontSize = 16;
/// The sum of the sizes of all characters: enough for 10,000 small ones, several times what fits on
/// the map.
constexpr double kMaxTotalSize = 10'000 * kSmallFontSize;
/// The number of format changes.
constexpr int kMaxRuns = 500;
/// The number of different fonts; each is looked up again for every script in the text.
constexpr qsizetype kMaxFonts = 64;

constexpr std::array kFontProperties = {QTextFormat::FontFamilies, QTextFormat::FontPointSize,
                                        QTextFormat::FontPixelSize, QTextFormat::FontWeight,
                                        QTextFormat::FontItalic};

void CopyProperty(QTextFormat::Property property, const QTextCharFormat& from,
                  QTextCharFormat& to) {
  if (from.hasProperty(property)) to.setProperty(property, from.property(property));
}

/// Also replaces NaN, which a pasted size may be.
double LimitedPoints(double points, double maxPixels) {
  const double maxPoints = std::min<double>(maxPixels, kMaxFontSize) * kPointsPerPixel;
  return points <= maxPoints ? points : maxPoints;
}

void LimitSize(QTextCharFormat& format) {
  if (format.hasProperty(QTextFormat::FontPointSize)) {
    format.setFontPointSize(LimitedPoints(format.fontPointSize(), kMaxFontSize));
  }
  if (format.hasProperty(QTextFormat::FontPixelSize)) {
    const int pixels = format.intProperty(QTextFormat::FontPixelSize);
    format.setProperty(QTextFormat::FontPixelSize, std::min(pixels, kMaxFontSize));
  }
}

/// The size that one character counts as, in pixels.
double HeightOf(const QTextCharFormat& format) {
  return std::max({kSmallFontSize, format.fontPointSize() / kPointsPerPixel,
                   double(format.intProperty(QTextFormat::FontPixelSize))});
}

/// A format with nothing but the font of another one.
QTextCharFormat FontOf(const QTextCharFormat& format) {
  QTextCharFormat font;
  for (const QTextFormat::Property property : kFontProperties) CopyProperty(property, format, font);
  return font;
}

}  // namespace

TextLimits::TextLimits(const QTextDocument& document)
    : height_(kMaxTotalSize - document.blockCount() * kSmallFontSize) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextCharFormat format = part.fragment().charFormat();
      height_ -= part.fragment().length() * HeightOf(format);
      ++runs_;
      if (!fonts_.contains(FontOf(format))) fonts_.append(FontOf(format));
    }
  }
}

qsizetype TextLimits::FittingLength(const QTextCharFormat& format) const {
  return std::max<qsizetype>(0, static_cast<qsizetype>(height_ / HeightOf(format)));
}

QString TextLimits::Take(const QString& text, const QTextCharFormat& format) {
  QString taken = text.left(FittingLength(format));
  height_ -= static_cast<double>(taken.size()) * HeightOf(format);
  return taken;
}

QTextCharFormat TextLimits::Fit(const QTextCharFormat& pasted) {
  if (++runs_ > kMaxRuns) return {};
  QTextCharFormat kept = FontOf(pasted);
  LimitSize(kept);
  const bool isNew = !fonts_.contains(kept);
  if (isNew && fonts_.size() >= kMaxFonts) {
    kept = QTextCharFormat();
  } else if (isNew) {
    fonts_.append(kept);
  }
  CopyProperty(QTextFormat::FontStrikeOut, pasted, kept);
  CopyProperty(QTextFormat::TextUnderlineStyle, pasted, kept);
  if (pasted.hasProperty(QTextFormat::ForegroundBrush)) {
    QColor color = pasted.foreground().color();
    color.setAlpha(255);
    kept.setForeground(color);
  }
  return kept;
}

double TextLimits::FittingPointSize(double points, const QTextDocument& document) {
  return LimitedPoints(points, kMaxTotalSize / document.characterCount());
}

}  // namespace morvane

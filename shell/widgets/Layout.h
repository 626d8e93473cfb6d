#pragma once

#include <QFont>
#include <QRect>
#include <QString>

namespace morvane {

/// Converts a designed measure: twips, 15 to the pixel.
constexpr int Px(int twips) {
  return twips / 15;
}

/// The place of a control, in pixels, for its designed place in twips.
constexpr QRect PlaceOf(int left, int top, int width, int height) {
  return {Px(left), Px(top), Px(width), Px(height)};
}

/// Gives a control its name and its place.
template <typename Control>
Control* Placed(Control* control, const QString& name, const QRect& place) {
  control->setObjectName(name);
  control->setGeometry(place);
  return control;
}

/// Text sizes in pixels, so that texts fit their places whatever the desktop's font is.
inline constexpr int kSmallText = 11;  // 8.25 points
inline constexpr int kLabelText = 12;  // 9 points

inline QFont ArialFont(int pixels, bool bold = false) {
  QFont font("Arial");
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(pixels);
  font.setBold(bold);
  return font;
}

}  // namespace morvane

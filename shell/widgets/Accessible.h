#pragma once

#include <QAccessible>
#include <QSize>
#include <QString>

class QComboBox;
class QWidget;

namespace morvane {

/// Tells assistive technology what a control is, where its class alone would mislead. To be told
/// before anything else about the control.
void SetRole(QWidget* control, QAccessible::Role role);

/// A size as it is spoken: "40 x 20 pixels".
QString SpokenSize(const QSize& size);

/// Has a screen reader speak the present entry of a drop-down list, and each one chosen.
void SpeakEntry(QComboBox* list);

/// Has a screen reader speak a text that the control shows now.
void Announce(QWidget* control, const QString& text);

}  // namespace morvane

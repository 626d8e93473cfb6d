#pragma once

#include <QAccessible>
#include <QSize>
#include <QString>

class QComboBox;
class QWidget;

namespace morvane {

/// Sets the accessible role of a control whose class alone would mislead. Call it before anything
/// else that concerns accessibility.
void SetRole(QWidget* control, QAccessible::Role role);

/// A size as it is spoken: "40 x 20 pixels".
QString SizeDescription(const QSize& size);

/// Makes screen readers speak the current entry of a drop-down list, and each new choice.
void AnnounceEntry(QComboBox* list);

/// Makes screen readers speak the new text of a control.
void Announce(QWidget* control, const QString& text);

}  // namespace morvane

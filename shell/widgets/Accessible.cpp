#include "shell/widgets/Accessible.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QVariant>

namespace morvane {
namespace {

constexpr const char* kRole = "accessibleRole";

QAccessibleInterface* ControlWithRole(const QString& /*className*/, QObject* object) {
  const QVariant role = object->property(kRole);
  if (!role.isValid()) return nullptr;
  return new QAccessibleWidget(qobject_cast<QWidget*>(object),
                               static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void SetRole(QWidget* control, QAccessible::Role role) {
  QAccessible::installFactory(&ControlWithRole);  // further calls change nothing
  control->setProperty(kRole, static_cast<int>(role));
}

QString SizeDescription(const QSize& size) {
  return QString("%1 x %2 pixels").arg(size.width()).arg(size.height());
}

void AnnounceEntry(QComboBox* list) {
  // Screen readers can't get the entry from Qt, but all of them read descriptions.
  QObject::connect(list, &QComboBox::currentIndexChanged, list, [list](int entry) {
    list->setAccessibleDescription(list->currentText());
    if (!QAccessible::isActive() || !list->hasFocus()) return;
    QAccessibleEvent chosen(list->view(), QAccessible::Focus);
    chosen.setChild(entry);
    QAccessible::updateAccessibility(&chosen);
  });
}

void Announce(QWidget* control, const QString& text) {
  control->setAccessibleName(text);
  // Screen readers speak a notification when it appears.
  if (!control->isVisible()) return;
  QAccessibleEvent shown(control, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&shown);
}

}  // namespace morvane

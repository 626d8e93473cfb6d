
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmSplash.h"
#include "shell/frmText.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

QString RoleOf(QWidget* control) {
  const int role = QAccessible::queryAccessibleInterface(control)->role();
  return QMetaEnum::fromType<QAccessible::Role>().valueToKey(role);
}

/// The values of properties that people notice, as numbers.
QString DetailsOf(const QWidget& control) {
  QStringList values;
  for (const char* name : {"focusPolicy", "mouseTracking", "acceptDrops", "readOnly", "textFormat",
                           "alignment", "default", "autoDefault", "checked"}) {
    const QVariant value = control.property(name);
    if (value.toInt() != 0) values << QString("%1 %2").arg(name).arg(value.toInt());
  }
  if (const auto* label = qobject_cast<const QLabel*>(&control); label && label->buddy()) {
    values << "label of " + label->buddy()->objectName();
  }
  return values.join(", ");
}

QString DescriptionOf(QWidget* control) {
  const QRect place = control->geometry();
  const QFont font = control->font();
  QString text;
  for (const char* property : {"text", "title", "plainText", "currentText", "windowTitle"}) {
    text += control->property(property).toString();
  }
  if (const auto* list = qobject_cast<const QComboBox*>(control)) {
    for (int i = 0; i < list->count(); ++i) text += ", " + list->itemText(i);
  }
  return QStringList{control->objectName(),
                     control->isWindow() ? "" : QString("%1,%2").arg(place.x()).arg(place.y()),
                     QString("%1x%2").arg(place.width()).arg(place.height()),
                     control->isHidden() ? "hidden" : "",
                     QString::number(font.pixelSize()) + (font.bold() ? " bold" : ""),
                     text,
                     control->toolTip(),
                     RoleOf(control),
                     control->accessibleName(),
                     control->accessibleDescription(),
                     DetailsOf(*control)}
      .join('|')
      .replace('\n', "\\n");
}

/// Describes the controls that have names, one a line.
QStringList ControlsOf(const QWidget& parent) {  // NOLINT(misc-no-recursion)
  QStringList lines;
  for (QWidget* control : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    const QString name = control->objectName();
    if (control->inherits("QMenuBar") || control->inherits("QTabBar")) continue;
    if (!name.isEmpty() && !name.startsWith("qt_")) lines << DescriptionOf(control);
    lines << ControlsOf(*control);
  }
  return lines;
}

QStringList EdgesOfCatalogue() {
  QStringList lines;
  for (const auto& [control, set, edge, direction, size] : EdgePictures()) {
    lines << QString("%1|set %2, kind %3, direction %4|%5x%6")
                 .arg(TextOf(control))
                 .arg(set)
                 .arg(static_cast<int>(edge))
                 .arg(static_cast<int>(direction))
                 .arg(size.width)
                 .arg(size.height);
  }
  return lines;
}

QStringList ActionsOf(const QList<QAction*>& actions) {  // NOLINT(misc-no-recursion)
  QStringList lines;
  for (const QAction* action : actions) {
    const QString check = action->isChecked() ? "checked" : "unchecked";
    lines << QStringList{action->objectName(),
                         action->text(),
                         action->shortcut().toString(),
                         action->toolTip(),
                         action->isVisible() ? "" : "hidden",
                         action->isEnabled() ? "" : "disabled",
                         action->isSeparator() ? "-" : "",
                         action->isCheckable() ? check : "",
                         action->icon().availableSizes().isEmpty() ? "" : "icon"}
                 .join('|');
    if (action->menu() != nullptr) lines << ActionsOf(action->menu()->actions());
  }
  return lines;
}

using Forms = FormFixture;

// Users know all names, places and texts, and screen readers need theirs. After a wanted change,
// copy forms.txt from the folder of the build.
TEST_F(Forms, AreDescribedInFormsTxt) {
  frmOptions options(document, &window);
  frmAbout about(platform, &window);
  frmText text("", &window);
  frmSplash splash;
  QStringList actual = ActionsOf(window.menuBar()->actions());
  actual << ActionsOf(Find<QToolBar>("tbToolBar")->actions());
  actual << ControlsOf(window);  // and of the dialogs that it owns
  actual << DescriptionOf(&splash) << EdgesOfCatalogue() << "";

  QFile current(QCoreApplication::applicationDirPath() + "/forms.txt");
  ASSERT_TRUE(current.open(QIODevice::WriteOnly));
  current.write(actual.join('\n').toUtf8());
  QFile published(MORVANE_FORMS);
  ASSERT_TRUE(published.open(QIODevice::ReadOnly));
  const QStringList expected = QString::fromUtf8(published.readAll()).split('\n');
  for (qsizetype i = 0; i < std::min(actual.size(), expected.size()); ++i) {
    EXPECT_EQ(actual[i].toStdString(), expected[i].toStdString()) << "line " << i + 1;
  }
  EXPECT_EQ(actual.size(), expected.size());
}

}  // namespace
}  // namespace morvane

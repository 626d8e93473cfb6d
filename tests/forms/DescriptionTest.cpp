// The controls of all forms, as users see them, reach them by keyboard and hear them.

#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmSplash.h"
#include "shell/frmText.h"
#include "shell/widgets/FontDialog.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// The values of properties that people notice, as numbers.
QString DetailsOf(const QWidget& control) {
  QStringList values;
  for (const char* name :
       {"focusPolicy", "mouseTracking", "acceptDrops", "readOnly", "textFormat", "alignment",
        "default", "autoDefault", "checked", "horizontalScrollBarPolicy"}) {
    const QVariant value = control.property(name);
    if (value.toInt() != 0) values << QString("%1 %2").arg(name).arg(value.toInt());
  }
  if (const auto* label = qobject_cast<const QLabel*>(&control); label && label->buddy()) {
    values << "label of " + label->buddy()->objectName();
  }
  return values.join(", ");
}

/// Transparent texts: their pixels depend on the version of the font library.
QPalette WithoutTexts(QPalette palette) {
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                          QPalette::HighlightedText, QPalette::PlaceholderText}) {
    QColor color = palette.color(role);
    color.setAlpha(0);
    palette.setColor(role, color);
  }
  return palette;
}

/// A checksum of what a control draws itself; none on high-DPI displays.
QString ChecksumOf(QWidget& control) {
  if (control.devicePixelRatioF() != 1 || control.size().isEmpty()) return "";
  QImage drawn(control.size(), QImage::Format_RGB32);
  drawn.fill(Qt::white);
  control.render(&drawn, {}, {}, QWidget::DrawWindowBackground);
  return QString(" {%1}").arg(qChecksum({drawn.constBits(), drawn.sizeInBytes()}), 0, 16);
}

/// The checksums of a control with light and with dark colours, which the test took.
QString ChecksumsOf(const QWidget& control) {
  return control.property("checksums").toString();
}

QString WithoutChecksums(QString text) {
  return text.remove(QRegularExpression("[ |]\\{\\w+\\}"));
}

QString DescriptionOf(QWidget* control) {
  const QRect place = control->geometry();
  const QFont font = control->font();
  const int role = QAccessible::queryAccessibleInterface(control)->role();
  QString text;
  for (const char* property : {"text", "title", "plainText", "currentText", "windowTitle"}) {
    text += control->property(property).toString();
  }
  if (const auto* list = qobject_cast<const QComboBox*>(control)) {
    for (int i = 0; i < list->count(); ++i) text += ", " + list->itemText(i);
  }
  QStringList parts;
  parts << control->objectName()
        << (control->isWindow() ? "" : QString("%1,%2").arg(place.x()).arg(place.y()))
        << QString("%1x%2").arg(place.width()).arg(place.height())
        << (control->isHidden() ? "hidden" : "")
        << QString::number(font.pixelSize()) + (font.bold() ? " bold" : "") << text
        << control->toolTip() << QMetaEnum::fromType<QAccessible::Role>().valueToKey(role)
        << control->accessibleName() << control->accessibleDescription() << DetailsOf(*control);
  if (!control->inherits("QLabel") || text.isEmpty()) parts << ChecksumsOf(*control);
  return parts.join('|').replace('\n', "\\n");
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
  for (const EdgePicture& edge : EdgePictures()) {
    const auto [left, top, right, bottom] = EdgeOnSheet(edge);
    lines << QString::asprintf("%s|set %d, kind %d, direction %d|%d,%d to %d,%d",
                               std::string(edge.control).c_str(), edge.set, int(edge.edge),
                               int(edge.direction), left, top, right, bottom);
  }
  return lines;
}

QStringList ActionsOf(const QList<QAction*>& actions) {  // NOLINT(misc-no-recursion)
  QStringList lines;
  for (const QAction* action : actions) {
    QStringList parts;
    const char* check = action->isChecked() ? "checked" : "unchecked";
    parts << (action->menu() != nullptr ? action->menu()->objectName() : action->objectName())
          << action->text() << action->shortcut().toString() << action->toolTip()
          << (action->isVisible() ? "" : "hidden") << (action->isEnabled() ? "" : "disabled")
          << (action->isSeparator() ? "-" : "") << (action->isCheckable() ? check : "")
          << (action->icon().availableSizes().isEmpty() ? "" : "icon");
    lines << parts.join('|');
    if (action->menu() != nullptr)
      lines << ChecksumsOf(*action->menu()) << ActionsOf(action->menu()->actions());
  }
  return lines;
}

QString NameOf(QWidget* control) {
  QString name = control->objectName();
  if (!name.isEmpty() && !name.startsWith("qt_")) return name;
  return QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
}

QWidget* FocusAfter(int key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  QCoreApplication::processEvents();
  return QApplication::focusWidget();
}

/// One round of the Tab key through a form, with the checksums of each stop with and without the
/// focus, and what a screen reader speaks.
QString TabStopsOf(QWidget& form) {
  form.show();
  form.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
  FocusAfter(Qt::Key_Tab);
  QWidget* const first = FocusAfter(Qt::Key_Tab, Qt::ShiftModifier);
  QStringList stops;
  QWidget* stop = first;
  heard.clear();
  do {
    const QImage withFocus = Shown(*stop);
    const QString checksum = ChecksumOf(*stop);
    QWidget* next = FocusAfter(Qt::Key_Tab);
    stops << NameOf(stop) + checksum + ChecksumOf(*stop);
    EXPECT_NE(Shown(*stop), withFocus) << stops.last().toStdString();
    EXPECT_NE(QAccessible::queryAccessibleInterface(stop)->text(QAccessible::Name), "");
    stop = next;
  } while (stop != first && stops.size() < 30);
  return "Tab: " + stops.join(", ") + "\nHeard: " + heard.join(", ");
}

/// Where the focus moves from each visible button with Home, Left, Up, Right, Down and End.
QStringList NeighboursIn(const QWidget& form) {
  QStringList lines;
  for (auto* button : form.findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || !button->isEnabled()) continue;
    QStringList names;
    for (const int key :
         {Qt::Key_Home, Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_End}) {
      button->setFocus();
      names << NameOf(FocusAfter(key));
    }
    lines << NameOf(button) + ": " + names.join(", ");
  }
  return lines;
}

/// Chooses a tab as screen readers do, which find it by its place.
QString ChooseTab(QTabBar& tabs, int index) {
  const QAccessibleInterface& strip = *QAccessible::queryAccessibleInterface(&tabs);
  const QPoint place = tabs.mapToGlobal(tabs.tabRect(index).center());
  QAccessibleInterface* tab = strip.childAt(place.x(), place.y());
  EXPECT_EQ(strip.indexOfChild(tab), index);
  EXPECT_EQ(strip.childAt(-9, -9), nullptr);
  EXPECT_EQ(tab->rect().center(), place);
  EXPECT_TRUE(tab->isValid() && tab->role() == QAccessible::PageTab);
  EXPECT_EQ(tab->parent(), &strip);
  tab->actionInterface()->doAction(tab->actionInterface()->actionNames().value(0));
  return tab->text(QAccessible::Name) + (tab->state().selected ? " selected" : "") +
         (tab->state().focused ? " focused" : "");
}

struct Forms : FormFixture {
  Forms() : FormFixture(&SpeckledSheet) {}
  /// The controls over which a move of the mouse hides the outline.
  QString HidingControls() {
    QStringList names;
    for (auto* control : window.findChildren<QWidget*>()) {
      const QPoint corner = control->rect().bottomRight() - QPoint(2, 2);
      if (!control->visibleRegion().contains(corner)) continue;
      palette.Shape1.Visible = true;
      QTest::mouseMove(control, corner);
      if (!palette.Shape1.Visible) names << NameOf(control);
    }
    return "Outline hidden over: " + names.join(", ");
  }
  /// Gives each control its checksums with light and with dark colours.
  static void TakeChecksums() {
    for (const QPalette& palette : {QPalette(), DarkPalette()}) {
      QApplication::setPalette(WithoutTexts(palette));
      QCoreApplication::processEvents();
      for (QWidget* control : QApplication::allWidgets()) {
        if (control->inherits("QMenu")) control->adjustSize();
        control->setProperty("checksums", ChecksumsOf(*control) + ChecksumOf(*control));
      }
    }
  }
  /// The tab stops and neighbours on every page.
  QStringList Navigation() {
    QStringList lines;
    auto* sets = Find<QComboBox>("TileSetSelector");
    for (int set = 0; set < sets->count(); ++set) {
      emit sets->activated(set);
      Find("Canvas")->setFocus();
      lines << TabStopsOf(window) << HidingControls();
      for (int page = 1; set < kBuiltInSets && page <= TileSets()[set].pageCount; ++page) {
        lines << ChooseTab(*Find(TextOf(TileSets()[set].tabStrip))->findChild<QTabBar*>(),
                           page - 1);
        lines << NeighboursIn(window);
      }
    }
    lines.removeDuplicates();
    return lines;
  }
};

// Users know all names, places and texts, and screen readers need theirs. After a wanted change,
// copy forms.txt, which the failed test wrote, from the folder of the build.
TEST_F(Forms, AreDescribedInFormsTxt) {
  frmOptions options(document, &window);
  frmAbout about(platform, &window);
  frmText insertText("", &window);
  frmSplash splash;
  TakeChecksums();
  QStringList actual = ActionsOf(window.menuBar()->actions());
  actual << ActionsOf(Find<QToolBar>("tbToolBar")->actions());
  actual << ControlsOf(window);  // and of the dialogs that it owns
  actual << "frmMain" + ChecksumsOf(*Client()) << DescriptionOf(&splash) << EdgesOfCatalogue()
         << Navigation() << QAccessible::queryAccessibleInterface(qApp)->text(QAccessible::Name);
  window.hide();
  for (QWidget* dialog : std::initializer_list<QWidget*>{&options, &about, &insertText}) {
    actual << TabStopsOf(*dialog);
    dialog->hide();
  }
  QApplication::setPalette(QPalette());
  actual << "";

  const QString text = actual.join('\n');
  const Bytes file = ReadFile(MORVANE_FORMS);
  const QString published = TextOf(std::string(file.begin(), file.end()));
  const bool isFine = window.devicePixelRatioF() != 1;
  EXPECT_EQ(text.toStdString(), (isFine ? WithoutChecksums(published) : published).toStdString());
  if (!HasFailure() || isFine) return;
  std::ofstream(QCoreApplication::applicationDirPath().toStdString() + "/forms.txt")
      << text.toStdString();
}

TEST_F(Forms, KeysOfTheWindow) {
  using enum Qt::Key;
  TabStopsOf(window);  // which activates it
  QWidget* tile = Find("pbmarking");
  const QImage plain = Shown(*tile);
  QTest::mouseMove(tile, {10, 10});
  EXPECT_NE(Shown(*tile), plain) << "under the pointer";
  tile->setFocus();
  EXPECT_EQ(NameOf(FocusAfter(Key_Space)), "Canvas");
  EXPECT_EQ(palette.Label2, "Marking");
  const QDeadlineTimer delay(600);  // ms, a little less than the delay of tool tips
  Find("WallButton")->setFocus(Qt::TabFocusReason);
  FocusAfter(Key_Return);
  EXPECT_EQ(palette.CurrentMode(), Mode::Wall);
  EXPECT_TRUE(QToolTip::text().isEmpty() || delay.hasExpired());
  EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text() == "Mode"; }));
  Press(5, 5);
  EXPECT_FALSE(window.testAttribute(Qt::WA_KeyboardFocusChange)) << "a focus mark after a click";
  Tool("Undo")->setFocus();
  EXPECT_EQ(FocusAfter(Key_Space), Tool("Redo")) << "Undo disables itself";
  FontDialog font(nullptr);
  EXPECT_EQ(font.currentFont().pointSize(), 10);
  EXPECT_TRUE(WithoutChecksums(TabStopsOf(font)).contains("Any, Color, OK"));
}

}  // namespace
}  // namespace morvane

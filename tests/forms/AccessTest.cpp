// What can be reached by keyboard, and what a screen reader says there.

#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmText.h"
#include "shell/widgets/FontDialog.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

/// The role of a control, its name, its description or state, and its tabs.
QString Spoken(QWidget* widget) {
  QAccessibleInterface& control = *QAccessible::queryAccessibleInterface(widget);
  const QString name = control.text(QAccessible::Name);
  QString line = QMetaEnum::fromType<QAccessible::Role>().valueToKey(control.role());
  if (!name.isEmpty()) line += ' ' + name;
  QString detail = control.text(QAccessible::Description);
  if (control.state().checkable) detail = control.state().checked ? "checked" : "not checked";
  if (!detail.isEmpty() && detail != name) line += " = " + detail;
  for (int i = 0; control.role() == QAccessible::PageTabList && i < control.childCount(); ++i) {
    QAccessibleInterface& tab = *control.child(i);
    line += (tab.state().selected ? " *" : " ") + tab.text(QAccessible::Name);
  }
  return line;
}

QWidget* FocusAfter(int key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  return QApplication::focusWidget();
}

QString SpokenAfter(std::initializer_list<Qt::Key> keys) {
  for (const Qt::Key key : keys) FocusAfter(key);
  return Spoken(QApplication::focusWidget());
}

/// One round of the Tab key through a form. Each stop must look different with the focus.
std::string Round(QWidget& form) {
  form.show();
  form.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
  FocusAfter(Qt::Key_Tab);
  QWidget* const first = FocusAfter(Qt::Key_Tab, Qt::ShiftModifier);
  QStringList lines;
  QWidget* stop = first;
  do {
    lines << Spoken(stop);
    const QImage withFocus = stop->grab().toImage();
    QWidget* next = FocusAfter(Qt::Key_Tab);
    EXPECT_NE(stop->grab().toImage(), withFocus) << lines.last().toStdString();
    stop = next;
  } while (stop != first && lines.size() < 30);
  return lines.join(", ").toStdString();
}

using Access = FormFixture;

TEST_F(Access, EveryControlOfTheWindowIsReachedAndSpoken) {
  const std::string start =
      "Canvas Map = 615 x 483 pixels, Button New, Button Mode = Tile, Button Flip Vertical, "
      "Button Flip Horizontal, Button Rotate Left, Button Rotate Right, ";
  Find("Canvas")->setFocus();
  EXPECT_EQ(Round(window), start +
                               "ComboBox Abandoned Cathedral, PageTabList Pages *Tiles Furniture "
                               "Various, Button Floor = 20 x 20 pixels");
  emit Find<QComboBox>("TileSetSelector")->activated(kCustomSet);
  Find("Canvas")->setFocus();
  EXPECT_EQ(Round(window), start +
                               "ComboBox Custom, ComboBox /, List Folder, "
                               "List Custom tile pictures");
}

TEST_F(Access, EveryControlOfTheDialogsIsReachedAndSpoken) {
  window.hide();
  frmOptions options(document, nullptr);
  EXPECT_EQ(Round(options),
            "EditableText Map Directory:, Button Choose the map directory, "
            "EditableText Custom Directory:, Button Choose the custom directory, "
            "Button Palette... = Red 255, green 255, blue 255, "
            "Button Palette... = Red 192, green 192, blue 192, "
            "CheckBox Gridlines = not checked, Button OK, Button Cancel");
  frmAbout about(platform, nullptr);
  EXPECT_EQ(Round(about), "Button OK, Button A flagstone");
  frmText text("", nullptr);
  EXPECT_EQ(Round(text), "EditableText Text, Button OK, Button Font...");
  FontDialog font(nullptr);
  const std::string stops = Round(font);
  EXPECT_NE(stops.find("ComboBox Any, ComboBox Black, "), std::string::npos) << stops;
}

TEST_F(Access, KeysDoWhatTheMouseCan) {
  using enum Qt::Key;
  window.activateWindow();
  Find("Canvas")->setFocus();
  FocusAfter(Key_Tab, Qt::ShiftModifier);
  EXPECT_EQ(SpokenAfter({Key_End, Key_Up, Key_Home, Key_Right, Key_Right, Key_Right, Key_Down}),
            "Button Small Fountain = 20 x 20 pixels");
  EXPECT_EQ(SpokenAfter({Key_Space}), "Canvas Map = 615 x 483 pixels");
  EXPECT_EQ(palette.Label2, "Small Fountain");
  EXPECT_EQ(SpokenAfter({Key_Tab, Key_Tab, Key_Return}), "Button Mode = Wall");
  EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text() == "Mode"; }));
  // Undo disables itself; the focus stays in the tool bar.
  FocusAfter(Key_Tab, Qt::ShiftModifier);
  EXPECT_EQ(SpokenAfter({Key_End, Key_Left, Key_Left, Key_Left, Key_Left, Key_Space}),
            "Button Redo");
}

}  // namespace
}  // namespace morvane

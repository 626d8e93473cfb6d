#include <QAccessible>
#include <QComboBox>
#include <QTabBar>
#include <QTextEdit>

#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmText.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

using Lines = QStringList;

/// What a screen reader says of a control: its role, name, description and state.
QString SpokenLine(QAccessibleInterface& control) {
  static const std::map<QAccessible::Role, QString> kRoles = {
      {QAccessible::Button, "button"},     {QAccessible::CheckBox, "check box"},
      {QAccessible::Canvas, "canvas"},     {QAccessible::ComboBox, "combo box"},
      {QAccessible::EditableText, "text"}, {QAccessible::List, "list"},
      {QAccessible::PageTab, "tab"},       {QAccessible::PageTabList, "tabs"}};
  const auto role = kRoles.find(control.role());
  QString line = role != kRoles.end() ? role->second : QString::number(control.role());
  line += ' ' + control.text(QAccessible::Name);
  QString detail = control.text(QAccessible::Description);
  if (control.state().checkable) detail = control.state().checked ? "checked" : "not checked";
  return detail.isEmpty() || detail == control.text(QAccessible::Name) ? line
                                                                       : line + " = " + detail;
}

QString FocusLine() {
  return SpokenLine(*QAccessible::queryAccessibleInterface(QApplication::focusWidget()));
}

/// One round of the Tab key through a window. Each stop must show that it has the focus.
Lines Round(QWidget& form) {
  form.show();
  form.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
  Lines lines;
  const QWidget* first = QApplication::focusWidget();
  do {
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr || lines.size() > 30) return lines << "no round";
    lines << FocusLine();
    const QImage with = form.grab().toImage();
    QTest::keyClick(focus, Qt::Key_Tab);
    EXPECT_NE(form.grab().toImage(), with) << lines.last().toStdString();
  } while (QApplication::focusWidget() != first);
  return lines;
}

using Access = FormFixture;

TEST_F(Access, TabGoesRoundEachWindow) {
  const Lines start = {"canvas Map = 615 x 483 pixels",
                       "button New",
                       "button Mode = Tile",
                       "button Flip Vertical",
                       "button Flip Horizontal",
                       "button Rotate Left",
                       "button Rotate Right"};
  const Lines tiles = {"combo box Abandoned Cathedral", "tabs Pages",
                       "button Floor = 20 x 20 pixels"};
  const Lines files = {"combo box Custom", "combo box /", "list Folder",
                       "list Custom tile pictures"};
  Find("Canvas")->setFocus();
  EXPECT_EQ(Round(window).join(", ").toStdString(), (start + tiles).join(", ").toStdString());
  emit Find<QComboBox>("TileSetSelector")->activated(kCustomSet);
  Find("Canvas")->setFocus();
  EXPECT_EQ(Round(window).join(", ").toStdString(), (start + files).join(", ").toStdString());
  window.hide();
  frmOptions options(form.document, nullptr);
  const Lines inOptions = {"text Map Directory:",
                           "button Choose the map directory",
                           "text Custom Directory:",
                           "button Choose the custom directory",
                           "button Palette... = Red 255, green 255, blue 255",
                           "button Palette... = Red 192, green 192, blue 192",
                           "check box Gridlines = not checked",
                           "button OK",
                           "button Cancel"};
  EXPECT_EQ(Round(options).join(", ").toStdString(), (inOptions).join(", ").toStdString());
  frmAbout about(platform, nullptr);
  const Lines inAbout = {"button OK", "button A flagstone"};
  EXPECT_EQ(Round(about).join(", ").toStdString(), (inAbout).join(", ").toStdString());
  frmText text("", nullptr);
  const Lines inText = {"text Text", "button OK", "button Font..."};
  EXPECT_EQ(Round(text).join(", ").toStdString(), (inText).join(", ").toStdString());
}

TEST_F(Access, GroupsAndTabsHaveNames) {
  EXPECT_EQ(Find("tbToolBar")->accessibleName(), "Commands");
  QAccessibleInterface* tabs =
      QAccessible::queryAccessibleInterface(Find("TabStrip1")->findChild<QTabBar*>());
  Lines names;
  for (int i = 0; i < tabs->childCount(); ++i) {
    QAccessibleInterface* tab = tabs->child(i);
    names << tab->text(QAccessible::Name) + (tab->state().selected ? "*" : "");
  }
  EXPECT_EQ(names.join(' ').toStdString(), "Tiles* Furniture Various");
}

TEST_F(Access, KeysDoWhatTheMouseCan) {
  window.activateWindow();
  Find("Canvas")->setFocus();
  const auto focusAfter =
      [](std::initializer_list<std::pair<Qt::Key, Qt::KeyboardModifiers>> keys) {
        for (const auto& [key, modifiers] : keys) {
          QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        }
        return FocusLine();
      };
  EXPECT_EQ(focusAfter({{Qt::Key_Tab, Qt::ShiftModifier},
                        {Qt::Key_Right, {}},
                        {Qt::Key_Right, {}},
                        {Qt::Key_Right, {}},
                        {Qt::Key_Down, {}}}),
            "button Small Fountain = 20 x 20 pixels");
  EXPECT_EQ(focusAfter({{Qt::Key_Space, {}}}), "canvas Map = 615 x 483 pixels");
  EXPECT_EQ(form.palette.Label2, "Small Fountain");
  EXPECT_EQ(focusAfter({{Qt::Key_Tab, {}}, {Qt::Key_Tab, {}}, {Qt::Key_Return, {}}}),
            "button Mode = Wall");
  // Undo disables itself; the focus stays in the tool bar.
  EXPECT_EQ(focusAfter({{Qt::Key_Tab, Qt::ShiftModifier},
                        {Qt::Key_End, {}},
                        {Qt::Key_Left, {}},
                        {Qt::Key_Left, {}},
                        {Qt::Key_Left, {}},
                        {Qt::Key_Left, {}},
                        {Qt::Key_Space, {}}}),
            "button Redo");
}

}  // namespace
}  // namespace morvane

#include <set>

#include "palette/PalettePages.h"
#include "shell/widgets/Text.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

struct Keyboard : FormFixture {
  static QWidget* After(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    return QApplication::focusWidget();
  }
};

TEST_F(Keyboard, ArrowsReachEveryItemOfEveryPage) {
  window.activateWindow();
  for (int set = 0; set < kBuiltInSets; ++set) {
    TileSetSelector_Click(form.palette, set);
    for (int page = 1; page <= TileSets()[set].pageCount; ++page) {
      TabStrip_Click(form.palette, set, page);
      window.ShowState();
      Find("Canvas")->setFocus();
      QWidget* item = After(Qt::Key_Tab, Qt::ShiftModifier);
      std::set<QWidget*> inOrder = {item};
      QWidget* last = nullptr;
      for (; item != last; item = After(Qt::Key_Right)) {
        ASSERT_TRUE(last == nullptr || inOrder.insert(item).second) << "the page is a circle";
        last = item;
      }
      for (QWidget* start : inOrder) {
        for (const int key : {Qt::Key_Up, Qt::Key_Down}) {
          start->setFocus();
          QWidget* target = After(key);
          ASSERT_EQ(target->parentWidget(), start->parentWidget());
          if (target == start) continue;  // the edge of the page
          ASSERT_EQ(target->y() > start->y(), key == Qt::Key_Down)
              << start->objectName().toStdString();
        }
      }
      const QWidget* frame = last->parentWidget();
      EXPECT_EQ(std::ssize(inOrder), frame->findChildren<QWidget*>().size());
      EXPECT_EQ(After(Qt::Key_Home)->pos(), QPoint());
      EXPECT_EQ(After(Qt::Key_End), last);
      EXPECT_EQ(After(Qt::Key_Tab), Find("Canvas"));
    }
  }
}

}  // namespace
}  // namespace morvane

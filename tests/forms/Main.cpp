#include <gtest/gtest.h>

#include <QApplication>

#include "shell/widgets/FocusStyle.h"
#include "shell/widgets/WholeScale.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // Listing the tests, as the build does, needs no window system.
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  // Without the dialogs and colours of the desktop that the tests run on, and without its printers.
  qputenv("QT_QPA_PLATFORMTHEME", "generic");
  qputenv("CUPS_SERVER", "localhost:1");
  morvane::UseWholeScaleFactors();
  const QApplication application(argc, argv);
  QApplication::setStyle(new morvane::FocusStyle);
  return RUN_ALL_TESTS();
}

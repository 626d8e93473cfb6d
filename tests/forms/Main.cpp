#include <gtest/gtest.h>

#include <QApplication>

#include "shell/Module1.h"
#include "shell/widgets/WholeScale.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // The build lists the tests, which must not need a window system.
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  // Independent of the dialogs, colours, printers and time zone of the desktop.
  qputenv("QT_QPA_PLATFORMTHEME", "generic");
  qputenv("CUPS_SERVER", "localhost:1");
  qputenv("TZ", "UTC");
  morvane::UseWholeScaleFactors();
  const QApplication application(argc, argv);
  morvane::SetUpApplication();
  return RUN_ALL_TESTS();
}

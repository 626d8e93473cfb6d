#pragma once

#include "shell/widgets/WholeScale.h"
#include "tests/support/Child.h"

namespace morvane {

/// A display in memory and what the environment says of it.
struct Display {
  QSize size = {1200, 900};  ///< in pixels of forms
  int dpi = 96;              ///< what the desktop asks for
  std::vector<std::pair<const char*, const char*>> environment = {};
  int zoom = 1;  ///< what must come of it
};

inline QByteArray DescriptionOf(const Display& display) {
  return QString(R"({"screens":[{"name":"wide","x":0,"y":0,"width":%1,"height":%2,)"
                 R"("logicalDpi":%3,"logicalBaseDpi":96,"dpr":1}]})")
      .arg(display.size.width() * display.zoom)
      .arg(display.size.height() * display.zoom)
      .arg(display.dpi)
      .toUtf8();
}

/// Runs a check on the whole editor on a display, in a process of its own.
inline void On(const Display& display, const std::function<void(Session::Window&)>& check) {
  EXPECT_EQ(RunInChild([&] {
              const QTemporaryDir folder;
              QFile description(folder.filePath("display.json"));
              ASSERT_TRUE(description.open(QIODevice::WriteOnly));
              description.write(DescriptionOf(display));
              description.close();
              qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + description.fileName().toUtf8());
              for (const auto& [name, value] : display.environment) qputenv(name, value);
              UseWholeScaleFactors();
              Session session;
              check(session.editor);
            }),
            0);
}

}  // namespace morvane

#pragma once

#include <QComboBox>
#include <QTextEdit>
#include <QTimer>

#include "platform/MapPrinter.h"
#include "platform/QtDialogs.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "shell/frmText.h"
#include "shell/widgets/FontDialog.h"
#include "tests/support/Displays.h"

namespace morvane {

/// Opens a dialog that waits for its user, looks at it and cancels it.
inline void LookInto(const std::function<void()>& open, const std::function<void(QWidget&)>& look) {
  bool seen = false;
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    look(*dialog);
    dialog->reject();
    seen = true;
  });
  open();
  EXPECT_TRUE(seen);
}

/// Shows each form and dialog in turn.
inline void ForEachForm(Session::Window& editor, const std::function<void(QWidget&)>& look) {
  const auto show = [&look](QWidget& form) {
    SCOPED_TRACE(form.windowTitle().toStdString());
    form.show();
    QCoreApplication::processEvents();
    look(form);
  };
  auto* sets = editor.Find<QComboBox>("TileSetSelector");
  for (int set = 0; set < sets->count(); ++set) {
    emit sets->activated(set);
    show(editor.window);
  }
  frmOptions options(editor.form.document, &editor.window);
  show(options);
  frmAbout about(editor.platform, &editor.window);
  show(about);
  frmText text("", &editor.window);
  text.findChild<QTextEdit*>()->setCursorWidth(0);
  text.findChild<QTextEdit*>()->setTextColor(Qt::black);
  text.findChild<QTextEdit*>()->insertPlainText("Text");
  show(text);
  FontDialog font(&text);
  show(font);
  std::uint32_t color = 0;
  LookInto([&] { AskForColor(&options, color); }, show);
  FileDialog dialog{"Open", "Map files (*.bmp)|*.bmp", "", ""};
  LookInto([&] { AskForFile(&editor.window, dialog, FileDialogMode::Open, "/"); }, show);
  LookInto([&] { AskForFolder(&options, "Select the directory"); }, show);
  LookInto([] { MapPrinter().ShowSetup(nullptr, "Print Setup"); }, show);
  LookInto([] { ShowMessage(nullptr, "Are you sure?", BoxStyle::YesNoCancelQuestion, "Save?"); },
           show);
}

}  // namespace morvane

#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>
#include <deque>
#include <filesystem>
#include <new>

#include "platform/QtPlatform.h"
#include "shell/ArtSheets.h"
#include "shell/frmMain.h"
#include "tests/support/Difference.h"
#include "tests/support/FakePlatform.h"

namespace morvane {

/// The real platform with scripted dialogs.
class ScriptedPlatform : public QtPlatform, public DialogScript {
 public:
  Answer MsgBox(const std::string& text, BoxStyle style, const std::string& title) override {
    ShowState();
    return Box(text, style, title);
  }
  std::string ShowOpen(const FileDialog& dialog) override {
    if (memoryRunsOut) throw std::bad_alloc();
    return File(dialog);
  }
  std::string ShowSave(const FileDialog& dialog) override { return File(dialog); }
  std::string BrowseForFolder(const std::string& title) override { return Folder(title); }
  void ShowColor(std::uint32_t& color) override { Color(color); }
  Failure Print(const PictureView& /*picture*/) override {
    ++prints;
    return {};
  }

  int prints = 0;
  bool memoryRunsOut = false;  ///< in the Open dialog
};

/// Temporary folders as current directory and for private files.
class StartFolder {
 public:
  StartFolder() {
    QDir::setCurrent(folder_.path());
    qputenv("XDG_STATE_HOME", QFile::encodeName(state_.path()));
  }
  StartFolder(const StartFolder&) = delete;
  StartFolder& operator=(const StartFolder&) = delete;
  ~StartFolder() {
    QDir::setCurrent(before_);
    qunsetenv("XDG_STATE_HOME");
    // QTemporaryDir doesn't delete names that aren't UTF-8.
    std::error_code none;
    std::filesystem::remove_all(folder_.path().toStdString(), none);
  }
  std::string File(const char* name) const { return folder_.filePath(name).toStdString(); }

 private:
  QString before_ = QDir::currentPath();
  QTemporaryDir folder_;
  QTemporaryDir state_;
};

/// A screenshot of a widget in logical pixels.
inline QImage Shown(QWidget& widget) {
  QImage shown(widget.size(), QImage::Format_RGB32);
  const QImage fine = widget.grab().toImage();
  const int zoom = qRound(fine.devicePixelRatio());
  for (int y = 0; y < shown.height(); ++y) {
    for (int x = 0; x < shown.width(); ++x) shown.setPixel(x, y, fine.pixel(x * zoom, y * zoom));
  }
  return shown;
}

/// The real main window, started in a temporary folder.
struct FormFixture : testing::Test {
  StartFolder folder;
  ScriptedPlatform platform;
  MainForm form{platform, &LoadArtSheet};
  frmMain window{form};

  FormFixture() {
    platform.SetWindow(&window, [this] { window.ShowState(); });
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
  }

  template <typename Control = QWidget>
  Control* Find(const QString& name) {
    auto* found = window.findChild<Control*>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
  }
  QWidget* Client() { return window.centralWidget(); }

  /// Clicks a pixel of the map.
  void Press(int x, int y, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(Find("Canvas"), button, {}, {x + 2, y + 2});
  }
  void Click(const char* control) { QTest::mouseClick(Find(control), Qt::LeftButton); }
  void Choose(const char* menuEntry) { Find<QAction>(menuEntry)->trigger(); }
  /// A button of the tool bar by its key.
  QWidget* Tool(const char* key) {
    auto* bar = Find<QToolBar>("tbToolBar");
    return bar->widgetForAction(bar->findChild<QAction*>(key));
  }
  void ClickTool(const char* key) { QTest::mouseClick(Tool(key), Qt::LeftButton); }
  void NewMap() {
    platform.answers.push_back(Answer::Yes);
    Choose("mnuFileNew");
  }
};

}  // namespace morvane

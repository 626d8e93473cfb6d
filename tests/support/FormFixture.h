#pragma once

#include <gtest/gtest.h>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <QTest>
#include <QtWidgets>
#include <deque>
#include <filesystem>
#include <fstream>
#include <new>
#include <optional>

#include "document/PictureFile.h"
#include "platform/QtPlatform.h"
#include "shell/ArtSheets.h"
#include "shell/frmMain.h"
#include "tests/support/Pictures.h"

namespace morvane {

/// A message box that was shown.
struct SeenBox {
  std::string text;
  BoxStyle style;
  std::string title;
  friend bool operator==(const SeenBox&, const SeenBox&) = default;
  friend void PrintTo(const SeenBox& box, std::ostream* stream) { *stream << box.text; }
};

/// The title, filter, preset text and folder of a dialog that was shown.
using SeenDialog = std::array<std::string, 4>;

/// The real platform with scripted dialogs: the answers to the next ones, a record of them, and
/// faults.
class ScriptedPlatform : public QtPlatform {
 public:
  std::deque<Answer> answers;           ///< Ok if empty
  std::deque<std::string> chosenFiles;  ///< files and folders; canceled if empty
  std::deque<std::string> typedTexts;   ///< rich texts; canceled if empty
  std::deque<std::uint32_t> colors;     ///< canceled if empty
  std::vector<SeenBox> boxes;
  std::vector<SeenDialog> dialogs;
  std::vector<Picture> printed;
  Failure printFailure;
  bool memoryRunsOut = false;              ///< in the Open dialog and in Undo
  std::vector<std::string> rescueFolders;  ///< the real ones if empty
  std::vector<std::string> drives = {"/"};
  std::function<void()> onNextBox;  ///< called while the next message box is open

  Answer MsgBox(const std::string& text, BoxStyle style, const std::string& title) override {
    ShowState();
    if (const auto act = std::exchange(onNextBox, {})) act();
    boxes.push_back({text, style, title});
    return Next(answers).value_or(Answer::Ok);
  }
  std::string ShowOpen(const FileDialog& dialog) override {
    if (memoryRunsOut) throw std::bad_alloc();
    return ShowSave(dialog);
  }
  std::string ShowSave(const FileDialog& dialog) override {
    return Choose({dialog.DialogTitle, dialog.Filter, dialog.FileName, dialog.InitDir});
  }
  std::vector<std::string> ListDrives() override { return drives; }
  std::string BrowseForFolder(const std::string& title) override { return Choose({title}); }
  void ShowColor(std::uint32_t& color) override { color = Next(colors).value_or(color); }
  bool EditText(std::string& text) override {
    dialogs.push_back({"Text", "", text});
    const auto typed = Next(typedTexts);
    if (typed) text = *typed;
    return typed.has_value();
  }
  Failure Print(const PictureView& picture) override {
    printed.emplace_back(picture);
    return printFailure;
  }
  std::vector<std::string> RescueFolders() override {
    return rescueFolders.empty() ? QtPlatform::RescueFolders() : rescueFolders;
  }
  OpenedFile OpenSnapshot() override {
    if (memoryRunsOut) throw std::bad_alloc();
    return QtPlatform::OpenSnapshot();
  }

 private:
  std::string Choose(const SeenDialog& dialog) {
    dialogs.push_back(dialog);
    return Next(chosenFiles).value_or("");
  }
  template <typename T>
  static std::optional<T> Next(std::deque<T>& queue) {
    if (queue.empty()) return std::nullopt;
    T next = std::move(queue.front());
    queue.pop_front();
    return next;
  }
};

/// Temporary folders as current directory and for private files.
class StartFolder {
 public:
  StartFolder() {
    QDir::setCurrent(folder_.path());
    qputenv("XDG_STATE_HOME", QFile::encodeName(state_.path()));
    qputenv("TMPDIR", QFile::encodeName(temporary_.path()));
  }
  ~StartFolder() {
    // The next instance creates its folders there.
    qputenv("TMPDIR", QFile::encodeName(tempBefore_));
    // QTemporaryDir doesn't delete names that aren't UTF-8.
    std::error_code none;
    std::filesystem::remove_all(folder_.path().toStdString(), none);
  }
  std::string File(const std::string& name) const {
    return folder_.path().toStdString() + '/' + name;
  }

 private:
  QString tempBefore_ = QDir::tempPath();
  QTemporaryDir folder_;
  QTemporaryDir state_;
  QTemporaryDir temporary_;
};

inline Bytes ReadFile(const std::string& path) {
  return ReadAll(*OpenRegularFile(path).Value()).Value();
}

inline void WriteFile(const std::string& path, const Bytes& bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
}

/// The names in a folder, with hidden files.
inline std::string NamesIn(const std::string& folder) {
  QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
  return QDir(QString::fromStdString(folder)).entryList(all).join(' ').toStdString();
}

/// The names of the rescue copies in a folder.
inline QStringList RescueCopiesIn(const std::string& folder) {
  return QDir(QString::fromStdString(folder)).entryList({"Morvane rescue 20*.bmp"});
}

/// A file of a text format, which takes long to decode.
inline Bytes SlowPicture() {
  const auto file = "P2\n4000 4000\n9\n" + QByteArray("1\n").repeated(16'000'000);
  return {file.begin(), file.end()};
}

/// The map in a file. The test fails if it can't be read.
inline Picture MapIn(const std::string& path) {
  QtPlatform platform;
  Result<LoadedPicture> map = LoadPicture(platform, path);
  EXPECT_TRUE(map.Ok()) << path << ": " << map.Reason();
  return map.Ok() ? std::move(map.Value().picture) : Picture();
}

/// A screenshot of a widget in logical pixels.
inline QImage Shown(QWidget& widget) {
  QImage shown = widget.grab().toImage().scaled(widget.size());
  shown.setDevicePixelRatio(1);
  return shown.convertToFormat(QImage::Format_RGB32);
}

inline QPalette DarkPalette() {
  QPalette dark({49, 54, 59}, {49, 54, 59});
  dark.setColor(QPalette::Base, {45, 50, 54});
  return dark;
}

/// Acts in the next dialog as soon as it is open. If another one or none is, the test program ends.
template <typename Dialog = QDialog>
void WhenOpen(const std::type_identity_t<std::function<void(Dialog&)>>& act) {
  QTimer::singleShot(0, [act] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) throw std::logic_error("the dialog isn't open");
    act(*dialog);
  });
}

/// What a screen reader speaks: the names of objects that get the focus or appear.
inline QStringList heard;
inline void Hear(QAccessibleEvent* event) {
  const QAccessibleInterface* object = event->accessibleInterface();
  const bool isSpoken =
      event->type() == QAccessible::Focus || event->type() == QAccessible::ObjectShow;
  if (isSpoken && object != nullptr) heard << object->text(QAccessible::Name);
}

/// The real main window, started in a temporary folder.
struct FormFixture : testing::Test {
  StartFolder folder;
  ScriptedPlatform platform;
  MainForm form;
  Document& document = form.document;
  Palette& palette = form.palette;
  frmMain window{form};

  explicit FormFixture(const TilePictures::SheetLoader& sheets = &LoadArtSheet)
      : form(platform, sheets) {
    platform.SetWindow(&window, [this] { window.ShowState(); });
    // As if a screen reader were running, which Qt's public interface can't simulate.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    QAccessible::installUpdateHandler(&Hear);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
  }
  void TestBody() override {}

  template <typename Control = QWidget>
  Control* Find(const QString& name) {
    auto* found = window.findChild<Control*>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
  }
  QWidget* Client() { return window.centralWidget(); }
  Picture Map() const { return Picture(document.Canvas.Image()); }
  /// The only message since the last call.
  std::string OneBox() {
    EXPECT_EQ(platform.boxes.size(), 1U);
    const std::vector<SeenBox> boxes = std::exchange(platform.boxes, {});
    return boxes.empty() ? "" : boxes.back().text;
  }

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
};

}  // namespace morvane

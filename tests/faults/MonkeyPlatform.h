#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <optional>
#include <random>

#include "document/io/ByteSources.h"
#include "platform/Files.h"
#include "platform/QtPlatform.h"
#include "shell/RichTextBox.h"
#include "tests/support/FakePlatform.h"

namespace morvane {

/// Chance that a seed makes come the same way again.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  int Roll(int from, int to) {
    return std::uniform_int_distribution(from, std::max(from, to))(engine_);
  }
  bool OneIn(int cases) { return Roll(1, cases) == 1; }
  template <typename Row>
  auto Pick(const Row& row) {
    return row[static_cast<std::size_t>(Roll(0, static_cast<int>(std::size(row)) - 1))];
  }

 private:
  std::mt19937 engine_;
};

/// A key as a cat would hit it.
inline void PressAnyKey(Dice& dice, QWidget* widget) {
  static constexpr std::array kKeys = {
      Qt::Key_Escape, Qt::Key_Left,      Qt::Key_Right,   Qt::Key_Up,        Qt::Key_Down,
      Qt::Key_M,      Qt::Key_F11,       Qt::Key_F12,     Qt::Key_Return,    Qt::Key_Enter,
      Qt::Key_Tab,    Qt::Key_Backtab,   Qt::Key_Space,   Qt::Key_Delete,    Qt::Key_Backspace,
      Qt::Key_Home,   Qt::Key_End,       Qt::Key_PageUp,  Qt::Key_N,         Qt::Key_O,
      Qt::Key_S,      Qt::Key_P,         Qt::Key_Z,       Qt::Key_T,         Qt::Key_X,
      Qt::Key_V,      Qt::Key_F1,        Qt::Key_F4,      Qt::Key_F10,       Qt::Key_Menu,
      Qt::Key_A,      Qt::Key_AltGr,     Qt::Key_unknown, Qt::Key_MediaPlay, Qt::Key_Multi_key,
      Qt::Key_0,      Qt::Key_Udiaeresis};
  static constexpr std::array<Qt::KeyboardModifiers::Int, 7> kModifiers = {
      0,
      0,
      0,
      Qt::ControlModifier,
      Qt::ControlModifier,
      Qt::AltModifier,
      Qt::ShiftModifier | Qt::ControlModifier | Qt::MetaModifier};
  const Qt::Key key = dice.Pick(kKeys);
  const Qt::KeyboardModifiers modifiers(dice.Pick(kModifiers));
  const bool isLetter = key < Qt::Key_Escape && (modifiers & Qt::ControlModifier) == 0;
  const QString text = isLetter ? QString(QChar(key)).toLower() : QString();
  const QPointer<QWidget> still = widget;
  QTest::simulateEvent(widget, true, key, modifiers, text, dice.OneIn(9));
  if (still) QTest::simulateEvent(widget, false, key, modifiers, text, false);
}

/// Works at a dialog while its loop runs, and closes it, with all that it opens.
class DialogRobot : public QObject {
 public:
  DialogRobot(unsigned seed, std::string path) : dice_(seed), path_(std::move(path)) {
    if (running_++ == 0) Wait();
  }
  DialogRobot(const DialogRobot&) = delete;
  DialogRobot& operator=(const DialogRobot&) = delete;
  ~DialogRobot() override { --running_; }

 private:
  void Wait() { QTimer::singleShot(0, this, &DialogRobot::Act); }

  void Act() {
    Wait();  // first, for what is done now may open a dialog with a loop of its own
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    const bool isTired = ++steps_ % 12 == 0;
    if (isTired || steps_ > 100) {
      dice_.OneIn(2) ? dialog->reject() : dialog->accept();
    } else if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
      const auto buttons = box->buttons();
      buttons.isEmpty() ? box->reject() : dice_.Pick(buttons)->click();
    } else if (auto* files = qobject_cast<QFileDialog*>(dialog)) {
      files->findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path_));
      dice_.OneIn(3) ? dialog->reject() : dialog->accept();
    } else if (dialog->objectName().startsWith("frm")) {
      ActInForm(*dialog);
    } else {
      dice_.OneIn(2) ? dialog->reject() : dialog->accept();
    }
  }

  void ActInForm(QDialog& form) {
    if (auto* text = form.findChild<RichTextBox*>(); text != nullptr && dice_.OneIn(2)) {
      QTest::keyClicks(text, "Here be dragons ");
    } else if (dice_.OneIn(3)) {
      QWidget* focus = form.focusWidget();
      PressAnyKey(dice_, focus != nullptr ? focus : &form);
    } else if (const auto buttons = form.findChildren<QAbstractButton*>(); !buttons.isEmpty()) {
      QTest::mouseClick(dice_.Pick(buttons), Qt::LeftButton);
    }
  }

  static inline int running_ = 0;
  Dice dice_;
  std::string path_;
  int steps_ = 0;
};

/// A folder with maps and tiles, sound and broken.
class Workshop {
 public:
  Workshop() {
    QDir::setCurrent(folder_.path());
    qputenv("HOME", folder_.path().toUtf8());
    QDir().mkpath("tiles/more");
    QDir().mkpath("tiles/folder.bmp");
    QFile::link(folder_.path(), "tiles/more/round");
    Draw("tiles/small.bmp", 20, 20);
    Draw("tiles/<b>wide & long.jpg", 240, 70);
    Draw("tiles/tall.bmp", 7, 130);
    Draw("tiles/dot.bmp", 1, 1);
    Draw("tiles/more/edge.jpg", 61, 60);
    Draw("map.bmp", 615, 483);
    Draw("little.png", 90, 50);
    Draw("large.bmp", 900, 700);
    Write("tiles/empty.gif", "");
    Write("tiles/noise.ico", QByteArray("\0\0\1\0\1\0", 6) + QByteArray(90, '\x7F'));
    Write("tiles/text.wmf", "not a picture");
    QFile map("map.bmp");
    EXPECT_TRUE(map.open(QIODevice::ReadOnly));
    Write("tiles/short.bmp", map.read(5000));
  }
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;
  ~Workshop() { QDir::setCurrent("/"); }

  std::string Path(const char* name) const { return folder_.filePath(name).toStdString(); }
  bool Holds(const std::string& path) const {
    return path.starts_with(folder_.path().toStdString());
  }
  std::string AnyFile(Dice& dice) const {
    constexpr std::array kNames = {"map.bmp",       "little.png",      "large.bmp", "saved.bmp",
                                   "other.bmp",     "tiles/short.bmp", "tiles",     "missing.bmp",
                                   "nowhere/x.bmp", "tiles/tall.bmp"};
    return Path(dice.Pick(kNames));
  }

 private:
  static void Draw(const char* name, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgb(x * 7, y * 5, x ^ y));
    }
    EXPECT_TRUE(image.save(name)) << name;
  }
  static void Write(const char* name, const QByteArray& content) {
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  QTemporaryDir folder_;
};

/// The real platform in a workshop; its dialogs are answered by chance, some by a robot.
class MonkeyPlatform : public QtPlatform {
 public:
  /// What the dialogs of the present event brought.
  struct Brought {
    std::vector<std::pair<SeenBox, Answer>> boxes;
    std::string file;
    std::optional<std::string> text;
  };
  Brought brought;

  MonkeyPlatform(Dice& dice, const Workshop& workshop) : dice_(dice), workshop_(workshop) {}

  std::unique_ptr<DialogRobot> Robot() {
    return std::make_unique<DialogRobot>(static_cast<unsigned>(dice_.Roll(0, 999'999)),
                                         workshop_.AnyFile(dice_));
  }
  Answer MsgBox(const std::string& text, BoxStyle style, const std::string& title) override {
    ShowState();
    Answer answer = dice_.OneIn(2) ? Answer::Yes : Answer::No;
    if (dice_.OneIn(40)) {
      const auto robot = Robot();
      answer = QtPlatform::MsgBox(text, style, title);
    } else if (style == BoxStyle::YesNoCancelQuestion && !dice_.OneIn(4)) {
      answer = Answer::Cancel;
    }
    if (std::getenv("DBG")) fprintf(stderr, "BOX %s\n", text.c_str());
    brought.boxes.push_back({{text, style, title}, answer});
    return answer;
  }
  std::string ShowOpen(const FileDialog& dialog) override {
    return brought.file = AnyFile([&] { return QtPlatform::ShowOpen(dialog); });
  }
  std::string ShowSave(const FileDialog& dialog) override {
    return brought.file = AnyFile([&] { return QtPlatform::ShowSave(dialog); });
  }
  std::string BrowseForFolder(const std::string& title) override {
    if (dice_.OneIn(5)) return AnyFile([&] { return QtPlatform::BrowseForFolder(title); });
    return workshop_.Path(dice_.OneIn(3) ? "gone" : "tiles");
  }
  bool EditText(std::string& text) override {
    if (dice_.OneIn(8)) {
      const auto robot = Robot();
      if (QtPlatform::EditText(text)) brought.text = text;
    } else if (!dice_.OneIn(3)) {
      brought.text = text = "<b>Crypt</b> <i style='color:#c00000'>of the <s>king</s></i>";
    }
    return brought.text.has_value();
  }
  void ShowColor(std::uint32_t& color) override {
    if (dice_.OneIn(5)) {
      const auto robot = Robot();
      QtPlatform::ShowColor(color);
    } else {
      color = static_cast<std::uint32_t>(dice_.Roll(0, 0xFFFFFF));
    }
  }
  void ShowPrinterSetup(const std::string& title) override {
    const auto robot = Robot();
    QtPlatform::ShowPrinterSetup(title);
  }

  // The machine's other folders are none of the monkey's business.
  bool IsFolderReadable(const std::string& path) override {
    return QtPlatform::IsFolderReadable(path) && (workshop_.Holds(path) || path == "/");
  }
  std::vector<std::string> ListDrives() override { return {"/", workshop_.Path("")}; }
  std::vector<std::string> ListFolders(const std::string& folder) override {
    return workshop_.Holds(folder) ? QtPlatform::ListFolders(folder) : std::vector<std::string>();
  }
  std::vector<std::string> ListFiles(const std::string& folder,
                                     const std::string& pattern) override {
    return workshop_.Holds(folder) ? QtPlatform::ListFiles(folder, pattern)
                                   : std::vector<std::string>();
  }

 private:
  template <typename Dialog>
  std::string AnyFile(Dialog show) {
    if (dice_.OneIn(10)) {
      const auto robot = Robot();
      return show();
    }
    return dice_.OneIn(3) ? "" : workshop_.AnyFile(dice_);
  }

  Dice& dice_;
  const Workshop& workshop_;
};

}  // namespace morvane

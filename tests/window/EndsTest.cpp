#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <csignal>
#include <map>
#include <span>

#include "document/PictureFile.h"
#include "platform/QtPlatform.h"
#include "tests/window/Session.h"
#include "tests/window/Strokes.h"

namespace morvane {
namespace {

/// A way to end the program; without a signal the display server is killed.
struct End {
  const char* name;
  int signal;
};

void PrintTo(const End& end, std::ostream* stream) {
  *stream << end.name;
}

/// Whether a file that was being overwritten may hold this: each pixel is old or new.
bool IsMix(const Picture& mix, const Picture& old, const Picture& fresh) {
  if (mix.Width() != old.Width() || mix.Height() != old.Height()) return false;
  for (int y = 0; y < mix.Height(); ++y) {
    for (int x = 0; x < mix.Width(); ++x) {
      const Pixel pixel = mix.View().Row(y)[x];
      if (pixel != old.View().Row(y)[x] && pixel != fresh.View().Row(y)[x]) return false;
    }
  }
  return true;
}

class Ends : public testing::TestWithParam<End> {
 protected:
  static QString Ask(const QStringList& orders) {
    QProcess tool;
    tool.start("xdotool", orders);
    tool.waitForFinished();
    return tool.readAllStandardOutput();
  }
  /// Whether so many windows and boxes show, and the keys go to the main window.
  static bool Stand(int windows, bool mainIsActive) {
    const QString active = Ask({"getactivewindow", "getwindowgeometry"});
    return !active.isEmpty() && active.contains("Geometry: 787x") == mainIsActive &&
           Ask({"search", "--onlyvisible", "--name", "^Morvane$"}).count('\n') == windows;
  }

  Picture Display() const {
    Picture display(1280, 900);
    const auto pixels = std::span(display.Row(0), std::size_t{1280} * 900);
    QFile file(session_.Pixels());
    if (!file.open(QIODevice::ReadOnly)) return display;
    file.seek(file.size() - static_cast<qint64>(pixels.size_bytes()));
    file.read(reinterpret_cast<char*>(pixels.data()), static_cast<qint64>(pixels.size_bytes()));
    for (Pixel& pixel : pixels) pixel |= 0xFF000000;
    return display;
  }
  Picture MapAt(QPoint place) const {
    return Cut(Display().View(), {place.x(), place.y(), place.x() + 615, place.y() + 483});
  }
  /// Finds the empty map on the display by its upper left corner.
  bool Find(QPoint& map) const {
    const Picture display = Display();
    for (map.ry() = 1; map.y() < 900 - 483; ++map.ry()) {
      const Pixel* row = display.View().Row(map.y());
      for (map.rx() = 1; map.x() < 1280 - 615; ++map.rx()) {
        if (row[map.x() - 1] != row[map.x()] && row[map.x() - 1280] != row[map.x()] &&
            row[map.x()] == PixelOf(kWhite) && MapAt(map) == empty_) {
          return true;
        }
      }
    }
    return false;
  }
  Picture Read(const QString& name) const {
    QtPlatform platform;
    auto map = LoadPicture(platform, session_.folder.filePath(name).toStdString());
    return map.Ok() ? std::move(map.Value().picture) : Picture();
  }
  /// The name of the one rescue copy that is new; empty if there is none.
  QString NewCopy() {
    static const QRegularExpression kName(
        R"(^Morvane rescue \d{4}-\d\d-\d\d \d\d\.\d\d( \(\d+\))?\.bmp$)");
    QString fresh;
    const QStringList names = QDir(session_.folder.path()).entryList({"*.bmp"});
    for (const QString& name : names) {
      EXPECT_TRUE(kName.match(name).hasMatch()) << name.toStdString();
      const auto [copy, isNew] = copies_.try_emplace(name, Read(name));
      EXPECT_FALSE(isNew && !fresh.isEmpty()) << "one copy too many";
      EXPECT_EQ(Difference(Read(name), copy->second), "") << name.toStdString();
      if (isNew) fresh = name;
    }
    EXPECT_EQ(names.size(), copies_.size()) << "a copy has gone";
    return fresh;
  }

  void Open() {
    session_.End();
    display_ = &session_.OpenDisplay();
    program_ = &session_.Start(MORVANE_PROGRAM, {});
  }
  /// A start without a message, and strokes that are all on the map.
  void Paint(Strokes& strokes) {
    Open();
    ASSERT_TRUE(Await([&] { return Stand(1, true) && Find(strokes.map); }));
    QStringList orders = strokes.First();
    // A change of the mode may show the outline of the tool on the map.
    for (int i = strokes.Random(0, 60); i > 0 || orders.last() == "ctrl+m"; --i) {
      orders += strokes.Next();
    }
    Hand(orders);
    ASSERT_TRUE(Await([&] {
      return MapAt(strokes.map) == strokes.model.map && Read(kSnapshot) == strokes.model.undo;
    })) << "map: "
        << Difference(MapAt(strokes.map), strokes.model.map)
        << "\nsnapshot: " << Difference(Read(kSnapshot), strokes.model.undo);
  }
  void Stop(int signal) {
    if (signal == 0) {
      display_->terminate();
    } else {
      ::kill(static_cast<pid_t>(program_->processId()), signal);
    }
    ASSERT_TRUE(program_->waitForFinished());
    const bool bySignal = program_->exitStatus() == QProcess::CrashExit;
    EXPECT_EQ(bySignal ? program_->exitCode() : -program_->exitCode(), signal == 0 ? -1 : signal);
  }

  /// Strokes, an end while more may be on their way, and a start that reports the copy.
  void EndOnce(Strokes& strokes) {
    const bool isKill = GetParam().signal == SIGKILL;
    const Picture none = isKill ? empty_ : Picture();
    std::vector<Picture> allowed;
    const auto allow = [&] {
      const Picture& map = isKill ? strokes.model.undo : strokes.model.map;
      allowed.push_back(map == empty_ ? none : map);
    };
    ASSERT_NO_FATAL_FAILURE(Paint(strokes));
    allow();
    QStringList orders;
    for (int i = strokes.Random(0, 1) * strokes.Random(1, 60); i > 0; --i) {
      orders += strokes.Next();
      allow();
    }
    if (!orders.isEmpty()) session_.Start("xdotool", orders);
    usleep(static_cast<useconds_t>(strokes.Random(0, 30'000)));
    ASSERT_NO_FATAL_FAILURE(Stop(GetParam().signal));

    EXPECT_EQ(QFile::exists(session_.folder.filePath(kSnapshot)), isKill);
    const QString copy = NewCopy();
    EXPECT_FALSE(isKill && !copy.isEmpty());
    const Picture kept = Read(isKill ? kSnapshot : copy);
    const bool isTorn = std::find(allowed.begin(), allowed.end(), kept) == allowed.end();
    const auto mix = std::adjacent_find(
        allowed.begin(), allowed.end(),
        [&](const Picture& old, const Picture& fresh) { return IsMix(kept, old, fresh); });
    EXPECT_TRUE(!isTorn || (isKill && mix != allowed.end()))
        << allowed.size() - 1 << " events on their way; " << Difference(kept, allowed.front());
    torn_ += isTorn ? 1 : 0;
    cutOff_ += kept == allowed.back() ? 0 : 1;
    if (kept == none) return;

    Open();
    ASSERT_TRUE(Await([] { return Stand(2, false); })) << "no message";
    if (isKill) {
      EXPECT_EQ(Difference(Read(NewCopy()), kept), "");
    }
    Key({"Return"});
    ASSERT_TRUE(Await([] { return Stand(1, true); }));
    Stop(strokes.Random(0, 1) == 0 ? SIGTERM : SIGKILL);
  }

  inline static const QString kSnapshot = "mvtmp.~mp";
  const Picture empty_{615, 483, kWhite};
  Session session_;
  QProcess* display_ = nullptr;
  QProcess* program_ = nullptr;
  std::map<QString, Picture> copies_;
  int cutOff_ = 0;
  int torn_ = 0;
};

TEST_P(Ends, AtAnyMomentLeaveTheMapAndAMessage) {
  const int ends = std::max(1, qEnvironmentVariableIntValue("MORVANE_ENDS"));
  for (int i = 0; i <= ends; ++i) {
    const int seed = 1000 * GetParam().signal + i;
    SCOPED_TRACE("seed " + std::to_string(seed));
    Strokes strokes(static_cast<unsigned>(seed));
    if (i < ends) {
      EndOnce(strokes);
    } else {
      Paint(strokes);  // what was reported before the last end isn't reported again
    }
    ASSERT_FALSE(HasFailure());
  }
  std::printf("%s: %d ends, %d copies; %d while strokes went on, %d within a snapshot\n",
              GetParam().name, ends, static_cast<int>(copies_.size()), cutOff_, torn_);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Ends,
                         testing::Values(End{"Killed", SIGKILL}, End{"Terminated", SIGTERM},
                                         End{"HungUp", SIGHUP}, End{"Interrupted", SIGINT},
                                         End{"DisplayLost", 0}),
                         [](const auto& end) { return end.param.name; });

}  // namespace
}  // namespace morvane

#include <sys/resource.h>

#include <QDeadlineTimer>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "document/Options.h"
#include "palette/CustomTiles.h"
#include "tests/support/Child.h"

namespace morvane {
namespace {

/// What becomes of the disk, or of the folder the editor was started in.
struct Fault {
  const char* name;
  int error;  ///< of the system when a save fails; 0 where we find the fault first
  bool hitsSnapshot;
  bool leavesRescue;                         ///< another folder can be written
  void (*prepare)(const std::string& disk);  ///< before the editor starts
  void (*happen)(const std::filesystem::path& folder);
};

void NeedNothing(const std::string& /*disk*/) {}

void NeedSmallDisk(const std::string& disk) {
  constexpr std::size_t kBytes = 6'000'000;
  MountSmallDisk(disk, kBytes);
}

void NeedModes(const std::string& /*disk*/) {
  BecomeOrdinaryUser();
}

void FillDisk(const std::filesystem::path& folder) {
  std::ofstream filler(folder / "filler");
  while (filler << std::string(4096, 'x') << std::flush) continue;
}

void SetFileSizeLimit() {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = 2000;
  setrlimit(RLIMIT_FSIZE, &limit);
}

void LimitFiles(const std::filesystem::path& /*folder*/) {
  std::signal(SIGXFSZ, SIG_IGN);  // as the program does
  SetFileSizeLimit();
}

void LockFolder(const std::filesystem::path& folder) {
  std::filesystem::permissions(folder, std::filesystem::perms(0500));
}

void RemoveFolder(const std::filesystem::path& folder) {
  std::filesystem::remove_all(folder);
}

void PrintTo(const Fault& fault, std::ostream* stream) {
  *stream << fault.name;
}

std::string ReasonOf(const Fault& fault) {
  return fault.error == 0 ? "The folder doesn't exist." : std::strerror(fault.error);
}

/// A fault hits the editor between two strokes; then the user tries everything that writes.
struct Disk : testing::TestWithParam<Fault> {
  const QTemporaryDir base;
  const std::string home = base.filePath("home").toStdString();
  const std::string disk = base.filePath("disk").toStdString();

  Disk() {
    for (const std::string& folder : {base.path().toStdString(), home, disk}) {
      std::filesystem::create_directories(folder);
      std::filesystem::permissions(folder, std::filesystem::perms::all);
    }
  }

  static void TrySaves(Session::Window& editor, const std::string& old) {
    const std::string reason = "\n\n" + ReasonOf(GetParam());
    const std::string fresh = editor.folder.File("fresh.bmp");
    const Picture map = editor.Map();
    editor.Choose("mnuFileSave");
    EXPECT_EQ(editor.OneBox(), "The map could not be saved.\n\n" + old + reason);
    editor.SaveAs(fresh);
    EXPECT_EQ(editor.OneBox(), "The map could not be saved.\n\n" + fresh + reason);
    EXPECT_EQ(editor.window.windowTitle(), "Morvane - old.bmp");
    EXPECT_EQ(editor.Map(), map);
  }
  static void TryOptions(Session::Window& editor) {
    Options options(editor.form.document);
    options.Form_Load();
    EXPECT_FALSE(options.cmdOK_Click());
    EXPECT_EQ(editor.OneBox(), "The options could not be stored.\n\n" +
                                   editor.folder.File("Morvane.ini") + "\n\n" +
                                   ReasonOf(GetParam()));
  }
  static void TryUndo(Session::Window& editor) {
    const Picture map = editor.Map();
    editor.Press(90, 90);
    EXPECT_NE(editor.Map(), map);
    if (!GetParam().hitsSnapshot) {
      editor.Choose("mnuEditUndo");
      EXPECT_EQ(editor.Map(), map);
      EXPECT_EQ(editor.platform.boxes.size(), 0U);
      return;
    }
    const std::string told = editor.OneBox();
    EXPECT_TRUE(told.starts_with("The map could not be kept for Undo. Drawing goes on")) << told;
    EXPECT_TRUE(told.ends_with(ReasonOf(GetParam()))) << told;
    editor.Press(130, 90);  // told once is enough
    const Picture painted = editor.Map();
    editor.Choose("mnuEditUndo");
    EXPECT_EQ(editor.OneBox(),
              "The last change can't be taken back.\n\nNo earlier state of the map was kept.");
    EXPECT_EQ(editor.Map(), painted);
  }
  void TryExit(Session::Window& editor, const std::string& old) const {
    editor.platform.answers.push_back(Answer::Yes);
    editor.platform.boxes.clear();
    editor.Close();
    ASSERT_EQ(editor.platform.boxes.size(), 2U);
    const std::string& text = editor.platform.boxes[1].text;
    const std::string rescue = NamesIn(home);
    EXPECT_TRUE(text.starts_with("The map could not be saved.\n\n" + old + "\n\n" +
                                 ReasonOf(GetParam()) + "\n\nA rescue copy " +
                                 (GetParam().leavesRescue ? "was saved as\n\n" + home + '/' + rescue
                                                          : "could not be written")))
        << text;
    if (GetParam().leavesRescue) {
      EXPECT_EQ(MapIn(home + '/' + rescue), editor.Map());
    } else {
      EXPECT_EQ(rescue, "");
    }
    EXPECT_FALSE(editor.window.isVisible());
  }
  /// To be run in a child.
  void Try() const {
    qputenv("HOME", home.c_str());
    qputenv("TMPDIR", disk.c_str());
    GetParam().prepare(disk);
    Session session;
    Session::Window& editor = session.editor;
    const std::filesystem::path folder = std::filesystem::current_path();
    const std::string old = editor.folder.File("old.bmp");
    std::ofstream("Morvane.ini") << "; " << std::string(5000, '-') << '\n';
    editor.Press(30, 30);
    editor.SaveAs(old);
    const Picture kept = editor.Map();
    editor.Press(60, 30);

    GetParam().happen(folder);
    const std::string names = NamesIn(folder);
    TrySaves(editor, old);
    TryOptions(editor);
    EXPECT_EQ(NamesIn(folder), names);
    TryUndo(editor);
    TryExit(editor, old);
    if (names.empty()) return;
    EXPECT_EQ(MapIn(old), kept);
    EXPECT_EQ(NamesIn(folder).find(".morvane"), std::string::npos);
    std::filesystem::permissions(folder, std::filesystem::perms(0700));
  }
};

TEST_P(Disk, FaultHarmsNeitherTheOldFileNorTheMap) {
  const int outcome = RunInChild([this] { Try(); });
  if (outcome == kCannot) GTEST_SKIP() << "No disk or user of its own can be had here.";
  EXPECT_EQ(outcome, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Faults, Disk,
    testing::Values(Fault{"Full", ENOSPC, false, true, NeedSmallDisk, FillDisk},
                    Fault{"FileSizeLimit", EFBIG, true, false, NeedNothing, LimitFiles},
                    Fault{"ReadOnlyFolder", EACCES, false, true, NeedModes, LockFolder},
                    Fault{"RemovedFolder", 0, false, true, NeedNothing, RemoveFolder}),
    [](const auto& fault) { return fault.param.name; });

/// Whether a process leaves a signal alone; not if it has ended.
bool Ignores(pid_t process, int signal) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  std::string word;
  while (status >> word && word != "SigIgn:") continue;
  unsigned long long mask = 0;
  status >> std::hex >> mask;
  return (mask >> (signal - 1) & 1U) != 0;
}

TEST(FileSizeLimit, DoesNotEndTheProgram) {
  const StartFolder folder;
  const pid_t program = StartChild([] {
    SetFileSizeLimit();
    execl(MORVANE_PROGRAM, MORVANE_PROGRAM, "-platform", "offscreen", nullptr);
  });
  const QDeadlineTimer patience(60'000);
  bool isSafe = false;
  int status = 0;
  while (!isSafe && !patience.hasExpired() && waitpid(program, &status, WNOHANG) == 0) {
    isSafe = Ignores(program, SIGXFSZ);
  }
  EXPECT_TRUE(isSafe) << status;
  if (isSafe || patience.hasExpired()) kill(program, SIGKILL);
  waitpid(program, &status, 0);
}

/// A folder out of reach isn't shown as an empty one.
TEST(LockedFolder, OfCustomTilesIsRefused) {
  const int outcome = RunInChild([] {
    BecomeOrdinaryUser();
    Session session;
    Palette& palette = session.editor.form.palette;
    const std::string folder = session.editor.folder.File("locked");
    const std::string shown = palette.Dir1.Path();
    std::filesystem::create_directory(folder);
    for (const int mode : {0300, 0600}) {
      std::filesystem::permissions(folder, std::filesystem::perms(mode));
      Dir1_Change(palette, folder);
      EXPECT_EQ(palette.document.StatusText, "The folder can't be opened: " + folder);
      EXPECT_EQ(palette.Dir1.Path(), shown);
      EXPECT_EQ(palette.File1.Path(), shown);
      palette.document.StatusText.clear();
    }
    std::filesystem::permissions(folder, std::filesystem::perms(0700));
  });
  if (outcome == kCannot) GTEST_SKIP() << "No ordinary user can be had here.";
  EXPECT_EQ(outcome, 0);
}

/// What may not be written stays as it is, though its folder could be written.
TEST(ReadOnlyFile, IsLeftAlone) {
  const int outcome = RunInChild([] {
    BecomeOrdinaryUser();
    const StartFolder folder;
    const auto content = [](const char* name) {
      std::ifstream file(name);
      return std::string(std::istreambuf_iterator<char>(file), {});
    };
    for (const char* name : {"map.bmp", "mvtmp.~mp"}) {
      std::ofstream(name) << "mine";
      std::filesystem::permissions(name, std::filesystem::perms(0400));
    }
    const Bytes bytes = {1, 2, 3};
    MemorySource source(bytes);
    EXPECT_EQ(ReplaceFile(folder.File("map.bmp"), source), std::strerror(EACCES));
    SnapshotFile snapshot;
    EXPECT_EQ(snapshot.Write(source), "");
    snapshot.Delete();
    for (const char* name : {"map.bmp", "mvtmp.~mp"}) EXPECT_EQ(content(name), "mine") << name;
    EXPECT_EQ(NamesIn("."), "map.bmp mvtmp.~mp");
  });
  if (outcome == kCannot) GTEST_SKIP() << "No ordinary user can be had here.";
  EXPECT_EQ(outcome, 0);
}

}  // namespace
}  // namespace morvane

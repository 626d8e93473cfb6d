#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "document/Options.h"
#include "palette/CustomTiles.h"
#include "platform/SnapshotFile.h"
#include "tests/support/Child.h"

namespace morvane {
namespace {

/// A fault of the disk or the start folder that occurs while the editor runs.
struct Fault {
  const char* name;
  std::string reason;  ///< why a save fails
  bool hitsSnapshot;   ///< Undo fails too
  bool allowsRescue;   ///< another folder is writable
  void (*prepare)(const std::string& disk);
  void (*occur)(const std::filesystem::path& folder);
};

void PrintTo(const Fault& fault, std::ostream* stream) {
  *stream << fault.name;
}

void PrepareNothing(const std::string& /*disk*/) {}

void MountDisk(const std::string& disk) {
  MountSmallDisk(disk, 6'000'000);
}

void UseModes(const std::string& /*disk*/) {
  BecomeOrdinaryUser();
}

void FillDisk(const std::filesystem::path& folder) {
  std::ofstream filler(folder / "filler");
  while (filler << std::string(4096, 'x') << std::flush) continue;
}

void LimitFileSize(const std::filesystem::path& /*folder*/) {
  std::signal(SIGXFSZ, SIG_IGN);  // as the program does
  const rlimit limit{2000, RLIM_INFINITY};
  setrlimit(RLIMIT_FSIZE, &limit);
}

void LockFolder(const std::filesystem::path& folder) {
  std::filesystem::permissions(folder, std::filesystem::perms(0500));
}

void RemoveFolder(const std::filesystem::path& folder) {
  std::filesystem::remove_all(folder);
}

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

  /// Tries everything that writes, in a child process.
  void TryEverything() const {
    const Fault& fault = GetParam();
    qputenv("HOME", home.c_str());
    qputenv("TMPDIR", disk.c_str());
    fault.prepare(disk);
    Session session;
    Session::Window& editor = session.editor;
    const std::filesystem::path folder = std::filesystem::current_path();
    const std::string old = editor.folder.File("old.bmp");
    std::ofstream("Morvane.ini") << "; " << std::string(5000, '-') << '\n';
    editor.Press(30, 30);
    editor.SaveAs(old);
    const Picture saved = editor.Map();
    editor.Press(60, 30);
    const Picture map = editor.Map();
    fault.occur(folder);
    const std::string names = NamesIn(folder);

    const std::string message = "The map could not be saved.\n\n" + old + "\n\n" + fault.reason;
    editor.Choose("mnuFileSave");
    EXPECT_EQ(editor.OneBox(), message);
    EXPECT_EQ(editor.window.windowTitle(), "Morvane - old.bmp");
    Options options(editor.form.document);
    options.Form_Load();
    EXPECT_FALSE(options.cmdOK_Click());
    EXPECT_TRUE(editor.OneBox().ends_with("Morvane.ini\n\n" + fault.reason));
    EXPECT_EQ(NamesIn(folder), names);

    editor.Press(90, 90);
    const Picture painted = editor.Map();
    EXPECT_NE(painted, map);
    if (fault.hitsSnapshot) {
      EXPECT_TRUE(editor.OneBox().starts_with("The map could not be kept for Undo."));
    }
    editor.Choose("mnuEditUndo");
    EXPECT_EQ(editor.Map(), fault.hitsSnapshot ? painted : map);
    editor.platform.boxes.clear();

    editor.platform.answers.push_back(Answer::Yes);
    editor.window.close();
    ASSERT_EQ(editor.platform.boxes.size(), 2U);
    const std::string rescue = NamesIn(home);
    EXPECT_TRUE(editor.platform.boxes[1].text.starts_with(
        message + "\n\nA rescue copy " +
        (fault.allowsRescue ? "was saved as\n\n" + home + '/' + rescue : "could not be written")));
    EXPECT_EQ(rescue.empty(), !fault.allowsRescue);
    EXPECT_TRUE(!fault.allowsRescue || MapIn(home + '/' + rescue) == editor.Map());
    EXPECT_TRUE(names.empty() || MapIn(old) == saved);
    std::error_code none;
    std::filesystem::permissions(folder, std::filesystem::perms(0700), none);
  }
};

TEST_P(Disk, AFaultHarmsNeitherTheOldFileNorTheMap) {
  const int outcome = RunInChild([this] { TryEverything(); });
  if (outcome == kCannot)
    GTEST_SKIP() << "Mounting a disk or changing the user isn't allowed here.";
  EXPECT_EQ(outcome, 0);
}

INSTANTIATE_TEST_SUITE_P(Faults, Disk,
                         testing::Values(Fault{"Full", std::strerror(ENOSPC), false, true,
                                               MountDisk, FillDisk},
                                         Fault{"FileSizeLimit", std::strerror(EFBIG), true, false,
                                               PrepareNothing, LimitFileSize},
                                         Fault{"ReadOnlyFolder", std::strerror(EACCES), false, true,
                                               UseModes, LockFolder},
                                         Fault{"RemovedFolder", "The folder doesn't exist.", false,
                                               true, PrepareNothing, RemoveFolder}),
                         [](const auto& fault) { return fault.param.name; });

TEST(Permissions, UnreadableFoldersAndReadOnlyFilesAreRefused) {
  const int outcome = RunInChild([] {
    BecomeOrdinaryUser();
    Session session;
    Palette& palette = session.editor.form.palette;
    const std::string locked = session.editor.folder.File("locked");
    const std::string shown = palette.Dir1.Path();
    std::filesystem::create_directory(locked);
    for (const int mode : {0300, 0600}) {
      std::filesystem::permissions(locked, std::filesystem::perms(mode));
      Dir1_Change(palette, locked);
      EXPECT_EQ(palette.document.StatusText, "The folder can't be opened: " + locked);
      EXPECT_EQ(palette.File1.Path(), shown);
    }
    std::ofstream("map.bmp") << "mine";
    std::filesystem::permissions("map.bmp", std::filesystem::perms(0400));
    const Bytes bytes = {1, 2, 3};
    MemorySource source(bytes);
    EXPECT_EQ(ReplaceFile(session.editor.folder.File("map.bmp"), source), std::strerror(EACCES));
    EXPECT_EQ(std::filesystem::file_size("map.bmp"), 4U);
    std::filesystem::permissions(locked, std::filesystem::perms(0700));
  });
  if (outcome == kCannot) GTEST_SKIP() << "Changing the user isn't allowed here.";
  EXPECT_EQ(outcome, 0);
}

}  // namespace
}  // namespace morvane

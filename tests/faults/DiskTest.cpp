#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "document/Options.h"
#include "platform/Folders.h"
#include "tests/support/Child.h"

namespace morvane {
namespace {

/// The exit code of a child that couldn't prepare its test.
constexpr int kCannot = 77;

/// In a child: gives up root, which ignores the modes of files.
void BecomeOrdinaryUser() {
  constexpr id_t kNobody = 65534;
  if (geteuid() != 0) return;
  if (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0) _exit(kCannot);
}

/// In a child: mounts a disk in memory at TMPDIR until the process ends. Only disks below /dev
/// count as volumes.
void MountSmallDisk() {
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  if (unshare(CLONE_NEWNS | CLONE_NEWUSER) != 0) _exit(kCannot);
  std::ofstream("/proc/self/setgroups") << "deny";
  std::ofstream("/proc/self/uid_map") << user + ' ' + user + " 1";
  std::ofstream("/proc/self/gid_map") << group + ' ' + group + " 1";
  if (mount("/dev/disk", qgetenv("TMPDIR"), "tmpfs", 0, "size=6m") != 0) _exit(kCannot);
  EXPECT_EQ(MountedVolumes().back(), qgetenv("TMPDIR").toStdString());
}

/// A fault of the disk or the start folder that occurs while the editor runs.
struct Fault {
  std::string reason;         ///< why a save fails
  bool hitsAll = false;       ///< also Undo, and all other folders
  void (*prepare)() = [] {};  ///< called before the editor starts
  void (*occur)() = [] {};    ///< called in the start folder
};

/// Tries everything that writes.
void TryEverything(const Fault& fault) {
  fault.prepare();
  EditorInChild editor;
  const std::string folder = editor.folder.File("");
  const std::string old = folder + "old.bmp";
  std::ofstream("Morvane.ini") << "; " << std::string(5000, '-') << '\n';
  editor.Press(30, 30);
  editor.platform.chosenFiles.push_back(old);
  editor.Choose("mnuFileSave");
  const Picture saved = editor.Map();
  editor.Press(60, 30);
  const Picture map = editor.Map();
  fault.occur();
  const std::string names = NamesIn(folder);

  const std::string message = "The map could not be saved.\n\n" + old + "\n\n" + fault.reason;
  editor.Choose("mnuFileSave");
  EXPECT_EQ(editor.OneBox(), message);
  Options options(editor.document);
  EXPECT_FALSE(options.cmdOK_Click());
  EXPECT_TRUE(editor.OneBox().ends_with("Morvane.ini\n\n" + fault.reason));

  editor.Press(90, 90);
  if (fault.hitsAll) editor.Press(90, 90);  // which isn't reported again
  const Picture painted = editor.Map();
  EXPECT_NE(painted, map);
  EXPECT_TRUE(!fault.hitsAll || editor.OneBox().starts_with("The map could not be kept for Undo"));
  editor.Choose("mnuEditUndo");
  EXPECT_EQ(editor.Map(), fault.hitsAll ? painted : map);
  EXPECT_EQ(NamesIn(folder), names) << "no failure leaves a file";
  EXPECT_EQ(NamesIn(qgetenv("XDG_STATE_HOME").toStdString()), "");

  editor.platform.boxes.clear();
  editor.platform.answers.push_back(Answer::Yes);
  editor.window.close();
  ASSERT_EQ(editor.platform.boxes.size(), 2U);
  const std::string text = editor.platform.boxes[1].text;
  const std::string rescued = message + "\n\nA rescue copy was saved as\n\n";
  EXPECT_EQ(text.starts_with(rescued), !fault.hitsAll) << text;
  EXPECT_TRUE(fault.hitsAll || MapIn(text.substr(rescued.size())) == editor.Map());
  EXPECT_TRUE(names.empty() || MapIn(old) == saved);
  chmod(folder.c_str(), 0700);  // so that it can be deleted
}

void ExpectNoHarm(const Fault& fault) {
  const QTemporaryDir home;
  const QByteArray disk = home.filePath("disk").toUtf8();
  for (const QByteArray& folder : {home.path().toUtf8(), disk}) {
    std::filesystem::create_directory(folder.constData());
    chmod(folder.constData(), 0777);
  }
  const int outcome = WaitFor(StartChild([&] {
    qputenv("HOME", home.path().toUtf8());
    qputenv("TMPDIR", disk);
    TryEverything(fault);
  }));
  if (outcome == kCannot) GTEST_SKIP() << "Mounting a disk or changing the user isn't allowed.";
  EXPECT_EQ(outcome, 0);
}

TEST(Disk, Full) {
  ExpectNoHarm({.reason = std::strerror(ENOSPC), .prepare = MountSmallDisk, .occur = [] {
                  std::ofstream filler("filler");
                  while (filler << std::string(4096, 'x') << std::flush) continue;
                }});
}

TEST(Disk, FileSizeLimit) {
  ExpectNoHarm({.reason = std::strerror(EFBIG), .hitsAll = true, .occur = [] {
                  std::signal(SIGXFSZ, SIG_IGN);  // as the program does
                  const rlimit limit{2000, RLIM_INFINITY};
                  setrlimit(RLIMIT_FSIZE, &limit);
                }});
}

TEST(Disk, ReadOnlyFolder) {
  ExpectNoHarm({.reason = std::strerror(EACCES), .prepare = BecomeOrdinaryUser, .occur = [] {
                  const std::string folder = std::filesystem::current_path();
                  // To list tiles, both reading and entering must be allowed.
                  for (const mode_t mode : {0300, 0600, 0500}) {
                    chmod(folder.c_str(), mode);
                    EXPECT_EQ(IsReadableFolder(folder), mode == 0500) << mode;
                  }
                }});
}

TEST(Disk, ReadOnlyFiles) {
  ExpectNoHarm({.reason = std::strerror(EACCES), .prepare = BecomeOrdinaryUser, .occur = [] {
                  chmod("old.bmp", 0400);
                  chmod("Morvane.ini", 0400);
                }});
}

TEST(Disk, RemovedFolder) {
  ExpectNoHarm({.reason = "The folder doesn't exist.", .prepare = BecomeOrdinaryUser, .occur = [] {
                  std::filesystem::remove_all(std::filesystem::current_path());
                }});
}

}  // namespace
}  // namespace morvane

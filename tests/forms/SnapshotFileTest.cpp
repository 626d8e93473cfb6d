#include "platform/SnapshotFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "platform/Leftovers.h"
#include "platform/PrivateFolders.h"
#include "tests/support/FileBytes.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

struct SnapshotFileTest : testing::Test {
  StartFolder folder;
  const Bytes first = {1, 2, 3, 4, 5, 6};
  const Bytes second = {9, 8};
  const char* name = "mvtmp.~mp";

  static Failure Write(SnapshotFile& file, const Bytes& bytes) {
    MemorySource source(bytes);
    return file.Write(source);
  }
  /// Empty if there is no snapshot or it can't be read.
  static Bytes Read(const SnapshotFile& file) {
    Result<std::unique_ptr<ByteSource>> source = file.Read();
    if (!source.Ok()) return {};
    Result<Bytes> read = ReadAll(*source.Value());
    return read.Ok() ? read.Value() : Bytes();
  }
  ino_t FileNumber() const {
    struct stat status {};
    EXPECT_EQ(stat(name, &status), 0);
    return status.st_ino;
  }
};

TEST_F(SnapshotFileTest, OnlyTheLatestSnapshotIsKept) {
  SnapshotFile file;
  EXPECT_EQ(Read(file), Bytes());
  EXPECT_EQ(Write(file, first), "");
  const ino_t number = FileNumber();
  EXPECT_EQ(Write(file, first), "");
  EXPECT_EQ(FileNumber(), number) << "one of the same size overwrites the file";
  EXPECT_EQ(Write(file, second), "");
  EXPECT_NE(FileNumber(), number) << "one of another size replaces the file";
  EXPECT_TRUE(file.IsUntouched());
  EXPECT_EQ(Read(file), second);
  EXPECT_TRUE(LeftoverSnapshots().empty()) << "it is locked";
  ASSERT_EQ(truncate(name, 1), 0);
  EXPECT_FALSE(file.IsUntouched());
  EXPECT_EQ(Read(file), Bytes());
  QDir::setCurrent("/");  // it stays in its folder
  EXPECT_EQ(Write(file, first), "");
  EXPECT_EQ(Read(file), first);
  file.Delete();
  EXPECT_EQ(Read(file), Bytes());
  EXPECT_FALSE(QFile::exists(QString::fromStdString(folder.File(name))));
}

TEST_F(SnapshotFileTest, LinksPipesAndFoldersOfThatNameAreNotTouched) {
  std::ofstream("target") << "mine";
  const std::vector<std::function<int()>> obstacles = {
      [this] { return symlink("target", name); }, [this] { return link("target", name); },
      [this] { return mkfifo(name, 0600); }, [this] { return mkdir(name, 0700); }};
  for (const auto& create : obstacles) {
    ASSERT_EQ(create(), 0);
    EXPECT_TRUE(LeftoverSnapshots().empty());
    SnapshotFile snapshot;
    EXPECT_EQ(Write(snapshot, first), "");
    EXPECT_EQ(Read(snapshot), first);
    snapshot.Delete();
    EXPECT_EQ(QFileInfo("target").size(), 4);
    ASSERT_EQ(remove(name), 0) << "deleted";
  }
}

TEST_F(SnapshotFileTest, WithoutAWritableFolderThereIsNone) {
  const QByteArray temporary = qgetenv("TMPDIR");
  const QByteArray state = qgetenv("XDG_STATE_HOME");
  QDir::setCurrent("/proc");
  for (const char* variable : {"TMPDIR", "XDG_STATE_HOME"}) qputenv(variable, "/proc");
  SnapshotFile file;
  EXPECT_NE(Write(file, first), "");
  EXPECT_EQ(Read(file), Bytes());
  qputenv("TMPDIR", temporary);
  qputenv("XDG_STATE_HOME", state);
  EXPECT_EQ(Write(file, first), "");
  EXPECT_EQ(Read(file), first);
}

TEST_F(SnapshotFileTest, FindsWhatKilledRunsLeft) {
  const auto leave = [this] {
    SnapshotFile file;
    EXPECT_EQ(Write(file, first), "");
  };
  leave();
  QDir::setCurrent("/proc");
  leave();
  QDir::setCurrent(QFileInfo(QString::fromStdString(folder.File(name))).path());
  std::vector<std::unique_ptr<Leftover>> found = LeftoverSnapshots();
  ASSERT_EQ(found.size(), 2U);
  for (const auto& leftover : found) EXPECT_EQ(ReadAll(*leftover).Value(), first);
  EXPECT_TRUE(LeftoverSnapshots().empty()) << "they are locked";
  EXPECT_EQ(found[0]->MoveTo(name), NewFileOutcome::NameTaken);
  EXPECT_EQ(found[0]->MoveTo(folder.File("kept")), NewFileOutcome::Done);
  EXPECT_FALSE(QFile::exists(name));
  for (const auto& leftover : found) leftover->Delete();
  found.clear();
  EXPECT_EQ(QFileInfo("kept").size(), 6);
  for (const off_t size : {off_t{0}, off_t{1} << 31U}) {
    const std::ofstream file(name);
    ASSERT_EQ(truncate(name, size), 0);
    EXPECT_TRUE(LeftoverSnapshots().empty()) << size;
  }
}

TEST_F(SnapshotFileTest, PrivateFoldersMustNotBeLinksOrWritableByOthers) {
  const std::string state = qgetenv("XDG_STATE_HOME").toStdString() + "/morvane";
  ASSERT_EQ(mkdir(state.c_str(), 0700), 0);
  ASSERT_EQ(chmod(state.c_str(), 0777), 0);
  EXPECT_FALSE(MakePrivateFolder(state).IsOpen());
  ASSERT_EQ(rmdir(state.c_str()), 0);
  ASSERT_EQ(symlink(folder.File("").c_str(), state.c_str()), 0);
  EXPECT_FALSE(MakePrivateFolder(state).IsOpen());
  ASSERT_EQ(unlink(state.c_str()), 0);
  QtPlatform platform;
  for (const char* path : {"/maps/one.bmp", "/maps/other.bmp"}) platform.NoteRescueCopy(path);
  EXPECT_EQ(platform.RescueNotes().size(), 2U);
  platform.DeleteRescueNotes({"/maps/one.bmp"});
  EXPECT_EQ(platform.RescueNotes(), std::vector<std::string>{"/maps/other.bmp"});
  platform.DeleteRescueNotes({"/maps/other.bmp"});
  EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(state)));
}

}  // namespace
}  // namespace morvane

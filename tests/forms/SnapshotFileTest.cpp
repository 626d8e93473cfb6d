#include "platform/SnapshotFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>

#include "platform/Leftovers.h"
#include "platform/PrivateFolders.h"
#include "tests/support/FileBytes.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

struct SnapshotFileTest : testing::Test {
  StartFolder folder;
  QtPlatform platform;
  const Bytes first = {1, 2, 3, 4, 5, 6};
  const Bytes second = {9, 8};
  const char* name = "mvtmp.~mp";

  static Failure Write(SnapshotFile& file, const Bytes& bytes) {
    MemorySource source(bytes);
    return file.Write(source);
  }
  /// Nothing where there is no snapshot, or it can't be read.
  static Bytes Read(const SnapshotFile& file) {
    Result<std::unique_ptr<ByteSource>> source = file.Read();
    if (!source.Ok()) return {};
    Result<Bytes> read = ReadAll(*source.Value());
    return read.Ok() ? read.Value() : Bytes();
  }
};

TEST_F(SnapshotFileTest, OnlyTheNewestStaysAndItEndsWithTheRun) {
  {
    SnapshotFile file;
    EXPECT_EQ(Read(file), Bytes());
    EXPECT_EQ(Write(file, first), "");
    EXPECT_EQ(Write(file, second), "");
    EXPECT_EQ(Read(file), second);
    EXPECT_EQ(QFileInfo(name).size(), 2);
    QDir::setCurrent("/");  // it stays where it began
    EXPECT_EQ(Write(file, first), "");
    EXPECT_FALSE(QFile::exists(name));
    EXPECT_EQ(Read(file), first);
    file.Delete();
    EXPECT_EQ(Read(file), Bytes());
  }
  EXPECT_FALSE(QFile::exists(QString::fromStdString(folder.File(name))));
}

TEST_F(SnapshotFileTest, TwoProcessesKeepTheirOwn) {
  SnapshotFile one;
  SnapshotFile two;
  ASSERT_EQ(Write(one, first), "");
  ASSERT_EQ(Write(two, second), "");
  EXPECT_EQ(Read(one), first);
  EXPECT_EQ(Read(two), second);
  two.Delete();
  EXPECT_TRUE(QFile::exists(name));
}

TEST_F(SnapshotFileTest, NothingThatWasPlantedIsWrittenThrough) {
  const auto target = [] {
    QFile file("target");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  };
  QFile file("target");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("mine");
  file.close();
  const std::vector<std::function<int()>> plants = {
      [this] { return symlink("target", name); },
      [this] { return link("target", name); },
      [this] { return mkfifo(name, 0600); },
      [this] { return mkdir(name, 0700); },
  };
  for (const auto& plant : plants) {
    ASSERT_EQ(plant(), 0);
    EXPECT_TRUE(LeftoverSnapshots().empty());
    SnapshotFile snapshot;
    EXPECT_EQ(Write(snapshot, first), "");
    EXPECT_EQ(Read(snapshot), first);
    EXPECT_EQ(target(), "mine");
    snapshot.Delete();
    ASSERT_TRUE(QFileInfo(name).isSymLink() || QFileInfo::exists(name)) << "the plant is not ours";
    ASSERT_EQ(remove(name), 0);
  }
}

TEST_F(SnapshotFileTest, AFolderThatCannotBeWrittenIsNoHindranceButTwoAre) {
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

TEST_F(SnapshotFileTest, WhatAKilledRunLeavesIsFoundWhereverItLies) {
  const auto leave = [this] {
    SnapshotFile file;
    EXPECT_EQ(Write(file, first), "");
    EXPECT_TRUE(LeftoverSnapshots().empty()) << "a running one is taken";
  };
  leave();
  QDir::setCurrent("/proc");
  leave();
  QDir::setCurrent(QFileInfo(QString::fromStdString(folder.File(name))).path());
  std::vector<std::unique_ptr<Leftover>> found = LeftoverSnapshots();
  ASSERT_EQ(found.size(), 2U);
  for (const auto& leftover : found) EXPECT_EQ(ReadAll(*leftover).Value(), first);
  EXPECT_TRUE(LeftoverSnapshots().empty()) << "taken twice";
  EXPECT_EQ(found[0]->MoveTo(name), NewFileOutcome::NameTaken);
  EXPECT_EQ(found[0]->MoveTo(folder.File("kept")), NewFileOutcome::Done);
  EXPECT_FALSE(QFile::exists(name));
  for (const auto& leftover : found) leftover->Delete();
  EXPECT_EQ(QFileInfo("kept").size(), 6);
  found.clear();
  EXPECT_TRUE(LeftoverSnapshots().empty());

  const std::string empty = qgetenv("XDG_STATE_HOME").toStdString() + "/morvane";
  mkdir(empty.c_str(), 0700);
  QFile half(QString::fromStdString(empty + "/mvtmp.~mp.1"));
  ASSERT_TRUE(half.open(QIODevice::WriteOnly));
  half.close();
  EXPECT_TRUE(LeftoverSnapshots().empty());
  EXPECT_FALSE(half.exists());
  for (const off_t size : {off_t{0}, off_t{1} << 31U}) {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(size));
    EXPECT_TRUE(LeftoverSnapshots().empty()) << size;
  }
}

TEST_F(SnapshotFileTest, AFolderThatOthersCouldWriteIsNotTrusted) {
  const std::string state = qgetenv("XDG_STATE_HOME").toStdString() + "/morvane";
  ASSERT_EQ(mkdir(state.c_str(), 0700), 0);
  ASSERT_EQ(chmod(state.c_str(), 0777), 0);
  EXPECT_FALSE(MakePrivateFolder(state).IsOpen());
  ASSERT_EQ(rmdir(state.c_str()), 0);
  ASSERT_EQ(symlink(folder.File("").c_str(), state.c_str()), 0);
  EXPECT_FALSE(MakePrivateFolder(state).IsOpen());
  ASSERT_EQ(unlink(state.c_str()), 0);
  for (const char* path : {"/maps/one.bmp", "/maps/other.bmp"}) platform.NoteRescueCopy(path);
  EXPECT_EQ(platform.RescueNotes().size(), 2U);
  platform.DeleteRescueNotes({"/maps/one.bmp"});
  EXPECT_EQ(platform.RescueNotes(), std::vector<std::string>{"/maps/other.bmp"});
  platform.DeleteRescueNotes({"/maps/other.bmp"});
  EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(state)));
}

TEST_F(SnapshotFileTest, OneOfAnotherFormTakesThePlaceOfTheOldOneWhole) {
  SnapshotFile file;
  ASSERT_EQ(Write(file, first), "");
  struct stat old {};
  struct stat fresh {};
  ASSERT_EQ(stat(name, &old), 0);
  const auto write = [&](const Bytes& bytes) {
    EXPECT_EQ(Write(file, bytes), "");
    EXPECT_EQ(Read(file), bytes);
    EXPECT_EQ(stat(name, &fresh), 0);
    return fresh.st_ino;
  };
  EXPECT_EQ(write(first), old.st_ino);
  EXPECT_NE(write(second), old.st_ino);
  EXPECT_TRUE(file.IsUntouched());
  EXPECT_TRUE(LeftoverSnapshots().empty()) << "the new file isn't locked";
}

TEST_F(SnapshotFileTest, AFileThatWasDeletedOrCutByOthersIsNoticed) {
  SnapshotFile file;
  ASSERT_EQ(Write(file, first), "");
  EXPECT_TRUE(file.IsUntouched());
  ASSERT_EQ(truncate(name, 3), 0);
  EXPECT_FALSE(file.IsUntouched());
  EXPECT_EQ(Read(file), Bytes());
  ASSERT_EQ(Write(file, first), "");
  ASSERT_EQ(unlink(name), 0);
  EXPECT_EQ(Read(file), first);
}

}  // namespace
}  // namespace morvane

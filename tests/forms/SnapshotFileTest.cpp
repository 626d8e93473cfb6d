#include "platform/SnapshotFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>

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

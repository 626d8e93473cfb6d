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
  SnapshotFile file;

  static Failure Write(SnapshotFile& file, const Bytes& bytes) {
    MemorySource source(bytes);
    return file.Write(source);
  }
  /// Empty if there is no snapshot or it can't be read.
  static Bytes Read(const SnapshotFile& file) {
    Result<std::unique_ptr<ByteSource>> source = file.Read();
    if (!source.Ok()) return {};
    Result<Bytes> bytes = ReadAll(*source.Value());
    return bytes.Ok() ? bytes.Value() : Bytes();
  }
};

TEST_F(SnapshotFileTest, OnlyTheLatestSnapshotIsKept) {
  EXPECT_EQ(Read(file), Bytes());
  EXPECT_EQ(Write(file, first), "");
  std::filesystem::create_hard_link(name, "old");
  EXPECT_EQ(Write(file, first), "");
  EXPECT_TRUE(std::filesystem::equivalent(name, "old")) << "one of the same size overwrites it";
  EXPECT_EQ(Write(file, second), "");
  EXPECT_FALSE(std::filesystem::equivalent(name, "old")) << "one of another size replaces it";
  EXPECT_TRUE(file.IsUntouched());
  EXPECT_EQ(Read(file), second);
  ASSERT_EQ(truncate(name, 1), 0);
  EXPECT_FALSE(file.IsUntouched());
  EXPECT_EQ(Read(file), Bytes());
  QDir::setCurrent("/");  // it stays in its folder
  EXPECT_EQ(Write(file, first), "");
  EXPECT_EQ(Read(file), first);
  file.Delete();
  EXPECT_EQ(Read(file), Bytes());
  EXPECT_FALSE(std::filesystem::exists(folder.File(name)));
}

TEST_F(SnapshotFileTest, WhatHasItsNameIsNotTouched) {
  std::ofstream("target") << "mine";
  const std::vector<std::function<int()>> obstacles = {
      [this] { return symlink("target", name); }, [this] { return link("target", name); },
      [this] { return mkfifo(name, 0600); }, [this] { return mkdir(name, 0700); }};
  for (const auto& create : obstacles) {
    ASSERT_EQ(create(), 0);
    EXPECT_TRUE(LeftoverSnapshots().empty());
    EXPECT_EQ(Write(file, first), "");
    EXPECT_EQ(Read(file), first);
    file.Delete();
    ASSERT_EQ(remove(name), 0) << "deleted";
  }
  EXPECT_EQ(std::filesystem::file_size("target"), 4U);
}

TEST_F(SnapshotFileTest, AFolderThatFailsIsGivenUp) {
  EXPECT_EQ(Write(file, first), "");
  for (int i = 1; i <= 100; ++i) mkdir((".morvane-save-" + std::to_string(i)).c_str(), 0700);
  EXPECT_EQ(Write(file, second), "");
  EXPECT_EQ(Read(file), second);
  EXPECT_FALSE(std::filesystem::exists(name));
  OwnedBytes broken(first);
  broken.readable = 5;
  EXPECT_NE(file.Write(broken), "");
  EXPECT_EQ(Read(file), Bytes()) << "an earlier map";
}

TEST_F(SnapshotFileTest, KilledRunsInOneFolderLeaveTheirOwn) {
  {
    SnapshotFile other;
    EXPECT_EQ(Write(file, first), "");
    EXPECT_EQ(Write(other, second), "");
    EXPECT_TRUE(LeftoverSnapshots().empty()) << "they are locked";
    file = SnapshotFile();  // doesn't delete the old one
  }
  std::vector<std::unique_ptr<Leftover>> found = LeftoverSnapshots();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(ReadAll(*found[0]).Value(), first);
  EXPECT_EQ(ReadAll(*found[1]).Value(), second);
  EXPECT_EQ(found[0]->MoveTo(name), NewFileOutcome::NameTaken);
  EXPECT_EQ(found[0]->MoveTo(folder.File("kept")), NewFileOutcome::Done);
  EXPECT_FALSE(std::filesystem::exists(name));
  for (const auto& leftover : found) leftover->Delete();
  found.clear();
  EXPECT_EQ(std::filesystem::file_size("kept"), 6U);
  for (const off_t size : {off_t{0}, off_t{1} << 31U}) {
    const std::ofstream implausible(name);
    ASSERT_EQ(truncate(name, size), 0);
    EXPECT_TRUE(LeftoverSnapshots().empty()) << size;
  }
}

TEST_F(SnapshotFileTest, PrivateFoldersMustNotBeLinksOrWritableByOthers) {
  EXPECT_TRUE(MakePrivateFolder("mine").IsOpen());
  ASSERT_EQ(symlink("mine", "link"), 0);
  EXPECT_FALSE(MakePrivateFolder("link").IsOpen());
  ASSERT_EQ(chmod("mine", 0777), 0);
  EXPECT_FALSE(MakePrivateFolder("mine").IsOpen());
}

}  // namespace
}  // namespace morvane

#include "platform/SnapshotFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include "platform/Leftovers.h"
#include "platform/PrivateFolders.h"
#include "tests/support/FormFixture.h"

namespace morvane {
namespace {

struct SnapshotFileTest : testing::Test {
  StartFolder folder;
  const Bytes first = {1, 2, 3, 4, 5, 6};
  const Bytes second = {9, 8};
  const char* name = "mvtmp.~mp";
  SnapshotFile file;

  static void WriteAndReadBack(SnapshotFile& file, const Bytes& bytes) {
    MemorySource source(bytes);
    EXPECT_EQ(file.Write(source), "");
    EXPECT_EQ(ReadAll(*file.Read().Value()).Value(), bytes);
  }
};

TEST_F(SnapshotFileTest, OnlyTheLatestSnapshotIsKept) {
  WriteAndReadBack(file, first);
  std::filesystem::create_hard_link(name, "old");
  WriteAndReadBack(file, first);
  EXPECT_TRUE(std::filesystem::equivalent(name, "old")) << "one of the same size overwrites it";
  WriteAndReadBack(file, second);
  EXPECT_FALSE(std::filesystem::equivalent(name, "old")) << "one of another size replaces it";
  EXPECT_TRUE(file.IsUntouched());
  ASSERT_EQ(truncate(name, 1), 0);
  EXPECT_FALSE(ReadAll(*file.Read().Value()).Ok());
  QDir::setCurrent("/");  // it stays in its folder
  WriteAndReadBack(file, first);
  file.Delete();
  EXPECT_EQ(NamesIn(folder.File("")), "old");
}

TEST_F(SnapshotFileTest, WhatHasItsNameIsNotTouched) {
  WriteFile("target", second);
  const std::vector<std::function<int()>> obstacles = {
      [this] { return symlink("target", name); }, [this] { return link("target", name); },
      [this] { return mkfifo(name, 0600); }, [this] { return mkdir(name, 0700); }};
  for (const auto& create : obstacles) {
    ASSERT_EQ(create(), 0);
    EXPECT_TRUE(LeftoverSnapshots().empty());
    WriteAndReadBack(file, first);
    file.Delete();
    ASSERT_EQ(remove(name), 0) << "deleted";
  }
  EXPECT_EQ(ReadFile("target"), second);
}

TEST_F(SnapshotFileTest, AFolderThatFailsIsGivenUp) {
  WriteAndReadBack(file, first);
  for (int i = 1; i <= 100; ++i) mkdir((".morvane-save-" + std::to_string(i)).c_str(), 0700);
  WriteAndReadBack(file, second);
  EXPECT_FALSE(std::filesystem::exists(name));
  OwnedBytes broken(first);
  broken.readable = 5;
  EXPECT_NE(file.Write(broken), "");
  EXPECT_FALSE(file.Read().Ok()) << "an earlier map";
}

TEST_F(SnapshotFileTest, KilledRunsInOneFolderLeaveTheirOwn) {
  {
    SnapshotFile other;
    WriteAndReadBack(file, first);
    WriteAndReadBack(other, second);
    EXPECT_TRUE(LeftoverSnapshots().empty()) << "they are locked";
    file = SnapshotFile();  // doesn't delete the old one
  }
  std::vector<std::unique_ptr<Leftover>> found = LeftoverSnapshots();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(ReadAll(*found[0]).Value(), first);
  EXPECT_EQ(ReadAll(*found[1]).Value(), second);
  for (const auto& leftover : found) leftover->Delete();
  found.clear();
  for (const off_t size : {off_t{0}, off_t{1} << 31U}) {
    WriteFile(name, {});
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

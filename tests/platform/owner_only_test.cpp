#include "platform/owner_only.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "support/temp_folder.h"
#include "support/umask.h"

namespace cu {
namespace {

struct OwnerOnly : ::testing::TestWithParam<mode_t> {
  test::TempFolder folder;
  test::Umask umask{GetParam()};
};

TEST_P(OwnerOnly, ANewFileIsItsOwnersAlone) {
  ASSERT_EQ(createOwnerOnlyFile(folder / "a"), 0);
  EXPECT_EQ(test::modeOf(folder / "a"), 0600U);
}

TEST_P(OwnerOnly, NewFoldersAreTheirOwnersAlone) {
  ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
  ASSERT_EQ(createOwnerOnlyFolder(folder / "a/b/c/"), 0);
  EXPECT_EQ(test::modeOf(folder / "a"), 0700U);
  EXPECT_EQ(test::modeOf(folder / "a/b"), 0700U);
  EXPECT_EQ(test::modeOf(folder / "a/b/c"), 0700U);
  EXPECT_EQ(test::modeOf(folder.path()), 0755U);
  EXPECT_EQ(createOwnerOnlyFolder(folder / "a/b"), 0);
}

INSTANTIATE_TEST_SUITE_P(Umasks, OwnerOnly, ::testing::Values(0, 022, 077, 0777));

TEST(OwnerOnlyFile, AnExistingOneIsLeftAsItIs) {
  const test::TempFolder folder;
  folder.write("a", "vecchio");
  ASSERT_EQ(::chmod((folder / "a").c_str(), 0640), 0);
  EXPECT_EQ(createOwnerOnlyFile(folder / "a"), EEXIST);
  EXPECT_EQ(folder.read("a"), "vecchio");
  EXPECT_EQ(test::modeOf(folder / "a"), 0640U);
}

TEST(OwnerOnlyFile, AMissingFolderIsTheSystemsError) {
  const test::TempFolder folder;
  EXPECT_EQ(createOwnerOnlyFile(folder / "manca/a"), ENOENT);
}

TEST(OwnerOnlyFolder, AFileInItsPlaceIsAnError) {
  const test::TempFolder folder;
  folder.write("a", "");
  EXPECT_NE(createOwnerOnlyFolder(folder / "a"), 0);
  EXPECT_NE(createOwnerOnlyFolder(folder / "a/b"), 0);
}

struct Readers : ::testing::Test {
  test::TempFolder folder;
  std::string file = folder / "a/b";
  void SetUp() override {
    std::filesystem::create_directory(folder / "a");
    folder.write("a/b", "");
    folderMode(0755);
    ::chmod(folder.path().c_str(), 0755);
  }
  void fileMode(mode_t mode) { ASSERT_EQ(::chmod(file.c_str(), mode), 0); }
  void folderMode(mode_t mode) { ASSERT_EQ(::chmod((folder / "a").c_str(), mode), 0); }
};

TEST_F(Readers, AreNoneOfAFileOfItsOwnerAlone) {
  fileMode(0600);
  EXPECT_EQ(otherReaders(file), OtherReaders::None);
}

TEST_F(Readers, AreAllOfAFileThatEverybodyCanRead) {
  fileMode(0604);
  EXPECT_EQ(otherReaders(file), OtherReaders::Everybody);
}

TEST_F(Readers, AreNoneInAFolderOfTheOwnerAlone) {
  fileMode(0644);
  folderMode(0700);
  EXPECT_EQ(otherReaders(file), OtherReaders::None);
}

TEST_F(Readers, AreFoundThroughALink) {
  fileMode(0644);
  folderMode(0700);
  std::filesystem::create_symlink(file, folder / "link");
  EXPECT_EQ(otherReaders(folder / "link"), OtherReaders::None);
  folderMode(0755);
  EXPECT_EQ(otherReaders(folder / "link"), OtherReaders::Everybody);
}

TEST_F(Readers, AreTheGroupWhereItIsMoreThanTheOwner) {
  constexpr gid_t kUsers = 100;
  fileMode(0640);
  EXPECT_EQ(otherReaders(file), OtherReaders::None);  // the group that has the owner's name
  // Only the administrator can give a file to any group.
  const bool given = ::chown(file.c_str(), static_cast<uid_t>(-1), kUsers) == 0;
  EXPECT_EQ(otherReaders(file), given ? OtherReaders::Group : OtherReaders::None);
}

TEST_F(Readers, AreNoneWithoutAFile) { EXPECT_EQ(otherReaders(folder / "manca"), OtherReaders::None); }

TEST_F(Readers, AreNoneAfterTheirRightsAreRemoved) {
  fileMode(0666);
  EXPECT_EQ(restrictToOwner(file), 0);
  EXPECT_EQ(test::modeOf(file), 0600U);
  EXPECT_EQ(otherReaders(file), OtherReaders::None);
  EXPECT_EQ(restrictToOwner(folder / "manca"), ENOENT);
}

}  // namespace
}  // namespace cu

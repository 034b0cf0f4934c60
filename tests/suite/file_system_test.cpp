#include "suite/file_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/error.h"
#include "suite/platform_file.h"
#include "support/temp_folder.h"
#include "support/umask.h"

namespace cu {
namespace {

template <class F>
int numero(F&& operazione) {
  try {
    operazione();
  } catch (const FileError& error) {
    return error.number();
  }
  return 0;
}

struct FileSystemTest : ::testing::Test {
  test::TempFolder cartella;
  FileSystemPiattaforma files;
};

TEST_F(FileSystemTest, AnExistingFileIsEmptiedByOpening) {
  cartella.write("a.cur", "vecchio");
  files.openForOutput(cartella / "a.cur")->close();
  EXPECT_EQ(cartella.read("a.cur"), "");
}

TEST_F(FileSystemTest, WholeLinesAreGatheredIntoBlocks) {
  const std::string riga(1900, 'x');
  const auto file = files.openForOutput(cartella / "a.cur");
  for (int i = 0; i < 552; ++i) file->write(riga);
  EXPECT_EQ(std::filesystem::file_size(cartella / "a.cur"), 0U);
  file->write(riga);
  EXPECT_EQ(std::filesystem::file_size(cartella / "a.cur"), 1'048'800U);
  file->close();
  EXPECT_EQ(std::filesystem::file_size(cartella / "a.cur"), 553U * 1900U);
}

TEST_F(FileSystemTest, TheContentIsThatOfTheWrites) {
  std::string atteso;
  {
    const auto file = files.openForOutput(cartella / "a.cur");
    for (int i = 0; i < 3000; ++i) {
      const std::string pezzo(static_cast<std::size_t>(i % 1901), static_cast<char>('a' + i % 26));
      file->write(pezzo);
      atteso += pezzo;
    }
    const std::string enorme(3'000'000, '#');
    file->write(enorme);
    file->write("fine");
    atteso += enorme + "fine";
    file->close();
  }
  EXPECT_TRUE(cartella.read("a.cur") == atteso);
}

TEST_F(FileSystemTest, WhatWasWrittenStaysWhenTheOwnerGoes) {
  {
    const auto file = files.openForOutput(cartella / "a.cur");
    file->write("riga\r\n");
  }
  EXPECT_EQ(cartella.read("a.cur"), "riga\r\n");
}

TEST_F(FileSystemTest, AWriteAfterTheCloseIsRefused) {
  const auto file = files.openForOutput(cartella / "a.cur");
  file->close();
  EXPECT_EQ(numero([&] { file->write("x"); }), kErrorBadFile);
  file->close();
}

TEST_F(FileSystemTest, AFullDiskIsReportedByTheWriteOrTheClose) {
  const auto chiusa = files.openForOutput("/dev/full");
  chiusa->write("x");
  EXPECT_EQ(numero([&] { chiusa->close(); }), kErrorDiskFull);
  const auto scritta = files.openForOutput("/dev/full");
  const std::string riga(1900, 'x');
  for (int i = 0; i < 552; ++i) scritta->write(riga);
  EXPECT_EQ(numero([&] { scritta->write(riga); }), kErrorDiskFull);
}

TEST_F(FileSystemTest, EachRefusalOfTheSystemHasItsNumberAndAnItalianText) {
  EXPECT_EQ(numero([&] { files.openForOutput(cartella / "manca/a.cur"); }), kErrorPathNotFound);
  EXPECT_EQ(numero([&] { files.openForOutput(""); }), kErrorPathNotFound);
  EXPECT_EQ(numero([&] { files.openForOutput(cartella.path()); }), kErrorPathAccess);
  EXPECT_EQ(numero([&] { files.openForOutput(std::string("/tmp/a\0b", 8)); }), kErrorPathNotFound);
  EXPECT_EQ(fileError(ENOENT, "/x").description(), "Percorso non trovato: /x");
  EXPECT_EQ(fileError(EACCES, "/x").description(), "Impossibile accedere al percorso o al file: /x");
  EXPECT_EQ(fileError(EACCES, "/x").number(), 75);
  EXPECT_EQ(fileError(EROFS, "/x").number(), 75);
  EXPECT_EQ(fileError(ETXTBSY, "/x").description(), "Il file è in uso: /x");
  EXPECT_EQ(fileError(EBUSY, "/x").number(), 70);
  EXPECT_EQ(fileError(ENOSPC, "/x").description(), "Spazio su disco esaurito: /x");
  EXPECT_EQ(fileError(EDQUOT, "/x").number(), 61);
  EXPECT_EQ(fileError(EIO, "/x").number(), 57);
  EXPECT_EQ(fileError(EIO, "/x").description(),
            "Errore del dispositivo durante la lettura o la scrittura: /x (codice di sistema 5)");
}

TEST_F(FileSystemTest, ExistenceTellsFilesFromFolders) {
  const std::string file = cartella.write("a", "");
  EXPECT_TRUE(files.fileExists(file));
  EXPECT_FALSE(files.folderExists(file));
  EXPECT_FALSE(files.fileExists(cartella.path()));
  EXPECT_TRUE(files.folderExists(cartella.path()));
  EXPECT_FALSE(files.fileExists(cartella / "b"));
  EXPECT_FALSE(files.folderExists(""));
}

TEST_F(FileSystemTest, AFolderIsCreatedOneLevelDeep) {
  files.createFolder(cartella / "uno");
  EXPECT_TRUE(files.folderExists(cartella / "uno"));
  EXPECT_EQ(numero([&] { files.createFolder(cartella / "due/tre"); }), kErrorPathNotFound);
  EXPECT_EQ(numero([&] { files.createFolder(cartella / "uno"); }), kErrorPathAccess);
}

TEST_F(FileSystemTest, ACopyOverwrites) {
  cartella.write("da", "nuovo");
  cartella.write("a", "vecchio contenuto");
  files.copy(cartella / "da", cartella / "a");
  EXPECT_EQ(cartella.read("a"), "nuovo");
  files.copy(cartella / "da", cartella / "da");
  EXPECT_EQ(cartella.read("da"), "nuovo");
  EXPECT_EQ(numero([&] { files.copy(cartella / "manca", cartella / "a"); }), kErrorFileNotFound);
  EXPECT_EQ(numero([&] { files.copy(cartella / "da", cartella / "manca/a"); }), kErrorPathNotFound);
}

TEST_F(FileSystemTest, AReplacementIsWholeAndLeavesNothingBeside) {
  cartella.write("a", "prima");
  ::chmod((cartella / "a").c_str(), 0640);
  files.replace(cartella / "a", "dopo");
  EXPECT_EQ(cartella.read("a"), "dopo");
  EXPECT_EQ(test::modeOf(cartella / "a"), 0640U);
  EXPECT_EQ(numero([&] { files.replace(cartella / "manca/a", "x"); }), kErrorPathNotFound);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(cartella.path()),
                          std::filesystem::directory_iterator()),
            1);
}

TEST_F(FileSystemTest, AReplacementThroughALinkKeepsTheLink) {
  cartella.write("vero", "prima");
  std::filesystem::create_symlink(cartella / "vero", cartella / "nome");
  files.replace(cartella / "nome", "dopo");
  EXPECT_TRUE(std::filesystem::is_symlink(cartella / "nome"));
  EXPECT_EQ(cartella.read("vero"), "dopo");
}

TEST_F(FileSystemTest, AReplacementInPiecesIsWholeOrDoesNotHappen) {
  const std::string file = cartella.write("r.json", "vecchio");
  EXPECT_THROW(replaceFileInPieces(file,
                                   [](const PieceWriter& scrivi) {
                                     scrivi("nuo");
                                     throw std::runtime_error("interrotto");
                                   }),
               std::runtime_error);
  EXPECT_EQ(cartella.read("r.json"), "vecchio");
  replaceFileInPieces(file, [](const PieceWriter& scrivi) {
    scrivi("nuo");
    scrivi("vo");
  });
  EXPECT_EQ(cartella.read("r.json"), "nuovo");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(cartella.path()), {}), 1);
}

TEST_F(FileSystemTest, ReadRemoveAndRenameNeedAFile) {
  cartella.write("a", std::string("x\0y", 3));
  EXPECT_EQ(files.readAll(cartella / "a"), std::string("x\0y", 3));
  files.rename(cartella / "a", cartella / "b");
  EXPECT_FALSE(files.fileExists(cartella / "a"));
  files.remove(cartella / "b");
  EXPECT_FALSE(files.fileExists(cartella / "b"));
  EXPECT_EQ(numero([&] { files.readAll(cartella / "b"); }), kErrorFileNotFound);
  EXPECT_EQ(numero([&] { files.remove(cartella / "b"); }), kErrorFileNotFound);
  EXPECT_EQ(numero([&] { files.rename(cartella / "b", cartella / "c"); }), kErrorFileNotFound);
}

TEST_F(FileSystemTest, AJoinPutsOneSeparator) {
  EXPECT_EQ(files.join("/home/x", "a.cur"), "/home/x/a.cur");
  EXPECT_EQ(files.join("/home/x/", "a.cur"), "/home/x/a.cur");
  EXPECT_EQ(files.join("", "Velatura.chm"), "/Velatura.chm");
}

TEST_F(FileSystemTest, AFileCanBeMadeWhereOneWasMadeForATrialAndIsGoneAgain) {
  EXPECT_TRUE(files.canWriteIn(cartella.path()));
  EXPECT_TRUE(std::filesystem::is_empty(cartella.path()));
  EXPECT_FALSE(files.canWriteIn(cartella / "manca"));
  cartella.write("file", "");
  EXPECT_FALSE(files.canWriteIn(cartella / "file"));
  // Not even the superuser can create a file here.
  EXPECT_FALSE(files.canWriteIn("/proc"));
}

TEST_F(FileSystemTest, WhetherAFileCanBeWrittenIsTriedWithoutAChangeOfIt) {
  cartella.write("file", "prima");
  const auto ora = std::filesystem::last_write_time(cartella / "file");
  EXPECT_TRUE(files.canWrite(cartella / "file"));
  EXPECT_EQ(cartella.read("file"), "prima");
  EXPECT_EQ(std::filesystem::last_write_time(cartella / "file"), ora);
  EXPECT_FALSE(files.canWrite(cartella / "manca"));
  EXPECT_FALSE(files.fileExists(cartella / "manca"));
  EXPECT_FALSE(files.canWrite(cartella.path()));
  // Not even for the superuser; nor does the call wait for the other end.
  ASSERT_EQ(::mkfifo((cartella / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(files.canWrite(cartella / "pipe"));
  std::filesystem::permissions(cartella / "file", std::filesystem::perms::owner_read);
  if (::geteuid() != 0) {
    EXPECT_FALSE(files.canWrite(cartella / "file"));
  }
}

}  // namespace
}  // namespace cu

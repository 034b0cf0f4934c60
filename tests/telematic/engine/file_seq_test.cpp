#include "telematic/engine/file_seq.h"

#include <gtest/gtest.h>

#include <string>

#include "base/error.h"
#include "support/memory_file_system.h"
#include "support/scripted_front_end.h"
#include "telematic/engine/record_image.h"
#include "telematic/engine/records.h"

namespace cu {
namespace {

using test::MemoryFileSystem;

class FileSeqTest : public testing::Test {
 protected:
  FileSeqTest() {
    file_.setFileName("prova.cur");
    file_.setFilePathName("/prova.cur");
  }
  const std::string& content() { return files_.files.at("/prova.cur"); }
  template <class Operation>
  static int errorOf(const Operation& operation) {
    try {
      operation();
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  }

  MemoryFileSystem files_;
  test::ScriptedFrontEnd frontEnd_;
  FileSeq file_{files_, frontEnd_};
  CURecord record_;
};

TEST_F(FileSeqTest, AValueOfExactlyTheFieldsLengthFillsItAndTouchesNeitherNeighbour) {
  record_.Fields().Add("Prima", 0, 2).setValue("xx");
  record_.Fields().Add("Campo", 2, 4).setValue("1234");
  record_.Fields().Add("Dopo", 6, 2).setValue("yy");
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "xx1234yy\r\n");
}

TEST_F(FileSeqTest, AShorterValueLiesAtTheLeftEndAndBlanksFollow) {
  record_.Fields().Add("Campo", 0, 5).setValue("ab");
  record_.Fields().Add("Dopo", 5, 1).setValue("A");
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "ab   A\r\n");
}

TEST_F(FileSeqTest, ALongerValueIsCutAtTheRightSilently) {
  record_.Fields().Add("Campo", 0, 3).setValue("abcdef");
  record_.Fields().Add("Dopo", 3, 2);
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "abc  \r\n");
  EXPECT_EQ(record_.Fields().Item("Campo").Value(), "abcdef");
  EXPECT_TRUE(frontEnd_.boxes.empty());
}

TEST_F(FileSeqTest, AnEmptyValueAndAFieldNeverSetLeaveBlanks) {
  record_.Fields().Add("Mai", 0, 3);
  record_.Fields().Add("Vuoto", 3, 3).setValue("");
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "      \r\n");
}

TEST_F(FileSeqTest, FieldsArePlacedInCollectionOrderSoTheLaterOneWinsWhereTheyOverlap) {
  record_.Fields().Add("Uno", 1, 4).setValue("1111");
  record_.Fields().Add("Due", 0, 2).setValue("22");
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "22111 \r\n");
}

TEST_F(FileSeqTest, ValuesAreMovedCharacterByCharacter) {
  const std::string odd(" a;\t\0\"z", 7);
  record_.Fields().Add("Campo", 0, 8).setValue(odd);
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), odd + " \r\n");
}

TEST_F(FileSeqTest, AnAccentedCharacterOccupiesOneByteOnDisk) {
  record_.Fields().Add("Campo", 0, 6).setValue("NICOL\xD2");
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "NICOL\xD2\r\n");
}

TEST_F(FileSeqTest, TwoWritesWithNothingChangedYieldTwoIdenticalLines) {
  record_.Fields().Add("Campo", 0, 4).setValue("abc");
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "abc \r\nabc \r\n");
  EXPECT_EQ(record_.Fields().Item("Campo").Value(), "abc");
}

TEST_F(FileSeqTest, ADocumentsNumberGetsAMarkBehindItsSixFigures) {
  record_.Fields().Add("N. e Data Documento", 0, 12).setValue("123456-90120");
  record_.Fields().Add("data documento", 12, 8).setValue("12345678");
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "123456;9012012345678\r\n");
}

TEST_F(FileSeqTest, ADocumentFieldWithoutAValueGetsNoMark) {
  record_.Fields().Add("Data Documento", 0, 8);
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "        \r\n");
}

TEST_F(FileSeqTest, AnOffsetOutsideTheRecordRaises5AndWritesNoLine) {
  record_.Fields().Add("Prima", 0, 2).setValue("xx");
  record_.Fields().Add("Fuori", 4, 2);
  file_.OpenFile(0);
  EXPECT_EQ(errorOf([&] { file_.WriteRecord(record_); }), 5);
  EXPECT_EQ(content(), "");
  EXPECT_TRUE(file_.IsOpen());
  record_.Fields().Item("Fuori").setOffset(3);
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "xx  \r\n");
}

TEST_F(FileSeqTest, ARecordOfNegativeWidthRaises5AndWritesNoLine) {
  record_.Fields().Add("Prima", 0, 2).setValue("xx");
  record_.Fields().Add("Negativo", 0, -3);
  file_.OpenFile(0);
  EXPECT_EQ(errorOf([&] { file_.WriteRecord(record_); }), 5);
  EXPECT_EQ(content(), "");
}

TEST(CopyMemory, AnOffsetEqualToTheWidthRaises5AndOneLessPlacesTheLastCharacter) {
  std::string buffer = "....";
  try {
    FileSeq::CopyMemory(buffer, 4, "x", 1);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 5);
  }
  FileSeq::CopyMemory(buffer, 3, "x", 1);
  EXPECT_EQ(buffer, "...x");
}

TEST(CopyMemory, ANegativeOffsetRaises5AlsoForAnEmptyValue) {
  std::string buffer = "....";
  for (const char* value : {"x", ""}) {
    try {
      FileSeq::CopyMemory(buffer, -1, value, 1);
      FAIL();
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 5);
    }
  }
  EXPECT_EQ(buffer, "....");
}

TEST(CopyMemory, AFieldThatPassesTheBuffersEndIsCutThere) {
  std::string buffer = "....";
  FileSeq::CopyMemory(buffer, 2, "abcdef", 6);
  EXPECT_EQ(buffer, "..ab");
  FileSeq::CopyMemory(buffer, 1, "z", 2147483647);
  EXPECT_EQ(buffer, ".zab");
}

TEST(CopyMemory, MovesNoMoreThanLengthAndLeavesTheBuffersWidth) {
  std::string buffer = "......";
  FileSeq::CopyMemory(buffer, 1, "abcdef", 3);
  EXPECT_EQ(buffer, ".abc..");
  FileSeq::CopyMemory(buffer, 0, "abcdef", 0);
  FileSeq::CopyMemory(buffer, 0, "abcdef", -1);
  EXPECT_EQ(buffer, ".abc..");
}

TEST_F(FileSeqTest, ASecondOpenRaises55AndLeavesTheFileOpen) {
  file_.OpenFile(0);
  EXPECT_EQ(errorOf([&] { file_.OpenFile(0); }), 55);
  EXPECT_EQ(errorOf([&] { file_.OpenFile(1); }), 55);
  EXPECT_TRUE(file_.IsOpen());
  EXPECT_EQ(files_.opened.size(), 1U);
}

TEST_F(FileSeqTest, AnotherModeRaises5AndOpensNothing) {
  EXPECT_EQ(errorOf([&] { file_.OpenFile(1); }), 5);
  EXPECT_EQ(errorOf([&] { file_.OpenFile(-1); }), 5);
  EXPECT_FALSE(file_.IsOpen());
  EXPECT_TRUE(files_.files.empty());
}

TEST_F(FileSeqTest, GoesFromClosedToOpenToClosed) {
  EXPECT_FALSE(file_.IsOpen());
  EXPECT_EQ(file_.FileNumber(), 0);
  file_.OpenFile(0);
  EXPECT_TRUE(file_.IsOpen());
  EXPECT_GT(file_.FileNumber(), 0);
  file_.CloseFile();
  EXPECT_FALSE(file_.IsOpen());
  EXPECT_EQ(files_.openNow, 0);
  file_.CloseFile();
  EXPECT_FALSE(file_.IsOpen());
  file_.OpenFile(0);
  EXPECT_TRUE(file_.IsOpen());
}

TEST_F(FileSeqTest, AnExistingFileIsEmptiedNeverAppendedTo) {
  files_.files["/prova.cur"] = "vecchio";
  file_.OpenFile(0);
  EXPECT_EQ(content(), "");
  record_.Fields().Add("Campo", 0, 1).setValue("x");
  file_.WriteRecord(record_);
  file_.CloseFile();
  EXPECT_EQ(content(), "x\r\n");
}

TEST_F(FileSeqTest, ShowLeavesItClosedAndALaterWriteFails) {
  record_.Fields().Add("Campo", 0, 1).setValue("x");
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  file_.ShowFile();
  EXPECT_FALSE(file_.IsOpen());
  EXPECT_EQ(frontEnd_.viewed, std::vector<std::string>{"/prova.cur"});
  EXPECT_EQ(errorOf([&] { file_.WriteRecord(record_); }), 52);
  EXPECT_EQ(content(), "x\r\n");
}

TEST_F(FileSeqTest, KeepsTheBareNameForItsOwner) {
  EXPECT_EQ(file_.FileName(), "prova.cur");
  EXPECT_EQ(file_.FilePathName(), "/prova.cur");
}

TEST_F(FileSeqTest, WhatTheFileSystemRefusesAtOpeningRisesAndTheFileStaysClosed) {
  file_.setFilePathName("/manca/prova.cur");
  EXPECT_EQ(errorOf([&] { file_.OpenFile(0); }), 76);
  EXPECT_FALSE(file_.IsOpen());
  files_.failNth(MemoryFileSystem::Operation::Open, 1, 70);
  file_.setFilePathName("/prova.cur");
  EXPECT_EQ(errorOf([&] { file_.OpenFile(0); }), 70);
  EXPECT_FALSE(file_.IsOpen());
}

TEST_F(FileSeqTest, AFullDiskRisesAndTheLinesBeforeStay) {
  record_.Fields().Add("Campo", 0, 8).setValue("12345678");
  files_.limitSpace(25);
  file_.OpenFile(0);
  file_.WriteRecord(record_);
  file_.WriteRecord(record_);
  EXPECT_EQ(errorOf([&] { file_.WriteRecord(record_); }), 61);
  EXPECT_EQ(content(), "12345678\r\n12345678\r\n12345");
}

TEST_F(FileSeqTest, ACloseThatFailsRisesAndCanBeTriedAgain) {
  file_.OpenFile(0);
  files_.failNth(MemoryFileSystem::Operation::Close, 1, 61);
  EXPECT_EQ(errorOf([&] { file_.CloseFile(); }), 61);
  EXPECT_TRUE(file_.IsOpen());
  file_.CloseFile();
  EXPECT_FALSE(file_.IsOpen());
  EXPECT_EQ(files_.openNow, 0);
}

TEST_F(FileSeqTest, AnImageIsTheLineOfItsRecordAndKeepsWhatIsPlacedInIt) {
  record_.Fields().Add("Tipo", 0, 1).setValue("D");
  record_.Fields().Add("Campo", 1, 4);
  record_.Fields().Add("Fine", 5, 1).setValue("A");
  RecordImage image(record_);
  EXPECT_EQ(image.line(), "D    A\r\n");
  image.place({1, 4}, "123456");
  EXPECT_EQ(image.line(), "D1234A\r\n");
  image.place({1, 4}, "ab");
  EXPECT_EQ(image.line(), "Dab  A\r\n");
  file_.OpenFile(0);
  file_.WriteImage(image);
  record_.Fields().Item("Campo").setValue("ab");
  file_.WriteRecord(record_);
  EXPECT_EQ(content(), "Dab  A\r\nDab  A\r\n");
}

TEST_F(FileSeqTest, AnImageIsNotWrittenToAClosedFile) {
  record_.Fields().Add("Tipo", 0, 1);
  const RecordImage image(record_);
  EXPECT_EQ(errorOf([&] { file_.WriteImage(image); }), 52);
}

}  // namespace
}  // namespace cu

#include "telematic/engine/records.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace cu {
namespace {

template <class Operation>
int errorOf(const Operation& operation) {
  try {
    operation();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

std::vector<std::string> namesOf(const IFields& fields) {
  std::vector<std::string> names;
  for (const IField* field : fields.NewEnum()) names.push_back(field->Name());
  return names;
}

using Names = std::vector<std::string>;

TEST(CUFields, AddSetsNameOffsetAndLengthAndLeavesTheValueEmpty) {
  CUFields fields;
  CUField& field = fields.Add("Codice fornitura", 15, 5);
  EXPECT_EQ(field.Name(), "Codice fornitura");
  EXPECT_EQ(field.Offset(), 15);
  EXPECT_EQ(field.Length(), 5);
  EXPECT_EQ(field.Value(), "");
  EXPECT_EQ(&fields.Item(1), &field);
}

TEST(CUFields, MembersStandInTheOrderOfAdditionAndAreFoundByPositionAndByKey) {
  CUFields fields;
  fields.Add("Secondo", 5, 5);
  fields.Add("Primo", 0, 5);
  EXPECT_EQ(fields.Count(), 2);
  EXPECT_EQ(namesOf(fields), (Names{"Secondo", "Primo"}));
  EXPECT_EQ(fields.Item(1).Name(), "Secondo");
  EXPECT_EQ(fields.Item(2).Name(), "Primo");
  EXPECT_EQ(fields.Item("Primo").Offset(), 0);
}

TEST(CUFields, KeysAreComparedWithoutRegardToCase) {
  CUFields fields;
  fields.Add("Tipo Record", 0, 1);
  EXPECT_EQ(&fields.Item("TIPO RECORD"), &fields.Item("tipo record"));
  EXPECT_EQ(errorOf([&] { fields.Add("tipo RECORD", 1, 1); }), 457);
  EXPECT_EQ(fields.Count(), 1);
}

TEST(CUFields, UnknownKeysAndPositionsOutOfRangeAreErrors) {
  CUFields fields;
  fields.Add("Campo1", 89, 24);
  EXPECT_EQ(errorOf([&] { fields.Item("Campo76"); }), 5);
  EXPECT_EQ(errorOf([&] { fields.Remove("Campo76"); }), 5);
  EXPECT_EQ(errorOf([&] { fields.Item(0); }), 9);
  EXPECT_EQ(errorOf([&] { fields.Item(2); }), 9);
  EXPECT_EQ(errorOf([&] { fields.Remove(-1); }), 9);
  EXPECT_EQ(fields.Count(), 1);
}

TEST(CUFields, RemoveTakesAPositionOrAKeyAndTheOthersMoveUp) {
  CUFields fields;
  fields.Add("A", 0, 1);
  fields.Add("B", 1, 1);
  fields.Add("C", 2, 1);
  fields.Remove(2);
  EXPECT_EQ(namesOf(fields), (Names{"A", "C"}));
  fields.Remove("a");
  EXPECT_EQ(namesOf(fields), (Names{"C"}));
  EXPECT_EQ(fields.Item(1).Name(), "C");
  fields.Add("A", 0, 1);
  EXPECT_EQ(namesOf(fields), (Names{"C", "A"}));
}

TEST(CUFields, ClearRemovesEveryMemberByItsName) {
  CUFields fields;
  fields.Add("A", 0, 1);
  fields.Add("B", 1, 1);
  fields.Clear();
  EXPECT_EQ(fields.Count(), 0);
  EXPECT_TRUE(fields.NewEnum().empty());

  // A member renamed directly is not found by its new name.
  fields.Add("A", 0, 1).setName("Altro");
  EXPECT_EQ(errorOf([&] { fields.Clear(); }), 5);
  EXPECT_EQ(fields.Count(), 1);
}

TEST(CUFields, AreReadOnlyThroughTheirInterface) {
  CUFields fields;
  fields.Add("Codice fornitura", 15, 5).setValue("CUR17");
  const IFields& seen = fields;
  EXPECT_EQ(seen.Count(), 1);
  EXPECT_EQ(seen.Item("codice fornitura").Name(), "Codice fornitura");
  EXPECT_EQ(seen.Item(1).Offset(), 15);
  EXPECT_EQ(seen.Item(1).Length(), 5);
  EXPECT_EQ(seen.Item(1).Value(), "CUR17");
}

TEST(CURecord, LengthIsTheSumOfItsFieldsWhateverTheirOrder) {
  CURecord forth;
  CURecord back;
  EXPECT_EQ(forth.Length(), 0);
  forth.Fields().Add("A", 0, 3);
  forth.Fields().Add("B", 3, 14);
  back.Fields().Add("B", 3, 14);
  back.Fields().Add("A", 0, 3);
  EXPECT_EQ(forth.Length(), 17);
  EXPECT_EQ(back.Length(), 17);
}

TEST(CURecord, LengthIsNotTheHighestOffsetPlusLength) {
  CURecord record;
  record.Fields().Add("A", 0, 3);
  record.Fields().Add("B", 100, 14);
  EXPECT_EQ(record.Length(), 17);
}

TEST(CURecord, LengthIsComputedAfreshAtEachCall) {
  CURecord record;
  record.Fields().Add("A", 0, 3);
  EXPECT_EQ(record.Length(), 3);
  record.Fields().Item("A").setLength(5);
  EXPECT_EQ(record.Length(), 5);
  record.Fields().Remove("A");
  EXPECT_EQ(record.Length(), 0);
}

TEST(CURecord, LengthBeyond32BitsIsAnOverflow) {
  CURecord record;
  record.Fields().Add("A", 0, 2147483647);
  EXPECT_EQ(record.Length(), 2147483647);
  record.Fields().Add("B", 0, 1);
  EXPECT_EQ(errorOf([&] { record.Length(); }), 6);
  record.Fields().Item("A").setLength(-2147483647 - 1);
  EXPECT_EQ(record.Length(), -2147483647);
  record.Fields().Item("B").setLength(-1);
  EXPECT_EQ(errorOf([&] { record.Length(); }), 6);
}

TEST(CURecords, HoldRecordsByNameWithoutRegardToCase) {
  CURecords records;
  CURecord& record = records.Add("TipoA");
  records.Add("TipoB");
  EXPECT_EQ(record.Name(), "TipoA");
  EXPECT_EQ(record.Fields().Count(), 0);
  EXPECT_EQ(&records.Item("TIPOA"), &record);
  EXPECT_EQ(records.Item(2).Name(), "TipoB");
  EXPECT_EQ(errorOf([&] { records.Add("tipoa"); }), 457);
  EXPECT_EQ(errorOf([&] { records.Item("TipoC"); }), 5);
  EXPECT_EQ(errorOf([&] { records.Item(3); }), 9);

  const IRecords& seen = records;
  EXPECT_EQ(seen.Count(), 2);
  EXPECT_EQ(seen.NewEnum()[0]->Name(), "TipoA");
  EXPECT_EQ(seen.NewEnum()[1]->Name(), "TipoB");
  EXPECT_EQ(seen.Item("TipoB").Length(), 0);

  records.Remove("TipoA");
  EXPECT_EQ(records.Count(), 1);
  records.Clear();
  EXPECT_EQ(records.Count(), 0);
}

}  // namespace
}  // namespace cu

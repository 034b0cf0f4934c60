#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/per_chiamanti.h"
#include "telematic/engine/keyed_members.h"
#include "telematic/engine/layout.h"

namespace cu {

// A field of a record and its text. The text is kept until another one is set, also across writes; a text
// longer than the field is truncated in the line.
class CUField : public IField {
 public:
  const std::string& Name() const override { return name_; }
  std::int32_t Offset() const override { return offset_; }
  std::int32_t Length() const override { return length_; }
  const std::string& Value() const override { return value_; }
  void setName(std::string_view name) { name_ = name; }
  void setOffset(std::int32_t offset) { offset_ = offset; }
  void setLength(std::int32_t length) { length_ = length; }
  void setValue(std::string_view value) { value_ = value; }

 private:
  std::string value_;
  std::string name_;
  std::int32_t length_ = 0;
  std::int32_t offset_ = 0;
};

// The collections raise what KeyedMembers raises.
class CUFields : public IFields, public per_chiamanti::DiRaccolta<CUFields> {
 public:
  CUField& Item(const MemberIndex& index) const override { return members_.item(index); }
  std::int32_t Count() const override { return members_.count(); }
  std::span<const IField* const> NewEnum() const override { return members_.interfaces(); }
  CUField& Add(std::string_view name, std::int32_t offset, std::int32_t length);

 private:
  friend per_chiamanti::DiRaccolta<CUFields>;
  KeyedMembers<CUField, IField> members_;
};

class CURecord : public IRecord {
 public:
  const std::string& Name() const override { return name_; }
  const CUFields& Fields() const override { return fields_; }
  CUFields& Fields() { return fields_; }
  // Raises Error 6 when the sum exceeds 32 bits.
  std::int32_t Length() const override;
  void setName(std::string_view name) { name_ = name; }

 private:
  std::string name_;
  CUFields fields_;
};

class CURecords : public IRecords, public per_chiamanti::DiRaccolta<CURecords> {
 public:
  CURecord& Item(const MemberIndex& index) const override { return members_.item(index); }
  std::int32_t Count() const override { return members_.count(); }
  std::span<const IRecord* const> NewEnum() const override { return members_.interfaces(); }
  CURecord& Add(std::string_view name);

 private:
  friend per_chiamanti::DiRaccolta<CURecords>;
  KeyedMembers<CURecord, IRecord> members_;
};

}  // namespace cu

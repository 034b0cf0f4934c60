#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace cu {

// The layout of a record as seen by a writer of lines. Text is single-byte: a character is a byte.

// Selects a member of a collection by its position, from 1, or by its key, compared without case.
using MemberIndex = std::variant<std::int32_t, std::string_view>;

class IField {
 public:
  virtual ~IField() = default;
  virtual const std::string& Name() const = 0;
  virtual std::int32_t Offset() const = 0;  // of the first character in the record, from 0
  virtual std::int32_t Length() const = 0;
  virtual const std::string& Value() const = 0;
};

class IFields {
 public:
  virtual ~IFields() = default;
  virtual const IField& Item(const MemberIndex& index) const = 0;
  virtual std::int32_t Count() const = 0;
  virtual std::span<const IField* const> NewEnum() const = 0;  // in insertion order
};

class IRecord {
 public:
  virtual ~IRecord() = default;
  virtual const std::string& Name() const = 0;
  virtual const IFields& Fields() const = 0;
  virtual std::int32_t Length() const = 0;  // the sum of the fields' lengths
};

class IRecords {
 public:
  virtual ~IRecords() = default;
  virtual const IRecord& Item(const MemberIndex& index) const = 0;
  virtual std::int32_t Count() const = 0;
  virtual std::span<const IRecord* const> NewEnum() const = 0;
};

}  // namespace cu

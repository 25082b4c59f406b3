// Values of late-bound calls as bytes, in which they cross between the component and JavaScript.
//
// A value is a tag of one byte and what belongs to it; numbers are little-endian, a length counts
// bytes.
//
//   0 Empty
//   1 Boolean      1 byte
//   2 Int16        4 bytes, as a 32-bit number
//   3 Int32        4 bytes
//   4 Single       8 bytes, as a double
//   5 Double       8 bytes
//   6 Text         length (4 bytes), UTF-8
//   7 Nothing      an object reference that refers to none
//   8 Native       4 bytes: number of an object of the component's side
//   9 Page         4 bytes: number of an object that lives in JavaScript
//  10 Array        length (4 bytes), bytes; one dimension that begins at 0
//  11 Question     4 bytes: number of a question that is answered later
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Object.h"
#include "automation/Variant.h"

namespace zav {

// Knows the objects of both sides by their numbers.
class ObjectNumbers {
 public:
  ObjectNumbers() = default;
  ObjectNumbers(const ObjectNumbers&) = delete;
  ObjectNumbers& operator=(const ObjectNumbers&) = delete;
  virtual ~ObjectNumbers() = default;

  // For an object that lives in JavaScript: its number. 0 for any other.
  virtual std::int32_t PageNumberOf(const Object& object) = 0;
  virtual ObjectRef PageObject(std::int32_t number) = 0;
  // The number under which JavaScript keeps the object until it releases it.
  virtual std::int32_t KeepNative(const ObjectRef& object) = 0;
  // Null for a number that is none.
  virtual ObjectRef NativeObject(std::int32_t number) = 0;
  virtual ObjectRef Question(std::int32_t number) = 0;
};

class VariantWriter {
 public:
  explicit VariantWriter(ObjectNumbers& objects) : objects_(objects) {}  // outlives the writer

  void Write(const Variant& value);
  void WriteByte(std::uint8_t byte) { bytes_.push_back(byte); }
  void WriteNumber(std::int32_t number) { Append(&number, sizeof number); }
  void WriteText(std::string_view text);
  [[nodiscard]] const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

 private:
  void Append(const void* data, std::size_t size);
  void WriteDouble(double number) { Append(&number, sizeof number); }
  void WriteObject(const ObjectRef& object);

  ObjectNumbers& objects_;
  std::vector<std::uint8_t> bytes_;
};

class VariantReader {
 public:
  // Both outlive the reader.
  VariantReader(ObjectNumbers& objects, std::span<const std::uint8_t> bytes)
      : objects_(objects), bytes_(bytes) {}

  // All of them raise 51 for bytes that end too soon or are no value.
  Variant Read();
  std::uint8_t ReadByte() { return Take(1).front(); }
  std::int32_t ReadNumber();
  std::string ReadText();
  [[nodiscard]] bool AtEnd() const { return bytes_.empty(); }

 private:
  std::span<const std::uint8_t> Take(std::size_t size);
  double ReadDouble();

  ObjectNumbers& objects_;
  std::span<const std::uint8_t> bytes_;
};

}  // namespace zav

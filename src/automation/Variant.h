// The values that late-bound calls carry.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zav {

class Object;
using ObjectRef = std::shared_ptr<Object>;

// A byte array as hosts hand it over: any number of dimensions, any lower bounds.
class SafeArray {
 public:
  struct Dimension {
    std::int32_t lowerBound;
    std::uint32_t count;
  };

  SafeArray() = default;  // no dimension: an array that was never sized
  explicit SafeArray(std::vector<std::uint8_t> bytes, std::int32_t lowerBound = 0);
  // All bytes are 0. Raises 7 when the dimensions multiply to more than 2^31 - 1 bytes.
  static SafeArray WithDimensions(std::vector<Dimension> dimensions);

  [[nodiscard]] const std::vector<Dimension>& Dimensions() const { return dimensions_; }
  [[nodiscard]] const std::vector<std::uint8_t>& Bytes() const { return bytes_; }
  std::vector<std::uint8_t>& Bytes() { return bytes_; }
  // Raises 9 unless the array has exactly one dimension and at least one element.
  void RequireFillable() const;

 private:
  std::vector<Dimension> dimensions_;
  std::vector<std::uint8_t> bytes_;
};

// std::monostate is the empty variant; an ObjectRef that is null is "nothing".
using Variant = std::variant<std::monostate, bool, std::int16_t, std::int32_t, float, double,
                             std::string, ObjectRef, SafeArray>;

// A text that somebody else keeps, or none; then it converts as the empty variant does.
struct OptionalText {
  const std::string* text = nullptr;

  [[nodiscard]] std::string_view View() const {
    return text != nullptr ? *text : std::string_view();
  }
  operator Variant() const { return text != nullptr ? Variant(*text) : Variant(); }
};

}  // namespace zav

#include "document/ItemText.h"

#include <algorithm>
#include <string_view>

#include "automation/AutomationError.h"
#include "automation/Text.h"

namespace zav {

namespace {

// Enough of what is no XML for the reader of a message to know it again.
constexpr std::size_t kShownUnits = 20;

bool IsNothing(std::uint8_t byte) {
  return byte == 0 || byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

// The first units that are plain characters, as text.
std::string Beginning(std::span<const std::uint8_t> units) {
  std::string text;
  for (std::size_t at = 0; at + 1 < units.size() && at < 2 * kShownUnits; at += 2) {
    const bool isPlain = units[at + 1] == 0 && units[at] >= ' ' && units[at] < 0x7F;
    text += isPlain ? static_cast<char>(units[at]) : '?';
  }
  return text;
}

bool StartsWith(std::span<const std::uint8_t> bytes, std::initializer_list<std::uint8_t> mark) {
  return bytes.size() >= mark.size() && std::equal(mark.begin(), mark.end(), bytes.begin());
}

// What the bytes are instead, or nothing when they begin as they should.
std::string WhatItIs(std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return "it is empty";
  if (StartsWith(bytes, {0xFE, 0xFF})) return "it is big-endian UTF-16";
  if (StartsWith(bytes, {0xEF, 0xBB, 0xBF})) return "it is UTF-8";
  if (StartsWith(bytes, {0xFF, 0xFE})) bytes = bytes.subspan(2);
  const auto first = std::find_if_not(bytes.begin(), bytes.end(), IsNothing);
  if (first == bytes.end()) return "it is blank";
  const auto at = static_cast<std::size_t>(first - bytes.begin());
  if (*first != '<') {
    return Concatenate({"it begins with \"", Beginning(bytes.subspan(at / 2 * 2)), "\""});
  }
  const auto isZero = [&](std::size_t index) { return index < bytes.size() && bytes[index] == 0; };
  if (at % 2 == 0 && isZero(at + 1)) return {};
  return at % 2 != 0 && isZero(at - 1) ? "it is big-endian UTF-16" : "it looks like UTF-8";
}

}  // namespace

std::string ItemText(std::span<const std::uint8_t> bytes) {
  const std::string what = WhatItIs(bytes);
  if (!what.empty()) {
    RaiseError(error_number::kComponent, {"An item is XML in UTF-16, low byte first, but ", what},
               "InitExternalDisplay");
  }
  return Utf16LeToUtf8(bytes);
}

}  // namespace zav

#include "automation/Text.h"

#include <algorithm>
#include <array>
#include <optional>

#include "automation/AutomationError.h"

namespace zav {

namespace {

constexpr char32_t kFirstSurrogate = 0xD800;
constexpr char32_t kFirstLowSurrogate = 0xDC00;
constexpr char32_t kPastSurrogates = 0xE000;
constexpr char32_t kFirstSupplementary = 0x10000;
constexpr char32_t kLastCharacter = 0x10FFFF;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

bool IsSurrogate(char32_t unit) { return unit >= kFirstSurrogate && unit < kPastSurrogates; }

// Where the text that follows before begins, for an error message.
std::string PlaceAfter(std::string_view before) {
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
  return Concatenate({"line ", std::to_string(line), ", column ",
                      std::to_string(CharacterCount(before.substr(lineStart)) + 1)});
}

[[noreturn]] void RaiseIllFormed(const char* what, std::string_view before) {
  RaiseError(error_number::kInvalidArgument, {what, " at ", PlaceAfter(before)});
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    append(character);
    return;
  }
  if (character < 0x800) {
    append(0xC0 | character >> 6);
  } else {
    if (character < kFirstSupplementary) {
      append(0xE0 | character >> 12);
    } else {
      append(0xF0 | character >> 18);
      append(0x80 | (character >> 12 & 0x3F));
    }
    append(0x80 | (character >> 6 & 0x3F));
  }
  append(0x80 | (character & 0x3F));
}

std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC0) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  return lead < 0xF8 ? 4 : 0;
}

// The character whose bytes start at text[at], and moves at past them. Nothing, and at stays,
// when they are not one well-formed character in its shortest form.
std::optional<char32_t> TakeCharacter(std::string_view text, std::size_t& at) {
  static constexpr std::array<char32_t, 5> kLeastOfLength = {0, 0, 0x80, 0x800,
                                                             kFirstSupplementary};
  const auto lead = static_cast<unsigned char>(text[at]);
  const std::size_t length = SequenceLength(lead);
  if (length == 0 || length > text.size() - at) return std::nullopt;
  char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
  for (const char byte : text.substr(at + 1, length - 1)) {
    if (!IsContinuation(byte)) return std::nullopt;
    character = character << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  if (character < kLeastOfLength[length] || character > kLastCharacter || IsSurrogate(character)) {
    return std::nullopt;
  }
  at += length;
  return character;
}

void AppendUnit(std::vector<std::uint8_t>& bytes, char32_t unit) {
  bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
  bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
}

std::size_t OffsetOfCharacter(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (; at < text.size(); ++at) {
    if (!IsContinuation(text[at]) && count-- == 0) break;
  }
  return at;
}

char UpperCaseLetter(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}  // namespace

std::string Utf16LeToUtf8(std::span<const std::uint8_t> bytes) {
  std::string text;
  text.reserve(bytes.size() / 2);
  const auto unitAt = [&bytes](std::size_t at) -> char32_t {
    return at + 1 < bytes.size() ? bytes[at] | static_cast<char32_t>(bytes[at + 1]) << 8 : 0;
  };
  for (std::size_t at = 0; at < bytes.size(); at += 2) {
    if (at + 1 == bytes.size()) RaiseIllFormed("Half a UTF-16 unit", text);
    char32_t character = unitAt(at);
    if (IsSurrogate(character)) {
      const char32_t low = unitAt(at + 2);
      if (character >= kFirstLowSurrogate || low < kFirstLowSurrogate || !IsSurrogate(low)) {
        RaiseIllFormed("Unpaired UTF-16 surrogate", text);
      }
      character =
          kFirstSupplementary + ((character - kFirstSurrogate) << 10) + (low - kFirstLowSurrogate);
      at += 2;
    }
    AppendUtf8(text, character);
  }
  return text;
}

std::vector<std::uint8_t> Utf8ToUtf16Le(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(text.size() * 2);
  for (std::size_t at = 0; at < text.size();) {
    const std::optional<char32_t> character = TakeCharacter(text, at);
    if (!character) RaiseIllFormed("Ill-formed UTF-8", text.substr(0, at));
    if (*character < kFirstSupplementary) {
      AppendUnit(bytes, *character);
    } else {
      const char32_t offset = *character - kFirstSupplementary;
      AppendUnit(bytes, kFirstSurrogate + (offset >> 10));
      AppendUnit(bytes, kFirstLowSurrogate + (offset & 0x3FF));
    }
  }
  return bytes;
}

bool IsWellFormedUtf8(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size() && TakeCharacter(text, at)) {
  }
  return at == text.size();
}

std::size_t Utf16Length(std::string_view text) {
  const auto isSupplementary = [](char byte) { return static_cast<unsigned char>(byte) >= 0xF0; };
  return CharacterCount(text) +
         static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isSupplementary));
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  return text.substr(0, OffsetOfCharacter(text, count));
}

std::string_view WithoutFirstCharacters(std::string_view text, std::size_t count) {
  return text.substr(OffsetOfCharacter(text, count));
}

std::size_t CharacterCount(std::string_view text) {
  return text.size() -
         static_cast<std::size_t>(std::count_if(text.begin(), text.end(), IsContinuation));
}

std::string Concatenate(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) text += piece;
  return text;
}

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), UpperCaseLetter);
  return upper;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char left, char right) {
    return UpperCaseLetter(left) == UpperCaseLetter(right);
  });
}

bool IsHtml(std::string_view text) { return text.starts_with("<html>"); }

std::string& String_Replace(std::string& text, std::string_view marker,
                            std::string_view replacement) {
  const std::size_t at = text.find(marker);
  if (at == std::string::npos) {
    RaiseError(error_number::kInvalidArgument,
               {"Invalid procedure call or argument: no ", marker, " to replace"});
  }
  const std::size_t length = CharacterCount(replacement);
  if (length >= 2) text.insert(at + marker.size(), 1, ' ');
  const std::string_view overwritten = FirstCharacters(std::string_view(text).substr(at), length);
  const std::string_view written = FirstCharacters(replacement, CharacterCount(overwritten));
  return text.replace(at, overwritten.size(), written);
}

}  // namespace zav

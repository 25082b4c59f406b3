// Text is UTF-8 inside the component and UTF-16LE in the byte arrays that hosts exchange with it.
// Whatever counts or cuts text goes through here: "character" means a code point, a "unit" is a
// UTF-16 code unit, and no caller ever cuts between bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zav {

// Raises 5 for an odd number of bytes or an unpaired surrogate, naming its line and column.
std::string Utf16LeToUtf8(std::span<const std::uint8_t> bytes);
// No byte-order mark, no terminator. Raises 5 for ill-formed UTF-8.
std::vector<std::uint8_t> Utf8ToUtf16Le(std::string_view text);
bool IsWellFormedUtf8(std::string_view text);
// The length in UTF-16 code units: what hosts are promised.
std::size_t Utf16Length(std::string_view text);

// The first count characters, or the whole text when it is shorter.
std::string_view FirstCharacters(std::string_view text, std::size_t count);
// What is left without the first count characters.
std::string_view WithoutFirstCharacters(std::string_view text, std::size_t count);
std::size_t CharacterCount(std::string_view text);

// The pieces one after the other.
std::string Concatenate(std::initializer_list<std::string_view> pieces);

// Blanks are the space character only.
std::string_view TrimBlanks(std::string_view text);
// Upper-cases ASCII letters and leaves the rest, so that positions stay where they were.
std::string UpperCase(std::string_view text);
bool EqualIgnoringCase(std::string_view a, std::string_view b);
inline bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// Whether an item's text is HTML: its first six characters are exactly "<html>".
bool IsHtml(std::string_view text);

// Overwrites the first marker in text, in place, by replacement, and returns text. The marker is
// one character and gets at most one character of room more: a replacement of three or more
// characters also overwrites what followed the marker. Raises 5 when the marker is not in text.
std::string& String_Replace(std::string& text, std::string_view marker,
                            std::string_view replacement);

}  // namespace zav

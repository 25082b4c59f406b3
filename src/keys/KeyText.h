// How the text of a key is read, by everybody who reads one: its blanks, its connectives and the
// characters of a term. Knows neither items nor responses.
//
// In a normalised key a connective is " AND " or " OR " with exactly one blank on each side, and
// "NOT " stands before an operand; all three may be in lower case too.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zav {

inline constexpr std::size_t kNotLength = 4;  // "NOT "

enum class Connective { None, And, Or };

// Trims the text, makes one blank of every run of blanks, and adds the blank that is missing in
// ")AND ", " AND(", ")OR " and "NOT(". These four are repaired in upper case only; "OR(" is not.
// Takes time in proportion to the text.
std::string NormalizeKey(std::string_view text);

bool StartsWithNot(std::string_view text);
Connective LeadingConnective(std::string_view text);
std::size_t ConnectiveLength(Connective connective);  // 0 for None

// "A" to "Z": what a term begins with.
bool IsTermLetter(char character);
// One decimal digit or more, and nothing else.
bool AreDigits(std::string_view text);

}  // namespace zav

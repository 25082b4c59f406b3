#include "keys/KeyText.h"

#include <algorithm>

#include "automation/Text.h"

namespace zav {

namespace {

constexpr std::string_view kAnd = " AND ";
constexpr std::string_view kOr = " OR ";

std::string WithSingleBlanks(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char character : text) {
    if (character == ' ' && !result.empty() && result.back() == ' ') continue;
    result.push_back(character);
  }
  return result;
}

// None of the repairs creates a new place for itself, so one pass finds all of them.
std::string WithBlankInside(const std::string& text, std::string_view part, std::size_t offset) {
  std::string result;
  std::size_t copied = 0;
  for (std::size_t found = text.find(part); found != std::string::npos;
       found = text.find(part, found + part.size())) {
    result.append(text, copied, found + offset - copied);
    result.push_back(' ');
    copied = found + offset;
  }
  return result.append(text, copied);
}

bool StartsWith(std::string_view text, std::string_view upperCaseWord) {
  return EqualIgnoringCase(text.substr(0, upperCaseWord.size()), upperCaseWord);
}

}  // namespace

std::string NormalizeKey(std::string_view text) {
  std::string key = WithSingleBlanks(TrimBlanks(text));
  key = WithBlankInside(key, ")AND ", 1);
  key = WithBlankInside(key, " AND(", 4);
  key = WithBlankInside(key, ")OR ", 1);
  return WithBlankInside(key, "NOT(", 3);
}

bool StartsWithNot(std::string_view text) { return StartsWith(text, "NOT "); }

Connective LeadingConnective(std::string_view text) {
  if (StartsWith(text, kAnd)) return Connective::And;
  return StartsWith(text, kOr) ? Connective::Or : Connective::None;
}

std::size_t ConnectiveLength(Connective connective) {
  if (connective == Connective::None) return 0;
  return connective == Connective::And ? kAnd.size() : kOr.size();
}

bool IsTermLetter(char character) { return character >= 'A' && character <= 'Z'; }

bool AreDigits(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace zav

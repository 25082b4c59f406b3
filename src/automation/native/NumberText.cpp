#include "automation/NumberText.h"

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace zav {

namespace {

// The C library reads and writes the decimal sign of the process's locale, which is the host's.
std::string_view LocaleDecimalSign() { return std::localeconv()->decimal_point; }

void ReplaceFirst(std::string& text, std::string_view part, std::string_view replacement) {
  const std::size_t at = text.find(part);
  if (at != std::string::npos) text.replace(at, part.size(), replacement);
}

}  // namespace

std::string DecimalText(double value, int significantDigits) {
  std::array<char, 40> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.*G", significantDigits, value);
  std::string text(buffer.data());
  ReplaceFirst(text, LocaleDecimalSign(), ".");
  return text;
}

double NumberOfDecimal(std::string_view text) {
  std::string number(text);
  ReplaceFirst(number, ".", LocaleDecimalSign());
  return std::strtod(number.c_str(), nullptr);
}

}  // namespace zav

#include "automation/NumberText.h"

#include <emscripten.h>

#include <array>

// The "$" of regular expressions.
#pragma clang diagnostic ignored "-Wdollar-in-identifier-extension"

// clang-format off
// JavaScript's own texts differ in that halves are rounded away from zero and exponents are written
// from other sizes on. A hundred digits show whether what is left out is exactly half.
EM_JS(int, zav_decimal_text, (double value, int digits, char* text), {
  const exact = Math.abs(value).toExponential(100);
  const kept = exact.slice(0, digits + 1);
  const isTie = /^50*e/.test(exact.slice(digits + 1));
  const isDown = isTie && /[02468]$/.test(kept);
  const rounded = isDown ? (value < 0 ? "-" : "") + kept + exact.slice(102) : value.toExponential(digits - 1);
  const [significand, exponent] = rounded.split("e");
  const written = exponent >= -4 && exponent < digits
    ? String(Number(rounded))
    : significand.replace(/[.]?0+$/, "") + "E" + exponent.replace(/^(.)(.)$/, "$10$2");
  for (let i = 0; i < written.length; ++i) HEAP8[text + i] = written.charCodeAt(i);
  return written.length;
});
EM_JS(double, zav_number_of_decimal, (const char* text, int size), {
  let digits = "";
  for (let i = 0; i < size; ++i) digits += String.fromCharCode(HEAPU8[text + i]);
  return Number(digits);
});
// clang-format on

namespace zav {
namespace {

// More than the longest text of 15 digits takes.
constexpr std::size_t kMostCharacters = 32;
// Every whole number of so many digits is a double.
constexpr std::size_t kExactDigits = 15;

}  // namespace

std::string DecimalText(double value, int significantDigits) {
  std::array<char, kMostCharacters> text{};
  const int length = zav_decimal_text(value, significantDigits, text.data());
  return {text.data(), static_cast<std::size_t>(length)};
}

double NumberOfDecimal(std::string_view text) {
  // Most are small whole numbers, for which nobody need be asked.
  if (text.size() <= kExactDigits &&
      text.find_first_not_of("0123456789") == std::string_view::npos) {
    double number = 0;
    for (const char digit : text) number = number * 10 + (digit - '0');
    return number;
  }
  return zav_number_of_decimal(text.data(), static_cast<int>(text.size()));
}

}  // namespace zav

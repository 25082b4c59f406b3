#include "automation/Conversions.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>
#include <type_traits>

#include "automation/AutomationError.h"
#include "automation/NumberText.h"
#include "automation/Text.h"

namespace zav {

namespace {

constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

[[noreturn]] void RaiseTypeMismatch() { RaiseError(error_number::kTypeMismatch, "Type mismatch"); }

[[noreturn]] void RaiseOverflow() { RaiseError(error_number::kOverflow, "Overflow"); }

constexpr std::string_view kHexadecimalPrefix = "&H";
constexpr std::string_view kColorPrefix = "H";

// What follows the prefix, or nothing when the text does not begin with it.
std::optional<std::string_view> DigitsBehind(std::string_view prefix, std::string_view text) {
  const std::string_view trimmed = TrimBlanks(text);
  if (!EqualIgnoringCase(trimmed.substr(0, prefix.size()), prefix)) return std::nullopt;
  return trimmed.substr(prefix.size());
}

// The integer that has the bits written by the digits.
template <typename Integer>
Integer FromHexadecimal(std::string_view digits) {
  std::make_unsigned_t<Integer> bits = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, bits, 16);
  if (stop != end || error == std::errc::invalid_argument) RaiseTypeMismatch();
  if (error == std::errc::result_out_of_range) RaiseOverflow();
  return static_cast<Integer>(bits);
}

std::size_t SkipSign(std::string_view text, std::size_t at) {
  return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && text[at] >= '0' && text[at] <= '9') ++at;
  return at;
}

bool IsDecimal(std::string_view text) {
  const std::size_t start = SkipSign(text, 0);
  std::size_t at = SkipDigits(text, start);
  std::size_t digits = at - start;
  if (at < text.size() && text[at] == '.') {
    const std::size_t fraction = at + 1;
    at = SkipDigits(text, fraction);
    digits += at - fraction;
  }
  if (digits == 0) return false;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    const std::size_t exponent = SkipSign(text, at + 1);
    at = SkipDigits(text, exponent);
    if (at == exponent) return false;
  }
  return at == text.size();
}

double FromDecimal(std::string_view text) {
  const std::string_view number = TrimBlanks(text);
  if (!IsDecimal(number)) RaiseTypeMismatch();
  const double value = NumberOfDecimal(number);
  if (!std::isfinite(value)) RaiseOverflow();
  return value;
}

double FromText(std::string_view text) {
  const std::optional<std::string_view> digits = DigitsBehind(kHexadecimalPrefix, text);
  return digits ? FromHexadecimal<std::int32_t>(*digits) : FromDecimal(text);
}

std::string FractionText(double value, int significantDigits) {
  if (!std::isfinite(value)) RaiseOverflow();
  if (value == 0) return "0";  // negative zero too
  return DecimalText(value, significantDigits);
}

template <typename Integer>
Integer RoundTo(double value) {
  const double rounded = std::nearbyint(value);  // half to even
  const bool fits = rounded >= std::numeric_limits<Integer>::min() &&
                    rounded <= std::numeric_limits<Integer>::max();
  if (!fits) RaiseOverflow();  // not a number does not fit either
  return static_cast<Integer>(rounded);
}

template <typename Integer>
Integer IntegerOf(std::string_view text) {
  const auto digits = DigitsBehind(kHexadecimalPrefix, text);
  return digits ? FromHexadecimal<Integer>(*digits) : RoundTo<Integer>(FromDecimal(text));
}

template <typename Integer>
Integer ToInteger(const Variant& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr ? IntegerOf<Integer>(*text) : RoundTo<Integer>(ToDouble(value));
}

template <typename Integer>
Integer ToInteger(OptionalText value) {
  return value.text != nullptr ? IntegerOf<Integer>(*value.text) : 0;
}

float SingleOf(double number) {
  if (std::abs(number) > std::numeric_limits<float>::max()) RaiseOverflow();
  return static_cast<float>(number);
}

bool BooleanOf(std::string_view text) {
  const std::string_view word = TrimBlanks(text);
  if (EqualIgnoringCase(word, "true")) return true;
  return !EqualIgnoringCase(word, "false") && FromText(word) != 0;
}

struct DoubleOf {
  double operator()(std::monostate /*empty*/) const { return 0; }
  double operator()(bool value) const { return value ? -1 : 0; }
  double operator()(std::int16_t value) const { return value; }
  double operator()(std::int32_t value) const { return value; }
  double operator()(float value) const { return value; }
  double operator()(double value) const { return value; }
  double operator()(const std::string& value) const { return FromText(value); }
  double operator()(const ObjectRef& /*object*/) const { RaiseTypeMismatch(); }
  double operator()(const SafeArray& /*array*/) const { RaiseTypeMismatch(); }
};

struct TextOf {
  std::string operator()(std::monostate /*empty*/) const { return {}; }
  std::string operator()(bool value) const { return value ? "True" : "False"; }
  std::string operator()(std::int16_t value) const { return std::to_string(value); }
  std::string operator()(std::int32_t value) const { return std::to_string(value); }
  std::string operator()(float value) const { return FractionText(value, kSingleDigits); }
  std::string operator()(double value) const { return FractionText(value, kDoubleDigits); }
  std::string operator()(const std::string& value) const { return value; }
  std::string operator()(const ObjectRef& /*object*/) const { RaiseTypeMismatch(); }
  std::string operator()(const SafeArray& /*array*/) const { RaiseTypeMismatch(); }
};

}  // namespace

std::int16_t ToInt16(const Variant& value) { return ToInteger<std::int16_t>(value); }

std::int16_t ToInt16(OptionalText value) { return ToInteger<std::int16_t>(value); }

std::int32_t ToInt32(const Variant& value) { return ToInteger<std::int32_t>(value); }

std::int32_t ToInt32(OptionalText value) { return ToInteger<std::int32_t>(value); }

float ToSingle(const Variant& value) { return SingleOf(ToDouble(value)); }

float ToSingle(OptionalText value) {
  return value.text != nullptr ? SingleOf(FromText(*value.text)) : 0;
}

double ToDouble(const Variant& value) { return std::visit(DoubleOf{}, value); }

bool ToBoolean(const Variant& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr ? BooleanOf(*text) : ToDouble(value) != 0;
}

bool ToBoolean(OptionalText value) { return value.text != nullptr && BooleanOf(*value.text); }

std::string ToText(const Variant& value) { return std::visit(TextOf{}, value); }

std::string ToText(OptionalText value) { return std::string(value.View()); }

ObjectRef ToObject(const Variant& value) {
  if (std::holds_alternative<std::monostate>(value)) return nullptr;
  if (const auto* object = std::get_if<ObjectRef>(&value)) return *object;
  RaiseTypeMismatch();
}

std::int32_t ToColor(OptionalText value) {
  const auto digits =
      value.text != nullptr ? DigitsBehind(kColorPrefix, *value.text) : std::nullopt;
  if (!digits || digits->size() > 8) RaiseTypeMismatch();
  return FromHexadecimal<std::int32_t>(*digits);
}

std::int16_t RoundToInt16(double value) { return RoundTo<std::int16_t>(value); }

std::int32_t RoundToInt32(double value) { return RoundTo<std::int32_t>(value); }

}  // namespace zav

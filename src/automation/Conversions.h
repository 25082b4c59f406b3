// Conversions between the values of late-bound calls, with automation's rules: rounding half to
// even, overflow as error 6, text that is no number as error 13, an empty variant as 0, "" or
// False. All of them ignore the locale. Nobody converts by hand elsewhere.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/Variant.h"

namespace zav {

// Text of a number may have blanks around it, a sign, a decimal point and an exponent, or be a
// hexadecimal literal with "&H" in front, which gives the bits of the result: "&HFFFF" is -1 as
// a 16-bit integer and 65535 as a 32-bit integer or as a number with fractions. True is -1.
// Objects and arrays raise 13.
std::int16_t ToInt16(const Variant& value);
std::int16_t ToInt16(OptionalText value);
std::int32_t ToInt32(const Variant& value);
std::int32_t ToInt32(OptionalText value);
float ToSingle(const Variant& value);
float ToSingle(OptionalText value);
double ToDouble(const Variant& value);

// Text: "true" and "false" in any case, else a number; any number but 0 is True.
bool ToBoolean(const Variant& value);
bool ToBoolean(OptionalText value);

// "True"/"False"; 7 significant digits for a single, 15 for a double, shortest form, "." as the
// decimal sign. Raises 13 for an object or an array, 6 for a number that is not finite.
std::string ToText(const Variant& value);
std::string ToText(OptionalText value);

// Nothing for an empty variant; raises 13 for anything that is no object.
ObjectRef ToObject(const Variant& value);

// An item's colour, written as H and hexadecimal digits, as 0x00BBGGRR. H8000 is 32768. Raises 13
// for anything else.
std::int32_t ToColor(OptionalText value);

// Rounds half to even; raises 6 when the result does not fit.
std::int16_t RoundToInt16(double value);
std::int32_t RoundToInt32(double value);

}  // namespace zav

// Text of numbers with fractions. It stands apart from the other conversions because the platforms
// bring it in different ways: the C++ library natively (src/automation/native), the page's
// JavaScript in browsers (src/platform/web/browser), which saves half as much code again as all
// the other conversions take. Both give the same text and the same number, bit for bit.
#pragma once

#include <string>
#include <string_view>

namespace zav {

// The value, which is finite, rounded half to even to that many significant digits (1 to 15):
// without needless zeros, "." as the decimal sign, in scientific notation ("1.5E-05") where the
// exponent is below -4 or not below the number of digits.
std::string DecimalText(double value, int significantDigits);

// The number that is nearest to a decimal literal; infinite where that is beyond all numbers. The
// text is an optional sign, digits with or without a decimal point, and an optional exponent.
double NumberOfDecimal(std::string_view text);

}  // namespace zav

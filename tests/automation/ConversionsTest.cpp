#include "automation/Conversions.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

#include "automation/AutomationError.h"
#include "support/Raised.h"

namespace zav {
namespace {

using namespace std::string_literals;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Conversions, RoundsHalfToEven) {
  const struct {
    double value;
    std::int32_t want;
  } rows[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},    {-0.5, 0},     {-1.5, -2},
              {-2.5, -2}, {2.4999, 2}, {2.5001, 3}, {-2.5001, -3}, {202.5, 202}};
  for (const auto& row : rows) {
    EXPECT_EQ(RoundToInt32(row.value), row.want) << row.value;
    EXPECT_EQ(RoundToInt16(row.value), row.want) << row.value;
  }
}

TEST(Conversions, OverflowsWhereTheRoundedNumberDoesNotFit) {
  EXPECT_EQ(RoundToInt16(32767.4), 32767);
  EXPECT_EQ(RoundToInt16(-32768.5), -32768) << "half to even is still inside";
  EXPECT_EQ(RoundToInt32(2147483647.4), 2147483647);
  EXPECT_EQ(ToInt16(32767), 32767);
  for (const double value : {32767.5, -32769.0, kInfinity, -kInfinity, kNotANumber}) {
    EXPECT_EQ(Catch([&] { RoundToInt16(value); }).number, 6) << value;
  }
  for (const double value : {2147483647.5, -2147483649.0, kInfinity, kNotANumber}) {
    EXPECT_EQ(Catch([&] { RoundToInt32(value); }).number, 6) << value;
  }
  EXPECT_EQ(Catch([] { ToInt16(32768); }).number, 6);
  EXPECT_EQ(Catch([] { ToInt32("99999999999"s); }).number, 6);
  EXPECT_EQ(Catch([] { ToSingle(1e39); }).number, 6);
  EXPECT_EQ(Catch([] { ToDouble("1e999"s); }).number, 6);
}

TEST(Conversions, ReadsNumbersFromText) {
  const struct {
    const char* why;
    std::string text;
    double want;
  } rows[] = {
      {"an integer", "42", 42},
      {"blanks around it", "  42 ", 42},
      {"a sign", "-7", -7},
      {"a plus", "+7", 7},
      {"a fraction", "1.25", 1.25},
      {"no digit before the point", ".5", 0.5},
      {"no digit after the point", "5.", 5},
      {"an exponent", "1e3", 1000},
      {"an exponent with a sign", "25E-2", 0.25},
      {"hexadecimal", "&HFF", 255},
      {"hexadecimal in lower case", "&hff", 255},
      {"too small for a number", "1e-999", 0},
  };
  for (const auto& row : rows) EXPECT_EQ(ToDouble(row.text), row.want) << row.why;
}

TEST(Conversions, RefusesTextThatIsNoNumber) {
  for (const std::string& text :
       {""s,   " "s,   "A"s,    "1a"s,   "1 2"s, "-"s,   "."s,   "1e"s,    "e5"s,   "1,5"s,
        "&H"s, "&HG"s, "&H-1"s, "0x10"s, "inf"s, "nan"s, "--1"s, "1.2.3"s, "12\0"s, "\t1"s}) {
    EXPECT_EQ(Catch([&] { ToDouble(text); }).number, 13) << text;
    EXPECT_EQ(Catch([&] { ToInt16(text); }).number, 13) << text;
    EXPECT_EQ(Catch([&] { ToBoolean(text); }).number, 13) << text;
  }
}

TEST(Conversions, ReadsHexadecimalTextAsTheBitsOfTheResult) {
  EXPECT_EQ(ToInt16("&HFFFF"s), -1);
  EXPECT_EQ(ToInt32("&HFFFF"s), 65535);
  EXPECT_EQ(ToInt32("&HFFFFFFFF"s), -1);
  EXPECT_EQ(ToDouble("&H8000"s), 32768);
  EXPECT_EQ(Catch([] { ToInt16("&H10000"s); }).number, 6);
  EXPECT_EQ(Catch([] { ToInt32("&H100000000"s); }).number, 6);
}

TEST(Conversions, ReadsColours) {
  const auto color = [](const std::string& text) { return ToColor({&text}); };
  EXPECT_EQ(color("HC00000"), 0xC00000);
  EXPECT_EQ(color("HFFFFFF"), 0xFFFFFF);
  EXPECT_EQ(color("H8000"), 32768) << "not negative, though it would fill 16 bits";
  EXPECT_EQ(color("H8000000F"), static_cast<std::int32_t>(0x8000000F)) << "a system colour";
  EXPECT_EQ(color("hff"), 0xFF);
  for (const char* text : {"255", "", "H", "&HFF", "#FF0000", "HXY", "H100000000"}) {
    EXPECT_EQ(Catch([&] { color(text); }).number, 13) << text;
  }
  EXPECT_EQ(Catch([] { ToColor(OptionalText{}); }).number, 13) << "none";
}

TEST(Conversions, ReadTextThatMayBeMissingAsTheyReadVariants) {
  EXPECT_EQ(ToInt16(OptionalText{}), 0);
  EXPECT_EQ(ToInt32(OptionalText{}), 0);
  EXPECT_EQ(ToSingle(OptionalText{}), 0);
  EXPECT_FALSE(ToBoolean(OptionalText{}));
  EXPECT_EQ(ToText(OptionalText{}), "");
  for (const std::string& text :
       {"2.5"s, "-1"s, "&HFFFF"s, "1e39"s, "99999"s, "true"s, ""s, "x"s}) {
    const auto outcome = [](const auto& convert) {
      double value = 0;
      const std::int32_t error = Catch([&] { value = convert(); }).number;
      return std::pair(value, error);
    };
    const Variant variant(text);
    const OptionalText optional{&text};
    EXPECT_EQ(outcome([&] { return ToInt16(optional); }), outcome([&] { return ToInt16(variant); }))
        << text;
    EXPECT_EQ(outcome([&] { return ToInt32(optional); }), outcome([&] { return ToInt32(variant); }))
        << text;
    EXPECT_EQ(outcome([&] { return ToSingle(optional); }),
              outcome([&] { return ToSingle(variant); }))
        << text;
    EXPECT_EQ(outcome([&] { return ToBoolean(optional); }),
              outcome([&] { return ToBoolean(variant); }))
        << text;
  }
}

TEST(Conversions, ReadsBooleans) {
  for (const Variant& value : std::initializer_list<Variant>{"True"s, "tRUE"s, " true "s, "-1"s,
                                                             "0.5"s, "&H1"s, -1, 0.25, true}) {
    EXPECT_TRUE(ToBoolean(value)) << value.index();
  }
  for (const Variant& value : std::initializer_list<Variant>{"False"s, "FALSE"s, "0"s, "0.0"s, 0,
                                                             0.0F, false, std::monostate()}) {
    EXPECT_FALSE(ToBoolean(value)) << value.index();
  }
}

TEST(Conversions, WritesNumbersInTheirShortestForm) {
  const struct {
    const char* why;
    Variant value;
    const char* want;
  } rows[] = {
      {"empty", std::monostate(), ""},
      {"True", true, "True"},
      {"an integer", std::int16_t{-5}, "-5"},
      {"a fraction", 12.5, "12.5"},
      {"no point without a fraction", 40.0, "40"},
      {"7 digits of a single", 0.1F, "0.1"},
      {"7 digits of a single, rounded", 133.333333F, "133.3333"},
      {"15 digits of a double", 0.1 + 0.2, "0.3"},
      {"15 digits of a third", 1.0 / 3, "0.333333333333333"},
      {"a large double", 123456789012345.0, "123456789012345"},
      {"an exponent where the digits end", 1e15, "1E+15"},
      {"an exponent of a single", 12345678.0F, "1.234568E+07"},
      {"a small number", 0.00001, "1E-05"},
      {"no sign before a zero", -0.0, "0"},
  };
  for (const auto& row : rows) EXPECT_EQ(ToText(row.value), row.want) << row.why;
  EXPECT_EQ(Catch([] { ToText(kNotANumber); }).number, 6);
}

TEST(Conversions, RefuseObjectsAndArrays) {
  for (const Variant& value : std::initializer_list<Variant>{ObjectRef(), SafeArray()}) {
    EXPECT_EQ(Catch([&] { ToInt32(value); }).number, 13) << value.index();
    EXPECT_EQ(Catch([&] { ToText(value); }).number, 13) << value.index();
    EXPECT_EQ(Catch([&] { ToBoolean(value); }).number, 13) << value.index();
  }
  EXPECT_EQ(ToInt32(true), -1);
  EXPECT_EQ(ToInt32(std::monostate()), 0);
  EXPECT_EQ(ToObject(std::monostate()), nullptr);
  EXPECT_EQ(Catch([] { ToObject("text"s); }).number, 13);
}

// A host may have set the locale of its process to one with a decimal comma.
TEST(Conversions, IgnoreTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "no such locale here";
  const double read = ToDouble("1.5"s);
  const std::string written = ToText(2.25);
  const std::int32_t comma = Catch([] { ToDouble("1,5"s); }).number;
  std::setlocale(LC_ALL, before.c_str());
  EXPECT_EQ(read, 1.5);
  EXPECT_EQ(written, "2.25");
  EXPECT_EQ(comma, 13);
}

}  // namespace
}  // namespace zav

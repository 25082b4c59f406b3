#include "automation/Text.h"

#include <gtest/gtest.h>

#include "support/Raised.h"

namespace zav {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(Text, TravelsAsUtf16) {
  const struct {
    const char* why;
    std::string text;
    Bytes bytes;
  } rows[] = {
      {"nothing", "", {}},
      {"low byte first, no mark, no terminator", "A3", {0x41, 0, 0x33, 0}},
      {"two bytes of UTF-8", "\xC3\xA9", {0xE9, 0}},
      {"three bytes of UTF-8", "\xE2\x82\xAC", {0xAC, 0x20}},
      {"a surrogate pair: U+1F600", "\xF0\x9F\x98\x80", {0x3D, 0xD8, 0x00, 0xDE}},
      {"last of the basic plane, first beyond it",
       "\xEF\xBF\xBF\xF0\x90\x80\x80",
       {0xFF, 0xFF, 0x00, 0xD8, 0x00, 0xDC}},
      {"the last character of all: U+10FFFF", "\xF4\x8F\xBF\xBF", {0xFF, 0xDB, 0xFF, 0xDF}},
      {"a NUL is a character", std::string("a\0b", 3), {0x61, 0, 0, 0, 0x62, 0}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Utf8ToUtf16Le(row.text), row.bytes) << row.why;
    EXPECT_EQ(Utf16LeToUtf8(row.bytes), row.text) << row.why;
    EXPECT_EQ(Utf16Length(row.text), row.bytes.size() / 2) << row.why;
  }
}

TEST(Text, RefusesIllFormedUtf16AndNamesThePlace) {
  const struct {
    const char* why;
    Bytes bytes;
    const char* place;
  } rows[] = {
      {"half a unit at the end", {0x41, 0, 0x42}, "line 1, column 2"},
      {"a first half at the end", {0x3D, 0xD8}, "line 1, column 1"},
      {"a first half before a letter", {0x41, 0, 0x3D, 0xD8, 0x42, 0}, "line 1, column 2"},
      {"two first halves", {0x3D, 0xD8, 0x3D, 0xD8}, "line 1, column 1"},
      {"a second half alone", {0x0A, 0, 0x0A, 0, 0xE9, 0, 0x00, 0xDE}, "line 3, column 2"},
      {"a first half, then one byte", {0x3D, 0xD8, 0x00}, "line 1, column 1"},
  };
  for (const auto& row : rows) {
    const Raised raised = Catch([&] { Utf16LeToUtf8(row.bytes); });
    EXPECT_EQ(raised.number, 5) << row.why;
    EXPECT_TRUE(Contains(raised.description, row.place)) << row.why << ": " << raised.description;
  }
}

TEST(Text, RefusesIllFormedUtf8) {
  const struct {
    const char* why;
    const char* text;
  } rows[] = {
      {"a continuation byte alone", "a\x80"},
      {"cut short", "\xE2\x82"},
      {"too long a form of a slash", "\xC0\xAF"},
      {"too long a form in three bytes", "\xE0\x9F\xBF"},
      {"a surrogate", "\xED\xA0\x80"},
      {"beyond the last character", "\xF4\x90\x80\x80"},
      {"a byte that never occurs", "\xFF"},
      {"a lead byte followed by a letter", "\xC3zz"},
  };
  for (const auto& row : rows) {
    EXPECT_FALSE(IsWellFormedUtf8(row.text)) << row.why;
    EXPECT_EQ(Catch([&] { Utf8ToUtf16Le(row.text); }).number, 5) << row.why;
  }
  EXPECT_TRUE(IsWellFormedUtf8("z\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"));
}

TEST(Text, CountsAndCutsCharactersNotBytes) {
  const std::string_view text = "\xC3\xA9\xF0\x9F\x98\x80z";  // e acute, a face, z
  EXPECT_EQ(CharacterCount(text), 3U);
  EXPECT_EQ(FirstCharacters(text, 1), "\xC3\xA9");
  EXPECT_EQ(FirstCharacters(text, 2), "\xC3\xA9\xF0\x9F\x98\x80");
  EXPECT_EQ(WithoutFirstCharacters(text, 2), "z");
  EXPECT_EQ(FirstCharacters(text, 9), text);
  EXPECT_EQ(WithoutFirstCharacters(text, 9), "");
  EXPECT_EQ(FirstCharacters(text, 0), "");
}

TEST(Text, ComparesAndTrimsIndependentlyOfTheLocale) {
  EXPECT_TRUE(EqualIgnoringCase("InitCaseStudy", "INITcasestudy"));
  EXPECT_FALSE(EqualIgnoringCase("Init", "InitCaseStudy"));
  EXPECT_FALSE(EqualIgnoringCase("\xC3\xA9", "\xC3\x89")) << "only ASCII letters have a case here";
  EXPECT_FALSE(EqualIgnoringCase("@", "`")) << "neighbours of the letters are none";
  EXPECT_EQ(TrimBlanks("  a b "), "a b");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(TrimBlanks("\ta\n"), "\ta\n") << "only the space is a blank";
  EXPECT_TRUE(IsHtml("<html><b>"));
  EXPECT_FALSE(IsHtml("<HTML>")) << "the case counts";
  EXPECT_FALSE(IsHtml(" <html>")) << "nothing may stand before it";
}

TEST(Text, ReplacesAMarkerInPlace) {
  const struct {
    const char* why;
    const char* text;
    const char* replacement;
    const char* want;
  } rows[] = {
      {"one digit takes the marker's place", "Used % times", "3", "Used 3 times"},
      {"two digits get one character more", "Used % times", "12", "Used 12 times"},
      {"three digits overwrite what follows", "Used % times", "123", "Used 123times"},
      {"nothing is added at the end of the text", "Used %", "1234", "Used 12"},
      {"only the first marker", "% of %", "7", "7 of %"},
      {"no replacement overwrites nothing", "a%", "", "a%"},
      {"whole characters are overwritten", "%\xC3\xA9\xC3\xA8", "123", "123\xC3\xA8"},
  };
  for (const auto& row : rows) {
    std::string text = row.text;
    EXPECT_EQ(String_Replace(text, "%", row.replacement), row.want) << row.why;
    EXPECT_EQ(text, row.want) << row.why << ": in place";
  }
  std::string without = "Used";
  EXPECT_EQ(Catch([&] { String_Replace(without, "%", "3"); }).number, 5);
}

}  // namespace
}  // namespace zav

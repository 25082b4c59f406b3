#include "keys/CompiledKey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <variant>

#include "automation/AutomationError.h"
#include "keys/modSetAnswers.h"
#include "support/RandomKeys.h"

namespace zav {
namespace {

// "true", "false", or what is wrong with the key and where.
std::string Truth(const std::string& key, const std::string& responses) {
  TermTable terms;
  const auto compiled = CompiledKey::Compile(key, terms);
  if (const auto* fault = std::get_if<KeyFault>(&compiled)) {
    return std::to_string(fault->position) + ": " + fault->reason;
  }
  ResponseSet given(terms);
  std::istringstream texts(responses);
  for (std::string text; texts >> text;) given.Add(text);
  return std::get<CompiledKey>(compiled).Holds(given) ? "true" : "false";
}

struct Row {
  const char* why;
  const char* key;
  const char* responses;
  const char* want;
};

template <std::size_t count>
void Check(const Row (&rows)[count]) {
  for (const Row& row : rows) {
    EXPECT_EQ(Truth(row.key, row.responses), row.want)
        << row.why << ": " << row.key << " over " << row.responses;
  }
}

TEST(CompiledKey, HoldsByItsTermsAndConnectives) {
  const Row rows[] = {
      {"given", "A3", "B1 A3", "true"},
      {"not given", "A3", "B1", "false"},
      {"nothing given", "A3", "", "false"},
      {"not the beginning of a term", "A3", "A31", "false"},
      {"not the end of a term", "A31", "A3", "false"},
      {"three digits", "A123", "A123", "true"},
      {"case counts", "A3", "a3", "false"},
      {"other responses do not matter", "A3 AND B1", "C2 B1 A3 ??", "true"},
      {"half an AND", "A3 AND B1", "A3", "false"},
      {"the other half", "A3 AND B1", "B1", "false"},
      {"first of an OR", "A3 OR B1", "A3", "true"},
      {"second of an OR", "A3 OR B1", "B1", "true"},
      {"none of an OR", "A3 OR B1", "C2", "false"},
      {"left to right, OR first", "A3 OR B1 AND C2", "A3", "false"},
      {"left to right, OR first, both", "A3 OR B1 AND C2", "A3 C2", "true"},
      {"left to right, OR last", "A3 AND B1 OR C2", "C2", "true"},
      {"parentheses last", "A3 OR (B1 AND C2)", "A3", "true"},
      {"parentheses last, half", "A3 OR (B1 AND C2)", "C2", "false"},
      {"parentheses first", "(A3 AND B1) OR C2", "A3", "false"},
      {"nested", "A1 AND (B1 OR (C1 AND (D1 OR E1)))", "A1 C1 E1", "true"},
      {"nested, one missing", "A1 AND (B1 OR (C1 AND (D1 OR E1)))", "A1 E1", "false"},
      {"blanks repaired, lower-case words", " (A3)AND  (B1 or  C2) ", "A3 C2", "true"},
  };
  Check(rows);
}

TEST(CompiledKey, NegatesTheNextOperandAlone) {
  const Row rows[] = {
      {"given", "NOT A3", "A3", "false"},
      {"nothing given", "NOT A3", "", "true"},
      {"does not reach further", "NOT A3 AND B1", "B1", "true"},
      {"but needs the rest", "NOT A3 AND B1", "", "false"},
      {"behind AND", "A3 AND NOT B1", "A3 B1", "false"},
      {"behind OR", "A3 OR NOT B1", "", "true"},
      {"skipped with its operand", "A3 OR NOT B1", "A3 B1", "true"},
      {"skipped, then read on", "A3 AND NOT B1 OR C2", "B1 C2", "true"},
      {"parentheses", "NOT (A3 AND B1)", "A3", "true"},
      {"parentheses, both", "NOT (A3 AND B1)", "A3 B1", "false"},
      {"behind it again positive", "NOT (A3 OR B1) AND C2", "C2", "true"},
      {"twice", "NOT (NOT A3)", "A3", "true"},
  };
  Check(rows);
}

TEST(CompiledKey, AndOnlyRefusesResponsesThatAreNotAsserted) {
  const Row rows[] = {
      {"just these", "A3 AND B1 AND ONLY", "B1 A3", "true"},
      {"one more, unknown", "A3 AND B1 AND ONLY", "B1 A3 C2", "false"},
      {"one missing", "A3 AND B1 AND ONLY", "A3", "false"},
      {"a response given twice counts once", "A3 AND ONLY", "A3 A3", "true"},
      {"a term named twice counts once", "A3 AND A3 AND ONLY", "A3", "true"},
      {"OR: both are asserted", "A3 OR B1 AND ONLY", "A3 B1", "true"},
      {"OR: none given", "A3 OR B1 AND ONLY", "", "false"},
      {"known but under NOT", "A3 OR NOT B1 AND ONLY", "A3 B1", "false"},
      {"NOT without that response", "A3 AND NOT B1 AND ONLY", "A3", "true"},
      {"NOT before parentheses takes all out", "A3 OR NOT (B1 AND C2) AND ONLY", "A3 B1", "false"},
      {"under NOT here, asserted there", "A3 OR NOT B1 OR B1 AND ONLY", "A3 B1", "true"},
      {"under two NOTs is still under NOT", "NOT (NOT A3) AND ONLY", "A3", "false"},
      {"no response allowed at all", "NOT A3 AND ONLY", "", "true"},
      {"terms inside parentheses are asserted", "(A3 OR B1) AND C2 AND ONLY", "B1 C2", "true"},
      {"one of two exact answers", "(A3 AND ONLY) OR (B1 AND ONLY)", "B1", "true"},
      {"both is neither", "(A3 AND ONLY) OR (B1 AND ONLY)", "A3 B1", "false"},
      {"terms outside its parentheses do not count", "A3 AND (B1 AND ONLY)", "A3 B1", "false"},
      {"negated as a whole", "NOT (A3 AND ONLY)", "A3 B1", "true"},
      {"negated as a whole, exact", "NOT (A3 AND ONLY)", "A3", "false"},
      {"takes what stands before it", "A3 AND ONLY OR B1", "A3 B1", "true"},
      {"again, with more before it", "A3 AND ONLY OR B1 AND ONLY", "A3 B1 C2", "false"},
      {"repaired blank, lower case", "(A3)AND ONLY", "A3", "true"},
      {"lower case", "A3 and only", "A3 B1", "false"},
  };
  Check(rows);
}

TEST(CompiledKey, TellsWhatIsWrongAndWhere) {
  const char* const term = "a term or \"(\" is expected at ";
  const char* const connective = "AND or OR is expected at ";
  const struct {
    const char* why;
    std::string key, want;
  } rows[] = {
      {"empty", "", std::string("1: ") + term + "the end"},
      {"empty parentheses", "A1 OR ()", std::string("8: ") + term + "\")\""},
      {"no second operand", "(A1 AND )", std::string("9: ") + term + "\")\""},
      {"cut short", "A1 AND", std::string("3: ") + connective + "\" AND\""},
      {"unknown word", "A1 XOR B2", std::string("3: ") + connective + "\" XOR B2\""},
      {"no repair after OR", "A1 OR(B2)", std::string("3: ") + connective + "\" OR(B2)\""},
      {"lower-case letter", "A1 AND b2", std::string("8: ") + term + "\"b2\""},
      {"letter alone", "A AND B1", std::string("1: ") + term + "\"A AND B1\""},
      {"NOT twice", "NOT NOT A1", std::string("5: ") + term + "\"NOT A1\""},
      {"ONLY without a key", "AND ONLY", std::string("1: ") + term + "\"AND ONLY\""},
      {"word behind ONLY", "A1 AND ONLY B2", std::string("12: ") + connective + "\" B2\""},
      {"missing )", "(A1 AND B2", "11: \")\" is missing at the end"},
      {"stray )", "(A1)) AND B2", "5: \")\" has no \"(\" at \") AND B2\""},
      {"normalised first", "  A1   AND  x", std::string("8: ") + term + "\"x\""},
      {"characters, not bytes", "A1 OR (éé", std::string("8: ") + term + "\"éé\""},
      {"long rest is cut", "A1 - 123456789012345678901234567890",
       std::string("3: ") + connective + "\" - 12345678901234567\""},
  };
  for (const auto& row : rows) EXPECT_EQ(Truth(row.key, "A1"), row.want) << row.why;
}

std::string Repeat(const std::string& text, int count) {
  std::string result;
  for (; count > 0; --count) result += text;
  return result;
}

TEST(CompiledKey, EndsInAnOrderlyWayHoweverLargeTheKey) {
  constexpr int kMany = 100'000;
  EXPECT_EQ(Truth("A1" + Repeat(" AND A1", kMany), "A1"), "true");
  EXPECT_EQ(Truth(Repeat("(", kMany) + "A1" + Repeat(")", kMany), "A1"), "true");
  EXPECT_EQ(Truth(Repeat("NOT (", kMany) + "A1" + Repeat(")", kMany), "A1"), "true");
  EXPECT_EQ(Truth(Repeat("A1 OR (", kMany) + "A1" + Repeat(")", kMany), ""), "false");
  EXPECT_EQ(Truth("A1" + Repeat(" AND A1 AND ONLY", 1'400), "A1"), "true");
  EXPECT_NE(Truth("A1" + Repeat(" AND A1 AND ONLY", kMany), "A1").find("too many terms"),
            std::string::npos);
}

TEST(CompiledKey, OneSetOfResponsesServesSeveralKeysAndRecords) {
  TermTable terms;
  const auto first = std::get<CompiledKey>(CompiledKey::Compile("A1 AND ONLY", terms));
  ResponseSet given(terms);
  given.Add("B2");
  const auto second = std::get<CompiledKey>(CompiledKey::Compile("A1 OR C3", terms));
  EXPECT_FALSE(second.Holds(given)) << "a term that is younger than the set";
  given.Clear();
  given.Add("A1");
  EXPECT_TRUE(first.Holds(given)) << "unknown responses are cleared as well";
  given.Clear();
  EXPECT_FALSE(first.Holds(given));
  EXPECT_FALSE(second.Holds(given));
}

bool HasThreeDigitsInARow(const std::string& key) {
  int digits = 0;
  return std::any_of(key.begin(), key.end(), [&](char character) {
    digits = character >= '0' && character <= '9' ? digits + 1 : 0;
    return digits == 3;
  });
}

bool HasAnswers(modSetAnswers& evaluator, const std::string& key) {
  try {
    return !evaluator.GetKeyAnswers(key, "DD").empty();
  } catch (const AutomationError&) {
    return false;
  }
}

// What the one accepts, the other accepts, but for terms with more than two digits. A term in
// front lets every well-formed key give some answer.
TEST(CompiledKey, IsWellFormedWhereTheEvaluatorSaysSo) {
  test::RandomKeys keys(7, "DD");
  modSetAnswers evaluator;
  int wellFormed = 0;
  for (int count = 0; count < 10'000; ++count) {
    const std::string key = "A1 AND (" + keys.Next() + ")";
    if (HasThreeDigitsInARow(key)) continue;
    const bool accepted = HasAnswers(evaluator, key);
    TermTable terms;
    EXPECT_EQ(std::holds_alternative<CompiledKey>(CompiledKey::Compile(key, terms)), accepted)
        << key;
    if (accepted) ++wellFormed;
  }
  EXPECT_GT(wellFormed, 1'000);
}

}  // namespace
}  // namespace zav

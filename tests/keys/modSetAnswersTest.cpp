#include "keys/modSetAnswers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "support/RandomKeys.h"

namespace zav {
namespace {

// What a key gives: its terms, or "error 5".
std::string Answers(modSetAnswers& evaluator, const std::string& key, const std::string& code) {
  try {
    return evaluator.GetKeyAnswers(key, code);
  } catch (const AutomationError& error) {
    return "error " + std::to_string(error.Number());
  }
}

struct Row {
  const char* why;
  std::string key;
  const char* want;
};

template <std::size_t count>
void Check(const std::string& code, const Row (&rows)[count]) {
  modSetAnswers evaluator;  // one for all rows: nothing may stay behind from the row before
  for (const Row& row : rows) {
    EXPECT_EQ(Answers(evaluator, row.key, code), row.want)
        << row.why << ": " << code << " " << row.key.substr(0, 60);
  }
}

TEST(modSetAnswers, RecordsTermsInTheirOrderWhateverJoinsThem) {
  const Row rows[] = {
      {"one term", "A1", "A1"},
      {"AND", "A1 AND B12", "A1,B12"},
      {"OR", "A1 OR A2", "A1,A2"},
      {"the same term twice stays twice", "A1 OR A1", "A1,A1"},
      {"parentheses first", "(A1 OR B2) AND C3", "A1,B2,C3"},
      {"parentheses last", "A1 AND (B2 OR C3)", "A1,B2,C3"},
      {"nested parentheses", "((A1))", "A1"},
      {"two digits inside parentheses", "(A12)", "A12"},
      {"lower-case connectives", "A1 and B2 Or C3", "A1,B2,C3"},
  };
  Check("DD", rows);
  Check("CT", rows);
}

TEST(modSetAnswers, SuppressesTermsUnderNot) {
  const Row rows[] = {
      {"one term", "NOT A1", ""},
      {"runs on through later operands", "NOT A1 AND B2", ""},
      {"runs on from the middle", "A1 AND NOT B2 AND C3", "A1"},
      {"parentheses end it", "(NOT A1) AND B2", "B2"},
      {"parentheses end it in the middle", "A1 AND (NOT B2) AND C3", "A1,C3"},
      {"reaches into parentheses and ends with them", "NOT (B2) AND C3", "C3"},
      {"every term inside", "NOT (A1 OR B2) AND C3", "C3"},
      {"a pair behind the operand ends it too", "NOT A1 AND (B2) AND C3", "C3"},
      {"twice is not undone", "NOT (NOT A1) AND B2", "B2"},
      {"goes deeper, ends with the innermost pair", "NOT ((A1) AND B2) AND C3", "B2,C3"},
      {"lower case", "not A1 AND (B2) AND C3", "C3"},
  };
  Check("DD", rows);
}

TEST(modSetAnswers, RepairsBlanksInFourPlacesOnly) {
  const Row rows[] = {
      {"around and between", "  A1   AND  B2 ", "A1,B2"},
      {"after )", "(A1)AND B2", "A1,B2"},
      {"after ) before OR", "(A1)OR B2", "A1,B2"},
      {"before (", "A1 AND(B2)", "A1,B2"},
      {"after NOT", "NOT(A1) AND B2", "B2"},
      {"all in one, more than once", "(A1)AND (B2)AND NOT(C3) AND(NOT(D4))OR E5", "A1,B2,E5"},
      {"not after OR", "A1 OR(B2)", ""},
      {"not on both sides of AND", "(A1)AND(B2)", ""},
      {"not in lower case", "(A1)and B2", ""},
      {"not in lower case, NOT", "not(A1)", ""},
      {"not inside parentheses", "( A1 )", ""},
      {"a tab is no blank", "A1\tAND B2", ""},
  };
  Check("DD", rows);
}

TEST(modSetAnswers, GivesNothingForAKeyThatIsNotWellFormed) {
  const Row rows[] = {
      {"connective at the end", "A1 AND", ""},
      {"connective in front", "AND A1", ""},
      {"no connective", "A1 B2", ""},
      {"unknown connective", "A1 XOR B2", ""},
      {"no blank before AND", "A1AND B2", ""},
      {"missing )", "(A1 AND B2", ""},
      {"stray )", "(A1)) AND B2", ""},
      {"stray ) first", ")A1", ""},
      {"lower-case letter", "a1 and b2", ""},
      {"more than two digits", "A123 AND B1", ""},
      {"no digit", "A AND B1", ""},
      {"a sign is no digit", "A-1", ""},
      {"letter beyond Z", "[1", ""},
      {"letter outside ASCII", "É1", ""},
      {"two letters", "AB1", ""},
      {"NOT alone", "NOT", ""},
      {"NOT twice", "NOT NOT A1", ""},
      {"bad term deep inside", "A1 AND (B2 OR (C3 AND d4))", ""},
      {"bad term before good ones", "(a1) AND B2", ""},
  };
  Check("DD", rows);
}

TEST(modSetAnswers, RaisesAnErrorForAnEmptyOperand) {
  const Row rows[] = {
      {"empty key", "", "error 5"},
      {"blanks only", "   ", "error 5"},
      {"nothing between parentheses", "()", "error 5"},
      {"nothing after a connective", "(A1 AND )", "error 5"},
      {"nothing after NOT", "(NOT )", "error 5"},
      {"also behind parentheses that failed", "(a1) AND ()", "error 5"},
      {"also behind text that failed in parentheses", "(A1 x) AND ()", "error 5"},
      {"not behind a term that failed", "a1 AND ()", ""},
      {"not behind a connective in an operand's place", "( AND ())", ""},
      {"not behind a stray )", "A1) AND ()", ""},
      {"not behind a missing )", "(A1 AND ()", ""},
  };
  Check("DD", rows);
  Check("CT", rows);
  const Row others[] = {{"empty key", "", ""}, {"nothing inside", "()", ""}};
  Check("MC", others);
  Check("DC", others);
  Check("BL", others);
}

TEST(modSetAnswers, TakesTheTermShapeFromTheCode) {
  const Row letters[] = {
      {"letters", "A OR (B AND NOT C)", "A,B"},
      {"two letters", "AB", ""},
      {"lower case", "a", ""},
      {"a number", "A1", ""},
  };
  Check("MC", letters);
  Check("MCQ", letters);
  Check("BL", letters);
  const Row pairs[] = {
      {"pairs", "A1B AND C2D", "A1B,C2D"},      {"a letter in the middle", "ABC", ""},
      {"lower case at the end", "A1b", ""},     {"too short", "A1", ""},
      {"suppressed", "A1B AND NOT C2D", "A1B"},
  };
  Check("DC", pairs);
  const Row clauses[] = {
      {"clause, then a letter", "A BEFORE B AND C", "A BEFORE B,C"},
      {"two clauses", "A BEFORE B OR B BEFORE C", "A BEFORE B,B BEFORE C"},
      {"recorded even under NOT", "NOT A BEFORE B", "A BEFORE B"},
      {"but no letter after it", "NOT A BEFORE B AND C", "A BEFORE B"},
      {"three in a row", "A BEFORE B BEFORE C", ""},
      {"lower-case letter", "A BEFORE b", ""},
      {"lower-case word", "A before B", ""},
      {"no second letter", "(A BEFORE )", ""},
  };
  Check("BL", clauses);
  const Row refused[] = {{"a number", "A1 AND B2", ""}, {"a letter", "A", ""}, {"none", "()", ""}};
  for (const char* code : {"dd", "D", "", "XX"}) Check(code, refused);
  const Row longCode[] = {{"only two characters count", "A1 AND B2", "A1,B2"}};
  Check("DDX", longCode);
}

TEST(modSetAnswers, RecordsTheFirstOfTwoMirroredAlternatives) {
  const Row rows[] = {
      {"next to each other", "A1B OR B1A AND C2D", "A1B,C2D"},
      {"the other way round", "B1A OR A1B", "B1A"},
      {"apart", "A1B OR C1D OR B1A", "A1B,C1D"},
      {"joined by AND", "A1B AND B1A", "A1B,B1A"},
      {"other number", "A1B OR B2A", "A1B,B2A"},
      {"lower-case or is not seen", "A1B or B1A", "A1B,B1A"},
      {"a parenthesis in between", "(A1B) OR B1A", "A1B,B1A"},
      {"its own mirror", "A1A OR B1B", "B1B"},
      {"a suppressed one counts as well", "(NOT A1B OR C1D) AND B1A", ""},
  };
  Check("DC", rows);
}

// A well-formed key of that many characters: A1 OR A1 OR A11
std::string Chain(std::size_t length) {
  std::string key = "A1";
  while (key.size() + 6 <= length) key += " OR A1";
  for (std::size_t place = 2; key.size() < length; place += 7) key.insert(place, "1");
  return key;
}

// Terms of a key as text: how many there are.
std::size_t CountTerms(const std::string& answers) {
  return answers.empty()
             ? 0
             : 1 + static_cast<std::size_t>(std::count(answers.begin(), answers.end(), ','));
}

TEST(modSetAnswers, CountsThePositionsOfTheSearchForAParenthesis) {
  modSetAnswers evaluator;
  const auto inside = [](std::size_t length) { return "(" + Chain(length) + ")"; };
  EXPECT_EQ(CountTerms(Answers(evaluator, inside(32'765), "DD")), 5461U) << "last that fits";
  EXPECT_EQ(CountTerms(Answers(evaluator, "A1 AND " + inside(32'765), "DD")), 5462U)
      << "counted from the operand";
  EXPECT_EQ(CountTerms(Answers(evaluator, "(A1) AND " + Chain(40'000), "DD")), 6668U)
      << "what follows the parentheses does not count";
  const Row rows[] = {
      {"first that does not fit", inside(32'766), "error 6"},
      {"outer pair too long, inner not", "(" + inside(32'765) + ")", "error 6"},
      {"behind parentheses that failed", "(x) AND " + inside(32'766), "error 6"},
      {"behind a term that failed", "x AND " + inside(32'766), ""},
      {"nowhere, end in reach", "(" + Chain(32'765), ""},
      {"nowhere, end out of reach", "(" + Chain(32'766), "error 6"},
      {"positions are characters", "(" + std::string(20'000, 'x') + ")", ""},
  };
  Check("DD", rows);
  std::string twoBytesEach = "(";
  for (int count = 0; count < 20'000; ++count) twoBytesEach += "é";
  EXPECT_EQ(Answers(evaluator, twoBytesEach + ")", "DD"), "");
}

std::string Repeat(const std::string& text, int count) {
  std::string result;
  for (; count > 0; --count) result += text;
  return result;
}

TEST(modSetAnswers, EndsInAnOrderlyWayHoweverLongTheKey) {
  constexpr int kMany = 100'000;
  modSetAnswers evaluator;
  EXPECT_EQ(CountTerms(Answers(evaluator, "A1" + Repeat(" AND B2", kMany), "DD")), kMany + 1U);
  EXPECT_EQ(CountTerms(Answers(evaluator, "(A1)" + Repeat("AND (B2)", kMany), "DD")), kMany + 1U);
  EXPECT_EQ(CountTerms(Answers(evaluator, "A1" + Repeat(" AND(B2)", kMany), "DD")), kMany + 1U);
  EXPECT_EQ(CountTerms(Answers(evaluator, "A1B" + Repeat(" OR C1D", kMany), "DC")), kMany + 1U);
  const int deep = 16'383;
  const Row rows[] = {
      {"deep", Repeat("(", deep - 1) + "A1" + Repeat(")", deep - 1), "A1"},
      {"deeper", Repeat("(", kMany) + "A1" + Repeat(")", kMany), "error 6"},
      {"never closed", Repeat("(", kMany), "error 6"},
      {"never opened", Repeat(")", kMany), ""},
      {"blanks", "A1" + Repeat(" ", kMany) + "AND B2", "A1,B2"},
  };
  Check("DD", rows);
}

// The grammar written down as it is told: one function for each thing, calling each other.
struct RecursiveReading {
  std::string code, key, list;
  bool suppress = false;

  std::string Answers() {
    key = std::string(TrimBlanks(key));
    Insert("  ", 1, "", 1);
    for (auto [part, at] : {std::pair{")AND ", 1}, {" AND(", 4}, {")OR ", 1}, {"NOT(", 3}}) {
      Insert(part, static_cast<std::size_t>(at), " ", 0);
    }
    return !Expression(key) || list.empty() ? "" : list.substr(1);
  }

  void Insert(const std::string& part, std::size_t at, const char* text, std::size_t dropped) {
    for (std::size_t found = 0; (found = key.find(part)) != std::string::npos;) {
      key.replace(found + at, dropped, text);
    }
  }

  bool Expression(std::string text) {
    if (UpperCase(text.substr(0, 4)) == "NOT ") {
      suppress = true;
      text = text.substr(4);
    }
    if (const std::size_t length = Term(text); length > 0) {
      const bool good = Rest(text.substr(length));
      suppress = false;
      return good;
    }
    if (text.substr(0, 1) != "(") return false;
    std::size_t place = 1;
    for (int depth = 1; place < text.size(); ++place) {
      depth += text[place] == '(' ? 1 : text[place] == ')' ? -1 : 0;
      if (depth == 0) break;
    }
    if (place == text.size()) return false;
    const bool inner = Expression(text.substr(1, place - 1));
    const bool rest = Rest(text.substr(place + 1));
    suppress = false;
    return inner && rest;
  }

  bool Rest(const std::string& rest) {
    if (rest.empty()) return true;
    if (UpperCase(rest.substr(0, 5)) == " AND ") return Expression(rest.substr(5));
    return UpperCase(rest.substr(0, 4)) == " OR " && Expression(rest.substr(4));
  }

  std::size_t Term(const std::string& text) {
    if (code == "BL" && Shape(text.substr(0, 10)) == "A BEFORE A") return Take(text, 10, true);
    if (code == "BL" || code == "MC") return Shape(text.substr(0, 1)) == "A" ? Take(text, 1) : 0;
    if (code == "DC") {
      if (Shape(text.substr(0, 3)) != "A9A") return 0;
      const std::string mirror{text[2], text[1], text[0]};
      return Contains(key, mirror + " OR ") ? 3 : Take(text, 3);
    }
    if (text.empty()) throw AutomationError(5, "empty");
    const std::string term = text.substr(0, text.find(' ') == 2 ? 2 : 3);
    return Shape(term) == "A9" || Shape(term) == "A99" ? Take(text, term.size()) : 0;
  }

  // Letters at the ends as A, digits as 9: two terms of one kind look alike.
  static std::string Shape(std::string term) {
    for (std::size_t i = 0; i < term.size(); ++i) {
      if (term[i] >= '0' && term[i] <= '9') term[i] = '9';
      if ((i == 0 || i + 1 == term.size()) && term[i] >= 'A' && term[i] <= 'Z') term[i] = 'A';
    }
    return term;
  }

  std::size_t Take(const std::string& text, std::size_t length, bool always = false) {
    if (always || !suppress) list += "," + text.substr(0, length);
    return length;
  }
};

TEST(modSetAnswers, AgreesWithARecursiveReadingOfRandomKeys) {
  for (const char* code : {"DD", "MC", "DC", "BL"}) {
    test::RandomKeys keys(20'240, code);
    modSetAnswers evaluator;
    int recorded = 0;
    for (int count = 0; count < 10'000; ++count) {
      const std::string key = keys.Next();
      std::string want;
      try {
        want = RecursiveReading{code, key, {}}.Answers();
      } catch (const AutomationError& error) {
        want = "error " + std::to_string(error.Number());
      }
      ASSERT_EQ(Answers(evaluator, key, code), want) << code << " \"" << key << '"';
      if (!want.empty()) ++recorded;
    }
    EXPECT_GT(recorded, 1'000) << "too few keys say anything: " << code;
  }
}

}  // namespace
}  // namespace zav

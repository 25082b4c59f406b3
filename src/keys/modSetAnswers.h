// Reads the terms that a key asserts: every term that is not under a "NOT ", in their order.
//
// Checks the key's form and the shape of its terms, which depends on the item's type; knows no
// responses and works out no truth ("AND" and "OR" are alike here; CompiledKey does the rest).
//
// A key is an optional "NOT ", an operand, and nothing more or a connective with another key. An
// operand is a term or a key in parentheses. The terms by the first two characters of the code:
//
//   BL        A, or the clause A BEFORE B
//   MC        A
//   DC        A1B
//   CT, DD    A1 or A12
//   others    none
//
// "NOT " is one flag, no nesting: it holds for everything behind it on its level and deeper, and
// ends where a pair of parentheses ends that it covers or stands in. So NOT A1 AND B2 asserts
// nothing, (NOT A1) AND B2 asserts B2, and so does NOT (A1) AND B2.
//
// One object for each component. Time and memory grow in proportion to the key's length, however
// deeply it nests; nothing recurses.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zav {

class modSetAnswers {
 public:
  // The asserted terms joined by ",": A1,B12. Empty for a key that is not well formed as well as
  // for one that asserts nothing. Raises 5 for an operand that is empty under CT or DD, as in
  // "()" or an empty key, and 6 for a ")" that is farther than 32,767 characters from its "(" or
  // was not found up to there; both also when an earlier part is not well formed, since what
  // follows a pair of parentheses is read in any case.
  std::string GetKeyAnswers(std::string_view key, std::string_view itemTypeCode);

 private:
  void Reset(std::string_view key, std::string_view itemTypeCode);
  bool EvaluateExpression();
  bool EvaluateRest();
  bool TakeOperand();
  bool EnterParentheses();
  [[nodiscard]] std::string_view Text() const;

  std::size_t CheckTerm(std::string_view text);
  bool CheckLetterTerm(std::string_view term);
  bool CheckPairTerm(std::string_view term);
  bool CheckLetterNumberTerm(std::string_view term);
  bool CheckBeforeClause(std::string_view term);
  void Record(std::string_view term);

  std::string AnswerList;  // each term with a "," before it
  bool SuppressTerms = false;
  std::string ItemTypeCode;
  std::string NormalizedKey;

  std::size_t position_ = 0;            // of what is still to be read on the present level
  std::size_t end_ = 0;                 // of the present level
  std::vector<std::size_t> outerEnds_;  // of the levels around it, the outermost first
  std::vector<std::size_t> closings_;   // for each "(" where its ")" is
  std::set<std::string, std::less<>> alternatives_;  // the pair terms that stand before an " OR "
  bool wellFormed_ = true;
};

}  // namespace zav

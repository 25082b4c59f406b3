// A key as truth over a candidate's responses, compiled once and then asked as often as needed.
//
//   A3                  holds when response A3 was given: a letter and one or more digits
//   A3 AND B1           both          A3 OR B1   at least one
//   A3 OR B1 AND C2     from left to right, no precedence: (A3 OR B1) AND C2
//   A3 OR (B1 AND C2)   parentheses first
//   NOT A3 AND B1       NOT takes the next operand alone, a term or a pair of parentheses:
//                       not A3, but B1
//   A3 AND B1 AND ONLY  A3 and B1, and no other response
//
// AND ONLY stands behind an operand and takes all that stands before it on its level. It holds
// when that holds and no response was given beyond the terms that are asserted there, which are
// those not under a NOT on that level or deeper:
//
//   A3 OR B1 AND ONLY                  A3 or B1 or both, and nothing else
//   A3 AND NOT B1 AND ONLY             A3 and nothing else
//   (A3 AND ONLY) OR (B1 AND ONLY)     just A3, or just B1
//   NOT (A3 AND ONLY)                  anything but A3 alone
//
// Keys are normalised and their parts written as for modSetAnswers: what that refuses under "DD"
// is refused here too, but for AND ONLY and terms with more than two digits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "keys/ResponseSet.h"

namespace zav {

// Why a key is not well formed.
struct KeyFault {
  std::string reason;    // a sentence without its full stop: ")" is missing
  std::size_t position;  // the character of the normalised key at which it shows, from 1 on
};

class CompiledKey {
 public:
  // The key's terms are numbered in terms, also those of a key that fails further on. Takes time
  // and memory in proportion to the text, nesting included; a key is refused as too large when
  // the terms that its AND ONLYs cover come to more than a million together.
  static std::variant<CompiledKey, KeyFault> Compile(std::string_view expression, TermTable& terms);

  // The responses have to use the table that the key was compiled with. Allocates nothing.
  [[nodiscard]] bool Holds(const ResponseSet& responses) const;

 private:
  friend class KeyCompiler;

  // There is one value under way: a connective is a jump over its right operand when the left one
  // has settled the matter, so no stack is needed.
  enum class Operation : std::uint8_t { LoadTerm, Negate, SkipIfFalse, SkipIfTrue, RequireOnly };
  struct Instruction {
    Operation operation;
    std::uint32_t argument;  // a term, the instruction to skip to, or an index into onlyTerms_
  };

  CompiledKey() = default;

  std::vector<Instruction> program_;
  std::vector<std::vector<TermNumber>> onlyTerms_;  // each without repetition
};

}  // namespace zav

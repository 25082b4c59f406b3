#include "keys/CompiledKey.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "automation/Text.h"
#include "keys/KeyText.h"

namespace zav {

namespace {

constexpr std::size_t kMaxOnlyTerms = 1'000'000;
constexpr std::size_t kExcerptLength = 20;
constexpr std::string_view kAndOnly = " AND ONLY";

bool StartsWithAndOnly(std::string_view text) {
  return EqualIgnoringCase(text.substr(0, kAndOnly.size()), kAndOnly);
}

// The length of the term in front of the text, or 0.
std::size_t TermLength(std::string_view text) {
  if (text.empty() || !IsTermLetter(text.front())) return 0;
  std::size_t length = 1;
  while (AreDigits(text.substr(length, 1))) ++length;
  return length == 1 ? 0 : length;
}

}  // namespace

class KeyCompiler {
 public:
  KeyCompiler(std::string_view expression, TermTable& terms)
      : text_(NormalizeKey(expression)), terms_(terms) {}

  std::variant<CompiledKey, KeyFault> Compile() {
    bool more = true;
    while (more && !fault_) {
      ReadOperand();
      more = !fault_ && ReadRest();
    }
    if (fault_) return *std::move(fault_);
    return std::move(key_);
  }

 private:
  using Operation = CompiledKey::Operation;

  // The text between one pair of parentheses, or the whole key.
  struct Level {
    std::size_t firstAsserted;        // the level's asserted terms are those from here on
    std::size_t operandAsserted = 0;  // and the present operand's those from here on
    bool negated = false;             // the present operand is under a NOT
    std::optional<std::size_t> skip = std::nullopt;  // the jump over it, from the second operand on
  };

  [[nodiscard]] std::string_view Rest() const { return std::string_view(text_).substr(position_); }
  Level& Innermost() { return levels_.back(); }

  void ReadOperand() {
    BeginOperand();
    while (Rest().substr(0, 1) == "(") {
      ++position_;
      levels_.push_back({asserted_.size()});
      BeginOperand();
    }
    ReadTerm();
  }

  void ReadTerm() {
    const std::size_t length = TermLength(Rest());
    if (length == 0) return Fail("a term or \"(\" is expected");
    const TermNumber term = terms_.Number(Rest().substr(0, length));
    position_ += length;
    Emit(Operation::LoadTerm, term);
    asserted_.push_back(term);
    EndOperand();
  }

  void BeginOperand() {
    Innermost().operandAsserted = asserted_.size();
    Innermost().negated = StartsWithNot(Rest());
    if (Innermost().negated) position_ += kNotLength;
  }

  void EndOperand() {
    Level& level = Innermost();
    if (level.negated) {
      Emit(Operation::Negate, 0);
      asserted_.resize(level.operandAsserted);
    }
    if (level.skip) key_.program_[*level.skip].argument = NextInstruction();
  }

  // Reads up to the next operand; false at the end of the key or at a fault.
  bool ReadRest() {
    for (;;) {
      if (StartsWithAndOnly(Rest())) {
        RequireOnly();
      } else if (const Connective connective = LeadingConnective(Rest());
                 connective != Connective::None) {
        BeginSkip(connective);
        return true;
      } else if (!LeaveParentheses()) {
        return false;
      }
      if (fault_) return false;
    }
  }

  void BeginSkip(Connective connective) {
    position_ += ConnectiveLength(connective);
    Innermost().skip = key_.program_.size();
    Emit(connective == Connective::And ? Operation::SkipIfFalse : Operation::SkipIfTrue, 0);
  }

  // Whether there were parentheses to leave; a fault is told where there ought to have been.
  bool LeaveParentheses() {
    const bool inside = levels_.size() > 1;
    if (Rest().empty()) {
      if (inside) Fail("\")\" is missing");
      return false;
    }
    if (Rest().front() != ')' || !inside) {
      Fail(Rest().front() == ')' ? "\")\" has no \"(\"" : "AND or OR is expected");
      return false;
    }
    ++position_;
    levels_.pop_back();
    EndOperand();
    return true;
  }

  void RequireOnly() {
    const auto first = asserted_.begin() + static_cast<std::ptrdiff_t>(Innermost().firstAsserted);
    std::vector<TermNumber> terms(first, asserted_.end());
    onlyTermCount_ += terms.size();
    if (onlyTermCount_ > kMaxOnlyTerms) return Fail("too many terms are under AND ONLY");
    // By way of a heap: the code of std::sort is several times as long.
    std::make_heap(terms.begin(), terms.end());
    std::sort_heap(terms.begin(), terms.end());
    terms.erase(std::unique(terms.begin(), terms.end()), terms.end());
    Emit(Operation::RequireOnly, static_cast<std::uint32_t>(key_.onlyTerms_.size()));
    key_.onlyTerms_.push_back(std::move(terms));
    position_ += kAndOnly.size();
  }

  [[nodiscard]] std::uint32_t NextInstruction() const {
    return static_cast<std::uint32_t>(key_.program_.size());
  }

  void Emit(Operation operation, std::uint32_t argument) {
    key_.program_.push_back({operation, argument});
  }

  void Fail(std::string reason) {
    const std::string_view excerpt = FirstCharacters(Rest(), kExcerptLength);
    reason += excerpt.empty() ? " at the end" : Concatenate({" at \"", excerpt, "\""});
    const auto before = std::string_view(text_).substr(0, position_);
    fault_ = KeyFault{std::move(reason), CharacterCount(before) + 1};
  }

  std::string text_;
  TermTable& terms_;
  std::size_t position_ = 0;
  std::vector<Level> levels_{{0}};
  std::vector<TermNumber> asserted_;  // in order, those under a finished NOT taken out
  std::size_t onlyTermCount_ = 0;
  CompiledKey key_;
  std::optional<KeyFault> fault_;
};

std::variant<CompiledKey, KeyFault> CompiledKey::Compile(std::string_view expression,
                                                         TermTable& terms) {
  return KeyCompiler(expression, terms).Compile();
}

bool CompiledKey::Holds(const ResponseSet& responses) const {
  const auto has = [&](TermNumber term) { return responses.Has(term); };
  const auto onlyThese = [&](const std::vector<TermNumber>& terms) {
    return !responses.HasUnknown() &&
           static_cast<std::size_t>(std::count_if(terms.begin(), terms.end(), has)) ==
               responses.KnownCount();
  };
  bool holds = false;
  for (std::size_t next = 0; next < program_.size();) {
    const Instruction instruction = program_[next++];
    switch (instruction.operation) {
      case Operation::LoadTerm:
        holds = responses.Has(instruction.argument);
        break;
      case Operation::Negate:
        holds = !holds;
        break;
      case Operation::SkipIfFalse:
        if (!holds) next = instruction.argument;
        break;
      case Operation::SkipIfTrue:
        if (holds) next = instruction.argument;
        break;
      case Operation::RequireOnly:
        holds = holds && onlyThese(onlyTerms_[instruction.argument]);
        break;
    }
  }
  return holds;
}

}  // namespace zav

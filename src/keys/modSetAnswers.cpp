#include "keys/modSetAnswers.h"

#include "automation/AutomationError.h"
#include "keys/KeyText.h"

namespace zav {

namespace {

constexpr std::size_t kLastPosition = 32'767;  // that the search for a ")" can count to
constexpr std::size_t kNoClosing = static_cast<std::size_t>(-1);
constexpr std::size_t kTooFar = static_cast<std::size_t>(-2);

constexpr std::string_view kBefore = " BEFORE ";
constexpr std::size_t kPairLength = 3;
constexpr std::size_t kClauseLength = 10;

bool ContinuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

bool IsPairTerm(std::string_view term) {
  return term.size() == kPairLength && IsTermLetter(term[0]) && AreDigits(term.substr(1, 1)) &&
         IsTermLetter(term[2]);
}

// The place of the ")" for every "(", or why it has none. One pass finds all, because the ")"
// that ends a level is the same whether one looks from its "(" or along the whole key.
std::vector<std::size_t> FindClosings(std::string_view key) {
  struct Opening {
    std::size_t byte, character;
  };
  std::vector<std::size_t> closings(key.size(), kNoClosing);
  std::vector<Opening> open;
  std::size_t character = 0;
  for (std::size_t byte = 0; byte < key.size(); ++byte) {
    if (ContinuesCharacter(key[byte])) continue;
    if (key[byte] == '(') {
      open.push_back({byte, character});
    } else if (key[byte] == ')' && !open.empty()) {
      const Opening opening = open.back();
      open.pop_back();
      closings[opening.byte] = character - opening.character < kLastPosition ? byte : kTooFar;
    }
    ++character;
  }
  for (const Opening& opening : open) {
    if (character - opening.character >= kLastPosition) closings[opening.byte] = kTooFar;
  }
  return closings;
}

std::set<std::string, std::less<>> FindAlternatives(std::string_view key) {
  std::set<std::string, std::less<>> alternatives;
  for (std::size_t found = key.find(" OR "); found != std::string_view::npos;
       found = key.find(" OR ", found + 1)) {
    if (found < kPairLength) continue;
    const std::string_view term = key.substr(found - kPairLength, kPairLength);
    if (IsPairTerm(term)) alternatives.emplace(term);
  }
  return alternatives;
}

}  // namespace

std::string modSetAnswers::GetKeyAnswers(std::string_view key, std::string_view itemTypeCode) {
  Reset(key, itemTypeCode);
  if (!EvaluateExpression() || AnswerList.empty()) return {};
  return AnswerList.substr(1);
}

void modSetAnswers::Reset(std::string_view key, std::string_view itemTypeCode) {
  AnswerList.clear();
  SuppressTerms = false;
  ItemTypeCode = itemTypeCode.substr(0, 2);
  NormalizedKey = NormalizeKey(key);
  position_ = 0;
  end_ = NormalizedKey.size();
  outerEnds_.clear();
  closings_ = FindClosings(NormalizedKey);
  alternatives_ = FindAlternatives(NormalizedKey);
  wellFormed_ = true;
}

bool modSetAnswers::EvaluateExpression() {
  do {
    if (!TakeOperand()) {
      wellFormed_ = false;
      position_ = end_;
    }
  } while (EvaluateRest());
  return wellFormed_;
}

// Goes on to the next operand, out of the parentheses that end here; false at the key's end. What
// follows a pair of parentheses is read even when the key has already failed: it may raise errors.
bool modSetAnswers::EvaluateRest() {
  for (;;) {
    const Connective connective = LeadingConnective(Text());
    position_ += ConnectiveLength(connective);
    if (connective != Connective::None) return true;
    if (!Text().empty()) wellFormed_ = false;
    SuppressTerms = false;
    if (outerEnds_.empty()) return false;
    position_ = end_ + 1;
    end_ = outerEnds_.back();
    outerEnds_.pop_back();
  }
}

// Reads one term, and on the way to it any "NOT " and "(".
bool modSetAnswers::TakeOperand() {
  for (;;) {
    if (StartsWithNot(Text())) {
      SuppressTerms = true;
      position_ += kNotLength;
    }
    if (const std::size_t length = CheckTerm(Text()); length > 0) {
      position_ += length;
      return true;
    }
    if (!EnterParentheses()) return false;
  }
}

bool modSetAnswers::EnterParentheses() {
  if (Text().substr(0, 1) != "(") return false;
  const std::size_t closing = closings_[position_];
  if (closing == kTooFar) {
    RaiseError(error_number::kOverflow, "Overflow: \")\" too far from its \"(\" in key");
  }
  if (closing == kNoClosing) return false;
  outerEnds_.push_back(end_);
  ++position_;
  end_ = closing;
  return true;
}

std::string_view modSetAnswers::Text() const {
  return std::string_view(NormalizedKey).substr(position_, end_ - position_);
}

// The length of the term in front of the text, or 0.
std::size_t modSetAnswers::CheckTerm(std::string_view text) {
  if (ItemTypeCode == "BL" && CheckBeforeClause(text.substr(0, kClauseLength))) {
    return kClauseLength;
  }
  if (ItemTypeCode == "BL" || ItemTypeCode == "MC") {
    return CheckLetterTerm(text.substr(0, 1)) ? 1 : 0;
  }
  if (ItemTypeCode == "DC") return CheckPairTerm(text.substr(0, kPairLength)) ? kPairLength : 0;
  if (ItemTypeCode != "CT" && ItemTypeCode != "DD") return 0;
  const std::string_view front = text.substr(0, 3);
  const std::string_view term = front.find(' ') == 2 ? front.substr(0, 2) : front;
  return CheckLetterNumberTerm(term) ? term.size() : 0;
}

bool modSetAnswers::CheckLetterTerm(std::string_view term) {
  if (term.size() != 1 || !IsTermLetter(term[0])) return false;
  if (!SuppressTerms) Record(term);
  return true;
}

// Of two alternatives that mirror each other (A1B OR B1A) only the first is recorded: it is the
// second whose mirror stands before an " OR ".
bool modSetAnswers::CheckPairTerm(std::string_view term) {
  if (!IsPairTerm(term)) return false;
  const std::string mirror(term.rbegin(), term.rend());
  if (!SuppressTerms && alternatives_.count(mirror) == 0) Record(term);
  return true;
}

bool modSetAnswers::CheckLetterNumberTerm(std::string_view term) {
  if (term.empty()) {
    RaiseError(error_number::kInvalidArgument, "Invalid argument: empty operand in key");
  }
  if (!IsTermLetter(term[0]) || !AreDigits(term.substr(1))) return false;
  if (!SuppressTerms) Record(term);
  return true;
}

// A clause is recorded even under "NOT ".
bool modSetAnswers::CheckBeforeClause(std::string_view term) {
  if (term.size() != kClauseLength || term.substr(1, kBefore.size()) != kBefore) return false;
  if (!IsTermLetter(term.front()) || !IsTermLetter(term.back())) return false;
  Record(term);
  return true;
}

void modSetAnswers::Record(std::string_view term) { AnswerList.append(",").append(term); }

}  // namespace zav

#include "keys/ResponseSet.h"

namespace zav {

TermNumber TermTable::Number(std::string_view term) {
  const TermNumber known = Find(term);
  if (known != kUnknown) return known;
  const auto number = static_cast<TermNumber>(numbers_.size());
  numbers_.emplace(term, number);
  return number;
}

TermNumber TermTable::Find(std::string_view term) const {
  const auto found = numbers_.find(term);
  return found == numbers_.end() ? kUnknown : found->second;
}

void ResponseSet::Add(std::string_view response) {
  const TermNumber term = terms_->Find(response);
  if (term == TermTable::kUnknown) {
    hasUnknown_ = true;
    return;
  }
  if (Has(term)) return;
  if (term >= has_.size()) has_.resize(term + std::size_t{1});
  has_[term] = 1;
  known_.push_back(term);
}

void ResponseSet::Clear() {
  for (const TermNumber term : known_) has_[term] = 0;
  known_.clear();
  hasUnknown_ = false;
}

}  // namespace zav

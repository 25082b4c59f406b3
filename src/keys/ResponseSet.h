// The terms of keys, numbered, and a candidate's responses in terms of these numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zav {

using TermNumber = std::uint32_t;

// Numbers terms from 0 in the order in which they come. Several keys may share one table; a set
// of responses then serves all of them.
class TermTable {
 public:
  static constexpr TermNumber kUnknown = static_cast<TermNumber>(-1);

  TermNumber Number(std::string_view term);
  // kUnknown for a term that has no number.
  [[nodiscard]] TermNumber Find(std::string_view term) const;

 private:
  std::map<std::string, TermNumber, std::less<>> numbers_;
};

// Responses are compared as they stand: with their case and their blanks. One that is added twice
// counts once. For many records, one set that is cleared between them saves all allocations.
class ResponseSet {
 public:
  // Reads the table, which has to live as long as the set.
  explicit ResponseSet(const TermTable& terms) : terms_(&terms) {}

  void Add(std::string_view response);
  void Clear();

  [[nodiscard]] bool Has(TermNumber term) const { return term < has_.size() && has_[term] != 0; }
  // Different responses that are terms of the table.
  [[nodiscard]] std::size_t KnownCount() const { return known_.size(); }
  // Whether there is a response that no key of the table names.
  [[nodiscard]] bool HasUnknown() const { return hasUnknown_; }

 private:
  const TermTable* terms_;
  std::vector<std::uint8_t> has_;  // by number; as long as the highest number so far needs
  std::vector<TermNumber> known_;
  bool hasUnknown_ = false;
};

}  // namespace zav

// The keys of one item's answers with their weights, ready to score any number of records.
//
//   WeightedKeys keys;
//   keys.Add("A3 AND B1", 2);
//   ResponseSet responses = keys.NewResponses();
//   responses.Add("A3");
//   keys.RawScore(responses);   // 0
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "keys/CompiledKey.h"
#include "keys/ResponseSet.h"

namespace zav {

// Neither copied nor moved, since sets of responses refer to its terms.
class WeightedKeys {
 public:
  WeightedKeys() = default;
  WeightedKeys(const WeightedKeys&) = delete;
  WeightedKeys& operator=(const WeightedKeys&) = delete;

  // A key that is not well formed gives its fault and holds for nobody.
  std::optional<KeyFault> Add(std::string_view expression, double weight);

  // An empty set for RawScore; it must not outlive the keys.
  [[nodiscard]] ResponseSet NewResponses() const { return ResponseSet(terms_); }
  // The sum of the weights of the answers that hold.
  [[nodiscard]] double RawScore(const ResponseSet& responses) const;

 private:
  struct Answer {
    CompiledKey key;
    double weight;
  };
  TermTable terms_;
  std::vector<Answer> answers_;
};

}  // namespace zav

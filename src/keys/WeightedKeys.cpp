#include "keys/WeightedKeys.h"

#include <utility>
#include <variant>

namespace zav {

std::optional<KeyFault> WeightedKeys::Add(std::string_view expression, double weight) {
  auto compiled = CompiledKey::Compile(expression, terms_);
  if (auto* fault = std::get_if<KeyFault>(&compiled)) return std::move(*fault);
  answers_.push_back({std::get<CompiledKey>(std::move(compiled)), weight});
  return std::nullopt;
}

double WeightedKeys::RawScore(const ResponseSet& responses) const {
  double score = 0;
  for (const Answer& answer : answers_) {
    if (answer.key.Holds(responses)) score += answer.weight;
  }
  return score;
}

}  // namespace zav

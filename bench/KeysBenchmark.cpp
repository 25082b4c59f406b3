// How long it takes to read keys, to compile them and to score records with them.
#include <benchmark/benchmark.h>

#include <string>
#include <variant>

#include "keys/WeightedKeys.h"
#include "keys/modSetAnswers.h"

namespace zav {
namespace {

constexpr const char* kUsualKey = "(A1 OR A2) AND B12 AND NOT (C3 OR D4) AND ONLY";

std::string Chain(std::int64_t connectives) {
  std::string key = "A1";
  for (; connectives > 0; --connectives) key += " AND (B2)";
  return key;
}

// Time for each connective has to stay the same however long the key.
void ReadAssertedTerms(benchmark::State& state) {
  const std::string key = Chain(state.range(0));
  modSetAnswers evaluator;
  while (state.KeepRunning()) benchmark::DoNotOptimize(evaluator.GetKeyAnswers(key, "DD"));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadAssertedTerms)->RangeMultiplier(10)->Range(10, 100'000)->Complexity();

void CompileChain(benchmark::State& state) {
  const std::string key = Chain(state.range(0));
  while (state.KeepRunning()) {
    TermTable terms;
    benchmark::DoNotOptimize(CompiledKey::Compile(key, terms));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(CompileChain)->RangeMultiplier(10)->Range(10, 100'000)->Complexity();

void CompileUsualKey(benchmark::State& state) {
  while (state.KeepRunning()) {
    TermTable terms;
    benchmark::DoNotOptimize(CompiledKey::Compile(kUsualKey, terms));
  }
}
BENCHMARK(CompileUsualKey);

// One record of an item with four answers, responses read included.
void ScoreRecord(benchmark::State& state) {
  WeightedKeys keys;
  for (const char* key : {kUsualKey, "A1 AND B12", "A2 OR E5", "NOT A1"}) keys.Add(key, 1);
  ResponseSet responses = keys.NewResponses();
  while (state.KeepRunning()) {
    responses.Clear();
    for (const char* response : {"A1", "B12", "E5", "F6"}) responses.Add(response);
    benchmark::DoNotOptimize(keys.RawScore(responses));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(ScoreRecord);

}  // namespace
}  // namespace zav

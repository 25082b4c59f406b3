// The reference scoring engine: keys as truth over the responses (CompiledKey says how).
//
// It reads the responses from the children of Responses below State, and the keys and their Weight
// from the children of Answers, wherever these stand in the document. No State or no Responses
// are no responses, no Answers are no keys. The document's cursor stays where it is.
//
// By name it has, in slot order: Document (put), Document (read), CalculateScore, Unused, MaxScore
// and MinScore. The three scores are stored in the one argument, as a double.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/ClassRegistry.h"
#include "automation/Handler.h"
#include "automation/Object.h"
#include "host/ScoringEngine.h"
#include "keys/WeightedKeys.h"

namespace zav {

class ScoreEngine : public Object, public ScoringEngine {
 public:
  using Log = Handler<void(const std::string& message)>;

  // The log is told, each time the raw score is calculated, of every key that is not well formed,
  // and of a weight that is no number before its error is raised.
  explicit ScoreEngine(Log log = {});

  void SetDocument(DataIORef document) override { document_ = std::move(document); }
  DataIORef Document() override { return document_; }

  // All scores raise 91 without a document, and 13 when a weight is no number.
  //
  // The sum of the weights of the answers that hold; an answer without a weight counts 1. A key
  // that is not well formed holds for nobody.
  Variant CalculateScore() override;
  // The sums of the positive and of the negative weights, whatever their keys.
  Variant MaxScore() override;
  Variant MinScore() override;

  Variant Invoke(std::string_view name, std::span<Variant> arguments,
                 InvokeKind kind = InvokeKind::Call) override;

 private:
  struct Answer {
    std::string expression;
    double weight;

    bool operator==(const Answer&) const = default;
  };
  // The keys of the answers that were scored last, kept as long as these are the same and all keys
  // are well formed.
  struct Compiled {
    std::vector<Answer> answers;
    WeightedKeys keys;
  };

  std::vector<Answer> ReadAnswers();
  void Compile(std::vector<Answer> answers);
  double ReadWeight(const Variant& weight, std::int32_t index);
  void Tell(const std::string& message) const;

  DataIORef document_;
  Log log_;
  std::unique_ptr<Compiled> compiled_;
};

// Makes the engine known under kScoreEngineProgId; every engine created there writes to the log.
void RegisterScoreEngine(ClassRegistry& registry, ScoreEngine::Log log = {});

}  // namespace zav

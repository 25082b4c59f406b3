#include "hosting/ScoreEngine.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "automation/MemberTable.h"
#include "automation/Text.h"

namespace zav {

namespace {

constexpr std::size_t kExcerptLength = 100;

std::string Quote(std::string_view text) {
  return Concatenate({"\"", FirstCharacters(text, kExcerptLength), "\""});
}

DataIO& RequireDocument(const DataIORef& document) {
  Require(document);
  return *document;
}

ResponseSet ReadResponses(DataIO& document, const WeightedKeys& keys) {
  const CursorScope keep(document);
  ResponseSet responses = keys.NewResponses();
  document.SetFromRoot(true);
  if (!document.FindNode("State")) return responses;
  document.SetFromRoot(false);
  if (!document.FindNode("Responses")) return responses;
  const std::int32_t count = document.ChildCount();
  for (std::int32_t index = 0; index < count; ++index) {
    responses.Add(ToText(document.GetChildText(index)));
  }
  return responses;
}

using Arguments = std::span<Variant>;

// A score is told in the argument.
template <auto kCalculate>
Variant Score(ScoreEngine& engine, Arguments arguments) {
  arguments[0] = (engine.*kCalculate)();
  return {};
}

// In the order of the interface's slots; a put and a read of one name are one entry.
MemberTable<ScoreEngine> Members() {
  static constexpr MemberTable<ScoreEngine>::Member kMembers[] = {
      {"Document", 0,
       [](ScoreEngine& engine, Arguments) -> Variant { return ObjectRef(engine.Document()); },
       [](ScoreEngine& engine, Arguments arguments) {
         const ObjectRef object = ToObject(arguments[0]);
         auto document = std::dynamic_pointer_cast<DataIO>(object);
         if (object && !document) {
           RaiseError(error_number::kTypeMismatch, "Document is no DataIO");
         }
         engine.SetDocument(std::move(document));
         return Variant();
       }},
      {"CalculateScore", 1, Score<&ScoreEngine::CalculateScore>, {}},
      {"Unused", 0, {}, {}},
      {"MaxScore", 1, Score<&ScoreEngine::MaxScore>, {}},
      {"MinScore", 1, Score<&ScoreEngine::MinScore>, {}},
  };
  return MemberTable<ScoreEngine>(kMembers);
}

}  // namespace

ScoreEngine::ScoreEngine(Log log) : log_(log) {}

Variant ScoreEngine::CalculateScore() {
  std::vector<Answer> answers = ReadAnswers();
  if (!compiled_ || compiled_->answers != answers) Compile(std::move(answers));
  const WeightedKeys& keys = compiled_->keys;
  return keys.RawScore(ReadResponses(RequireDocument(document_), keys));
}

// Answers that are not kept are compiled anew the next time, so that every fault is told again.
void ScoreEngine::Compile(std::vector<Answer> answers) {
  compiled_ = std::make_unique<Compiled>();
  int number = 0;
  bool isSound = true;
  for (const Answer& answer : answers) {
    ++number;
    if (const auto fault = compiled_->keys.Add(answer.expression, answer.weight)) {
      isSound = false;
      Tell(Concatenate({"The key ", Quote(answer.expression), " of answer ", std::to_string(number),
                        " is not well formed: ", fault->reason, ", character ",
                        std::to_string(fault->position)}));
    }
  }
  if (isSound) compiled_->answers = std::move(answers);
}

Variant ScoreEngine::MaxScore() {
  double sum = 0;
  for (const Answer& answer : ReadAnswers()) sum += std::max(answer.weight, 0.0);
  return sum;
}

Variant ScoreEngine::MinScore() {
  double sum = 0;
  for (const Answer& answer : ReadAnswers()) sum += std::min(answer.weight, 0.0);
  return sum;
}

std::vector<ScoreEngine::Answer> ScoreEngine::ReadAnswers() {
  DataIO& document = RequireDocument(document_);
  const CursorScope keep(document);
  std::vector<Answer> answers;
  document.SetFromRoot(true);
  if (!document.FindNode("Answers")) return answers;
  const std::int32_t count = document.ChildCount();
  for (std::int32_t index = 0; index < count; ++index) {
    const double weight = ReadWeight(document.GetChildAttribute(index, "Weight"), index);
    answers.push_back({ToText(document.GetChildText(index)), weight});
  }
  return answers;
}

double ScoreEngine::ReadWeight(const Variant& weight, std::int32_t index) {
  const std::string text = ToText(weight);
  if (TrimBlanks(text).empty()) return 1;
  try {
    return ToDouble(weight);
  } catch (const AutomationError&) {
    const std::string message = Concatenate(
        {"The weight ", Quote(text), " of answer ", std::to_string(index + 1), " is no number"});
    Tell(message);
    RaiseError(error_number::kTypeMismatch, message, "ScoreEngine");
  }
}

void ScoreEngine::Tell(const std::string& message) const {
  if (log_) log_(message);
}

Variant ScoreEngine::Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind kind) {
  return Members().Invoke(*this, name, arguments, kind);
}

void RegisterScoreEngine(ClassRegistry& registry, ScoreEngine::Log log) {
  registry.Register(kScoreEngineProgId, [log] { return std::make_shared<ScoreEngine>(log); });
}

}  // namespace zav

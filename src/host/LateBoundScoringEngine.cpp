#include "host/LateBoundScoringEngine.h"

#include <utility>

#include "automation/Conversions.h"

namespace zav {

LateBoundScoringEngine::LateBoundScoringEngine(ObjectRef engine) : engine_(std::move(engine)) {
  Require(engine_);
}

void LateBoundScoringEngine::SetDocument(DataIORef document) {
  engine_->Put("Document", ObjectRef(std::move(document)));
}

DataIORef LateBoundScoringEngine::Document() {
  return std::dynamic_pointer_cast<DataIO>(ToObject(engine_->Call("Document")));
}

Variant LateBoundScoringEngine::Score(std::string_view member) {
  Variant score;
  engine_->Invoke(member, {&score, 1});
  return score;
}

ScoringEngineRef AsScoringEngine(const ObjectRef& engine) {
  if (auto native = std::dynamic_pointer_cast<ScoringEngine>(engine)) return native;
  return std::make_shared<LateBoundScoringEngine>(engine);
}

}  // namespace zav

// A host's own scoring engine, called by name.
//
// The engine has a property Document, put and read, and three methods CalculateScore, MaxScore and
// MinScore, each of which stores its score in its one argument. A document that the engine
// made for itself, of another class than DataIO, counts as none: the component then gives its own.
#pragma once

#include <string_view>

#include "automation/Object.h"
#include "host/ScoringEngine.h"

namespace zav {

class LateBoundScoringEngine : public ScoringEngine {
 public:
  // Raises 91 for nothing.
  explicit LateBoundScoringEngine(ObjectRef engine);

  void SetDocument(DataIORef document) override;
  DataIORef Document() override;
  Variant CalculateScore() override { return Score("CalculateScore"); }
  Variant MaxScore() override { return Score("MaxScore"); }
  Variant MinScore() override { return Score("MinScore"); }

 private:
  Variant Score(std::string_view member);

  ObjectRef engine_;
};

// A registered engine as the component uses it: itself if it is a ScoringEngine, else behind an
// adapter. Raises 91 for nothing.
ScoringEngineRef AsScoringEngine(const ObjectRef& engine);

}  // namespace zav

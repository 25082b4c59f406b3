// A scoring engine, as the component uses it: it is given a document with a candidate's responses
// and an item's key, and gives scores.
//
// The document is the state section with the key put into it, the whole item document, or the
// key alone, which is enough for the maximum and the minimum. Scores are variants that hold a
// number. Engines raise whatever keeps them from scoring.
#pragma once

#include <memory>
#include <string_view>

#include "automation/Variant.h"
#include "document/DataIO.h"

namespace zav {

// Under this ProgID the component looks for its engine.
inline constexpr std::string_view kScoreEngineProgId = "ZavScoring.ScoreEngine";

class ScoringEngine {
 public:
  ScoringEngine() = default;
  ScoringEngine(const ScoringEngine&) = delete;
  ScoringEngine& operator=(const ScoringEngine&) = delete;
  virtual ~ScoringEngine() = default;

  // The engine keeps the document, and what it holds is read anew for each score.
  virtual void SetDocument(DataIORef document) = 0;
  // Null before the first document was set.
  virtual DataIORef Document() = 0;
  virtual Variant CalculateScore() = 0;
  virtual Variant MaxScore() = 0;
  virtual Variant MinScore() = 0;
};

using ScoringEngineRef = std::shared_ptr<ScoringEngine>;

}  // namespace zav

// What happened while an item was played, written as it happens: for people, or one JSON object a
// line.
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "automation/AutomationError.h"
#include "hosting/ReferenceHost.h"

namespace zav {

class Transcript {
 public:
  enum class Format { Text, JsonLines };

  // The stream outlives the transcript.
  Transcript(std::ostream& out, Format format) : out_(out), format_(format) {}

  // A step; what follows belongs to it. line 0: not of a script.
  void AddStep(int line, std::string_view text);
  void AddMessage(const ShownMessage& message);
  void AddLogEntry(const LogEntry& entry);
  // The component refused a call of the host's, or raised an error to it.
  void AddRefusal();
  void AddError(const AutomationError& error);

  void AddResponses(const std::vector<std::string>& responses);
  void AddStatus(const DisplayStatus& status);
  void AddScore(const ScoreCounts& counts, const ScoreInfo& info);
  // A text that the step asked for, under its name: "state", "key", "picture" ...
  void AddText(std::string_view name, std::string_view text);

  // Whether something was logged, refused or raised.
  [[nodiscard]] bool HasErrors() const { return hasErrors_; }

 private:
  void Put(std::string_view text, const nlohmann::ordered_json& json);

  std::ostream& out_;
  Format format_;
  bool hasErrors_ = false;
};

}  // namespace zav

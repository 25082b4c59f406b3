#include "zavdragdrop/Transcript.h"

#include "automation/Conversions.h"
#include "host/clsErrorDisplay.h"

namespace zav {
namespace {

using Json = nlohmann::ordered_json;

std::string AnswerName(std::int16_t answer) {
  if (answer == message_answer::kOk) return "OK";
  return answer == message_answer::kCancel ? "Cancel" : std::to_string(answer);
}

// Empty for a message that asks nothing.
std::string Answered(const ShownMessage& message) {
  return message.style == message_style::kOkCancel ? " [" + AnswerName(message.answer) + "]" : "";
}

std::string StatusName(std::int32_t state) {
  switch (state) {
    case 2:
      return "no response yet";
    case 3:
      return "not all responses yet";
    case 100:
      return "answered";
    default:
      return "state " + std::to_string(state);
  }
}

std::string Joined(const std::vector<std::string>& responses) {
  std::string text;
  for (const std::string& response : responses) text += " " + response;
  return text.empty() ? " none" : text;
}

}  // namespace

// Text that is no UTF-8 must not end the play: its bad bytes are replaced.
void Transcript::Put(std::string_view text, const Json& json) {
  if (format_ == Format::Text) {
    out_ << text << '\n';
  } else {
    out_ << json.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
  }
}

void Transcript::AddStep(int line, std::string_view text) {
  Json json{{"event", "step"}};
  if (line > 0) json["line"] = line;
  json["text"] = text;
  Put(text, json);
}

void Transcript::AddMessage(const ShownMessage& message) {
  Put("  message: " + message.text + Answered(message), {{"event", "message"},
                                                         {"text", message.text},
                                                         {"style", message.style},
                                                         {"title", message.title},
                                                         {"answer", message.answer}});
}

void Transcript::AddLogEntry(const LogEntry& entry) {
  hasErrors_ = true;
  Put("  logged: " + entry.routine + ": " + entry.description + " (" +
          std::to_string(entry.number) + ")",
      {{"event", "log"},
       {"number", entry.number},
       {"description", entry.description},
       {"source", entry.source},
       {"extra", entry.extra},
       {"routine", entry.routine},
       {"line", entry.line}});
}

void Transcript::AddRefusal() {
  hasErrors_ = true;
  Put("  refused", {{"event", "refused"}});
}

void Transcript::AddError(const AutomationError& error) {
  hasErrors_ = true;
  Put("  error: " + error.Description() + " (" + std::to_string(error.Number()) + ")",
      {{"event", "error"},
       {"number", error.Number()},
       {"description", error.Description()},
       {"source", error.Source()}});
}

void Transcript::AddResponses(const std::vector<std::string>& responses) {
  Put("  responses:" + Joined(responses), {{"event", "responses"}, {"responses", responses}});
}

void Transcript::AddStatus(const DisplayStatus& status) {
  const std::string message = status.sStateMsg.empty() ? "" : "; " + status.sStateMsg;
  Put("  status: " + StatusName(status.lDispState) + ", " +
          (status.bViewedAll ? "all seen" : "not all seen") + message,
      {{"event", "status"},
       {"state", status.lDispState},
       {"viewedAll", status.bViewedAll},
       {"message", status.sStateMsg}});
}

void Transcript::AddScore(const ScoreCounts& counts, const ScoreInfo& info) {
  Put("  score: " + ToText(counts.fRawScore) + " of " + ToText(info.fMaxScore) + ", least " +
          ToText(info.fMinScore) + "; correct " + std::to_string(counts.nCorrect) + ", incorrect " +
          std::to_string(counts.nIncorrect) + ", not attempted " +
          std::to_string(counts.nNotAttempted) + ", not scored " +
          std::to_string(counts.nNotScored),
      {{"event", "score"},
       {"raw", counts.fRawScore},
       {"max", info.fMaxScore},
       {"min", info.fMinScore},
       {"correct", counts.nCorrect},
       {"incorrect", counts.nIncorrect},
       {"notAttempted", counts.nNotAttempted},
       {"notScored", counts.nNotScored}});
}

void Transcript::AddText(std::string_view name, std::string_view text) {
  Put("  " + std::string(name) + ": " + std::string(text), {{"event", name}, {"text", text}});
}

}  // namespace zav

// The host's parent object: it keeps what is logged and shown, and answers as it was told.
//
//   LogError(lNumber, sDescription, sSource, sExtra, sRoutine, lLineNumber)
//   ShowMessage(sMessage, nStyle, sTitle)  gives the answer: 1 is OK, 2 is Cancel
//   GetGraphicsPath(fileName)              ItemFolder::GraphicsPath
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Object.h"
#include "hosting/CallRecord.h"
#include "hosting/ItemFolder.h"

namespace zav {

struct LogEntry {
  std::int32_t number = 0;
  std::string description;
  std::string source;
  std::string extra;
  std::string routine;
  std::int32_t line = 0;
};

struct ShownMessage {
  std::string text;
  std::int16_t style = 0;
  std::string title;
  std::int16_t answer = 0;  // what the host answered
};

class ParentObject : public Object {
 public:
  // Both outlive it.
  ParentObject(const ItemFolder& item, CallRecord& record) : item_(item), record_(record) {}

  Variant Invoke(std::string_view name, std::span<Variant> arguments,
                 InvokeKind kind = InvokeKind::Call) override;

  // The answer to the next message that asks something. Further ones wait in line; without one the
  // answer is OK, as it is for a message that asks nothing.
  void WillAnswer(std::int16_t answer) { answers_.push_back(answer); }

  void Log(LogEntry entry);
  [[nodiscard]] const std::vector<LogEntry>& log() const { return log_; }
  [[nodiscard]] const std::vector<ShownMessage>& messages() const { return messages_; }

  // Told as it happens.
  std::function<void(const LogEntry&)> onLogError;
  std::function<void(const ShownMessage&)> onShowMessage;

 private:
  std::int16_t Show(ShownMessage message);
  std::int16_t TakeAnswer(std::int16_t style);

  const ItemFolder& item_;
  CallRecord& record_;
  std::deque<std::int16_t> answers_;
  std::vector<LogEntry> log_;
  std::vector<ShownMessage> messages_;
};

}  // namespace zav

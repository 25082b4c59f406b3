// The one way in which the component says that something went wrong: under the name of the routine
// that failed, into the host's log and to the candidate.
//
// A routine that can fail runs inside Trap. It then ends normally, with what it did so far.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "automation/AutomationError.h"
#include "automation/FunctionRef.h"
#include "host/ItemOwner.h"
#include "host/PendingAnswer.h"

namespace zav {

// The host's LogError or ShowMessage failed while an error was being reported. It passes through
// every trap, to the host's call that led to it.
class ReportingFailure : public AutomationError {
 public:
  explicit ReportingFailure(const AutomationError& cause) : AutomationError(cause) {}
};

namespace message_style {
inline constexpr std::int16_t kNotice = 0;
inline constexpr std::int16_t kOkCancel = 1;
inline constexpr std::int16_t kError = 16;
}  // namespace message_style

namespace message_answer {
inline constexpr std::int16_t kOk = 1;
inline constexpr std::int16_t kCancel = 2;
}  // namespace message_answer

// What the host answered to a message, or the answer that it will give later.
struct MessageAnswer {
  std::int16_t value = 0;
  std::shared_ptr<PendingAnswer> pending;
};

// Shows a message through the host's parent object, with the application's title as its caption,
// and returns the host's answer. Raises 0x8004000A "Message Function not available" when it cannot.
MessageAnswer AskMessage(ItemOwner& owner, const std::string& message, std::int16_t style);
// The same for a message that asks nothing.
void ShowMessage(ItemOwner& owner, const std::string& message, std::int16_t style);

class clsErrorDisplay {
 public:
  void SetOwner(ItemOwner* owner) { owner_ = owner; }
  void SetRoutine(std::string_view routine) { routine_ = routine; }
  [[nodiscard]] std::string Routine() const { return {}; }  // can be stored, never read back

  // Logs and shows the error. Raises ReportingFailure when the host fails to take it.
  void Activate(const AutomationError& error);

 private:
  ItemOwner* owner_ = nullptr;
  std::string routine_;
};

void Trap(clsErrorDisplay& reporter, const char* routine, Procedure procedure);

// Runs both, the second also when the first raises; what was raised passes on.
void RunBoth(Procedure first, Procedure second);

}  // namespace zav

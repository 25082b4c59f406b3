#include "host/clsErrorDisplay.h"

#include "automation/Conversions.h"
#include "automation/Text.h"

namespace zav {
namespace {

// Nothing in the component counts lines.
constexpr std::int32_t kLineNumber = 0;

std::string MessageText(const AutomationError& error, const std::string& routine) {
  return Concatenate({"Error: Description - ", error.Description(), ".  Number - ",
                      ToText(error.Number()), "  Source - ", error.Source(), "  Routine - ",
                      routine, "  LineNumber - ", ToText(kLineNumber)});
}

}  // namespace

MessageAnswer AskMessage(ItemOwner& owner, const std::string& message, std::int16_t style) {
  try {
    const Variant answer =
        Require(owner.ExtParent())
            .Call("ShowMessage", message, style, owner.Module().gApplicationTitle);
    if (const auto* object = std::get_if<ObjectRef>(&answer)) {
      if (auto pending = std::dynamic_pointer_cast<PendingAnswer>(*object)) return {0, pending};
    }
    return {ToInt16(answer), nullptr};
  } catch (...) {
    RaiseError(error_number::kComponent, "Message Function not available");
  }
}

void ShowMessage(ItemOwner& owner, const std::string& message, std::int16_t style) {
  AskMessage(owner, message, style);
}

void clsErrorDisplay::Activate(const AutomationError& error) {
  try {
    if (owner_ == nullptr) {
      RaiseError(error_number::kObjectNotSet, "Object variable not set");
    }
    Require(owner_->ExtParent())
        .Call("LogError", error.Number(), error.Description(), std::string("ZavDragDrop"),
              std::string(), routine_, kLineNumber);
    ShowMessage(*owner_, MessageText(error, routine_), message_style::kError);
  } catch (...) {
    throw ReportingFailure(CurrentError());
  }
}

void Trap(clsErrorDisplay& reporter, const char* routine, Procedure procedure) {
  try {
    procedure();
  } catch (const ReportingFailure&) {
    throw;
  } catch (...) {
    reporter.SetRoutine(routine);
    reporter.Activate(CurrentError());
  }
}

void RunBoth(Procedure first, Procedure second) {
  try {
    first();
  } catch (...) {
    second();
    throw;
  }
  second();
}

}  // namespace zav

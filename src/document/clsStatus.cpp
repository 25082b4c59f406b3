#include "document/clsStatus.h"

#include <string>

#include "automation/AutomationError.h"
#include "automation/Conversions.h"

namespace zav {

namespace {

std::int32_t CountResponses(DataIO& document) {
  document.SetFromRoot(true);
  return document.FindNode("Responses") ? document.ChildCount() : 0;
}

// The element that the multiple-choice screen names, or nothing for an item without such a screen.
std::string FindChoiceNode(DataIO& document) {
  document.SetFromRoot(true);
  if (!document.FindNode("Screens")) return {};
  for (std::int32_t index = 0; index < document.ChildCount(); ++index) {
    if (document.GetChildAttribute(index, "Form").View() == "frmMC") {
      return ToText(document.GetChildAttribute(index, "Node"));
    }
  }
  return {};
}

std::int32_t LeastResponses(DataIO& document, const std::string& choiceNode) {
  document.SetFromRoot(true);
  if (!document.FindNode(choiceNode)) return 0;
  document.SetFromRoot(false);
  return document.FindNode("MultipleChoice") ? ToInt32(document.GetAttribute("Min")) : 0;
}

std::int32_t StatusOf(DataIO& document) {
  const std::int32_t responses = CountResponses(document);
  const std::string choiceNode = FindChoiceNode(document);
  const std::int32_t least = choiceNode.empty() ? 0 : LeastResponses(document, choiceNode);
  if (responses == 0) return answer_status::kNoResponse;
  return responses < least ? answer_status::kTooFewResponses : answer_status::kAnswered;
}

}  // namespace

Variant clsStatus::AnswerStatus() const {
  if (DataIO == nullptr) {
    RaiseError(error_number::kObjectNotSet, "Object variable not set", "clsStatus");
  }
  const CursorScope keep(*DataIO);
  return StatusOf(*DataIO);
}

}  // namespace zav

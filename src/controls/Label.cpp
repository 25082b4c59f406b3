#include "controls/Label.h"

#include "automation/AutomationError.h"

namespace zav {

void Label::SetAlignment(std::int32_t code) {
  if (code < 0 || code > 2) {
    RaiseError(error_number::kInvalidPropertyValue, "Invalid property value");
  }
  Set(alignment_, static_cast<LabelAlignment>(code), change::kContent);
}

void Label::CopyFrom(const Control& model) {
  Control::CopyFrom(model);
  const auto& label = static_cast<const Label&>(model);
  caption_ = label.caption_;
  alignment_ = label.alignment_;
}

}  // namespace zav

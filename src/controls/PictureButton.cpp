#include "controls/PictureButton.h"

#include "automation/AutomationError.h"

namespace zav {

void PictureButton::SetCaptionAlignment(std::int32_t code) {
  if (code != 0 && code != 1 && code != 7) {
    RaiseError(error_number::kInvalidPropertyValue, "Invalid property value");
  }
  Set(alignment_, static_cast<CaptionAlignment>(code), change::kLook);
}

void PictureButton::CopyFrom(const Control& model) {
  Control::CopyFrom(model);
  const auto& button = static_cast<const PictureButton&>(model);
  picture_ = button.picture_;
  caption_ = button.caption_;
  alignment_ = button.alignment_;
  hasFace_ = button.hasFace_;
}

}  // namespace zav

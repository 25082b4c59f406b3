// A line or a paragraph of plain text on its container. It lies under all its siblings.
#pragma once

#include <string>

#include "controls/Control.h"

namespace zav {

enum class LabelAlignment { Left = 0, Right = 1, Centred = 2 };

class Label : public Control {
 public:
  Label(ControlHost& host, Control* container, std::string name, int index = -1)
      : Control(host, ControlKind::Label, container, std::move(name), index) {}

  [[nodiscard]] const std::string& caption() const { return caption_; }
  void SetCaption(std::string caption) { Set(caption_, std::move(caption), change::kContent); }

  [[nodiscard]] LabelAlignment alignment() const { return alignment_; }
  // Raises 380 for a code that is not one of LabelAlignment.
  void SetAlignment(std::int32_t code);

  void CopyFrom(const Control& model) override;

 private:
  std::string caption_;
  LabelAlignment alignment_ = LabelAlignment::Left;
};

}  // namespace zav

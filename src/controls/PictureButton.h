// A button that shows a picture, a caption, or, as a cover, nothing at all.
#pragma once

#include <string>

#include "controls/Control.h"

namespace zav {

// Where a caption stands, by the codes that the control takes.
enum class CaptionAlignment { Left = 0, Right = 1, Centred = 7 };

class PictureButton : public Control {
 public:
  PictureButton(ControlHost& host, Control* container, std::string name, int index = -1)
      : Control(host, ControlKind::PictureButton, container, std::move(name), index) {}

  // Shown within the button, never enlarged and never distorted, in its middle.
  [[nodiscard]] const PictureRef& picture() const { return picture_; }
  void SetPicture(PictureRef picture) { Set(picture_, std::move(picture), change::kLook); }

  [[nodiscard]] const std::string& caption() const { return caption_; }
  void SetCaption(std::string caption) { Set(caption_, std::move(caption), change::kLook); }

  [[nodiscard]] CaptionAlignment captionAlignment() const { return alignment_; }
  // Raises 380 for a code that is not one of CaptionAlignment.
  void SetCaptionAlignment(std::int32_t code);

  // A face is drawn behind picture and caption, raised like a button; without one the button shows
  // through to what is under it.
  [[nodiscard]] bool hasFace() const { return hasFace_; }
  void SetHasFace(bool hasFace) { Set(hasFace_, hasFace, change::kLook); }

  void CopyFrom(const Control& model) override;

 private:
  PictureRef picture_;
  std::string caption_;
  CaptionAlignment alignment_ = CaptionAlignment::Centred;
  bool hasFace_ = false;
};

}  // namespace zav

// A window of the component's own, without a border. It stands in twips within the window that it
// was given as a parent.
#pragma once

#include <string>

#include "controls/Control.h"

namespace zav {

class Form : public Control {
 public:
  Form(ControlHost& host, std::string name);
  ~Form() override;

  [[nodiscard]] WindowHandle hwnd() const { return hwnd_; }
  [[nodiscard]] const std::string& caption() const { return caption_; }
  void SetCaption(std::string caption) { Set(caption_, std::move(caption), change::kLook); }

  // The candidate closes the window. A form that does not listen cannot be closed.
  Handler<void()> onClose;
  void RaiseClose();

  // The inner size: a form without a border has no other.
  [[nodiscard]] float scaleWidth() const { return width(); }
  [[nodiscard]] float scaleHeight() const { return height(); }

 private:
  WindowHandle hwnd_;
  std::string caption_;
};

}  // namespace zav

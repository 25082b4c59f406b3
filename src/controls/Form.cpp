#include "controls/Form.h"

#include <utility>

namespace zav {

Form::Form(ControlHost& host, std::string name)
    : Control(host, ControlKind::Form, nullptr, std::move(name)),
      hwnd_(host.services().CreateFormWindow(this->name())) {
  SetVisible(false);
}

void Form::RaiseClose() {
  if (Hears() && onClose) host().RunEvent([this] { onClose(); });
}

Form::~Form() { host().services().DestroyFormWindow(hwnd_); }

}  // namespace zav

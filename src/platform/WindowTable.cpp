#include "platform/WindowTable.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "automation/Text.h"

namespace zav {

WindowHandle WindowTable::Open(Window window) {
  windows_.emplace(++lastHandle_, std::move(window));
  order_.push_back(lastHandle_);
  return lastHandle_;
}

void WindowTable::Close(WindowHandle handle) {
  windows_.erase(handle);
  std::erase(order_, handle);
  for (auto& [other, window] : windows_) {
    if (window.parent == handle) window.parent = 0;
  }
}

const Window* WindowTable::Find(WindowHandle handle) const {
  const auto found = windows_.find(handle);
  return found == windows_.end() ? nullptr : &found->second;
}

WindowHandle WindowTable::Find(std::string_view className, std::string_view title) const {
  const auto found = std::find_if(order_.rbegin(), order_.rend(), [&](WindowHandle handle) {
    const Window& window = windows_.at(handle);
    return window.parent == 0 && EqualIgnoringCase(window.className, className) &&
           EqualIgnoringCase(window.title, title);
  });
  return found == order_.rend() ? 0 : *found;
}

std::vector<Form*> WindowTable::Forms() const {
  std::vector<Form*> forms;
  std::vector<WindowHandle> toVisit{0};
  while (!toVisit.empty()) {
    const WindowHandle container = toVisit.back();
    toVisit.pop_back();
    const Window* window = Find(container);
    if (window != nullptr && window->form != nullptr) forms.push_back(window->form);
    std::copy_if(order_.rbegin(), order_.rend(), std::back_inserter(toVisit),
                 [&](WindowHandle each) { return windows_.at(each).parent == container; });
  }
  return forms;
}

WindowHandle WindowTable::SetParent(WindowHandle handle, WindowHandle parent) {
  const auto found = windows_.find(handle);
  if (found == windows_.end()) return 0;
  if (parent != 0 && (Find(parent) == nullptr || StandsIn(parent, handle))) return 0;
  return std::exchange(found->second.parent, parent);
}

void WindowTable::BringToTop(WindowHandle handle) {
  if (std::erase(order_, handle) > 0) order_.push_back(handle);
}

void WindowTable::Show(WindowHandle handle) {
  const auto found = windows_.find(handle);
  if (found != windows_.end()) found->second.visible = true;
}

void WindowTable::Announce(Form& form) {
  const auto found = windows_.find(form.hwnd());
  if (found != windows_.end()) found->second.form = &form;
}

bool WindowTable::StandsIn(WindowHandle handle, WindowHandle container) const {
  for (WindowHandle at = handle; at != 0; at = windows_.at(at).parent) {
    if (at == container) return true;
  }
  return false;
}

}  // namespace zav

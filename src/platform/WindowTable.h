// The windows of a platform: forms, windows of the host's and those of programs.
//
// A window is in front of the one that it stands in, and beside others in there of those that were
// made or brought to the top before it. Handles are never used again. Windows have no place of
// their own: a form stands where its position says, in the window that it was given as a parent,
// and every parent covers the screen.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Form.h"

namespace zav {

struct Window {
  enum class Owner { Form, Host, Program };

  Owner owner = Owner::Host;
  std::string className;
  std::string title;
  WindowHandle parent = 0;  // 0: it stands on the desktop
  bool visible = true;      // programs start hidden; what a form shows, the form says itself
  Form* form = nullptr;     // known from the first time that the form is presented
};

class WindowTable {
 public:
  WindowHandle Open(Window window);
  // Windows that stand in it go to the desktop. Nothing happens for what is no window.
  void Close(WindowHandle handle);

  // Null for what is no window, or no longer.
  [[nodiscard]] const Window* Find(WindowHandle handle) const;
  // Of those on the desktop the one in front; both texts compared without regard to case.
  [[nodiscard]] WindowHandle Find(std::string_view className, std::string_view title) const;
  // All windows, the one in front last.
  [[nodiscard]] const std::vector<WindowHandle>& Order() const { return order_; }
  // All forms presented so far, the one in front last.
  [[nodiscard]] std::vector<Form*> Forms() const;

  // Gives the parent that the window had. What is no window, and a parent that is none or stands in
  // the window itself, changes nothing and gives 0.
  WindowHandle SetParent(WindowHandle handle, WindowHandle parent);
  void BringToTop(WindowHandle handle);
  void Show(WindowHandle handle);
  void Announce(Form& form);

 private:
  [[nodiscard]] bool StandsIn(WindowHandle handle, WindowHandle container) const;

  WindowHandle lastHandle_ = 0;
  std::map<WindowHandle, Window> windows_;
  std::vector<WindowHandle> order_;
};

}  // namespace zav

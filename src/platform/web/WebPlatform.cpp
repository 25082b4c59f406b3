#include "platform/web/WebPlatform.h"

#include <utility>

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "controls/Form.h"

namespace zav {
namespace {

constexpr std::string_view kCalculatorFile = "DCALC.EXE";

[[noreturn]] void RaiseNotFound(std::string_view path) {
  RaiseError(error_number::kFileNotFound, {"File not found: ", path});
}

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

std::string PictureKey(const std::string& path) {
  return IsOwnPicture(path) ? UpperCase(path) : path;
}

PictureRef MakePicture(std::int32_t number, int widthPixels, int heightPixels) {
  if (number == 0) return {};
  return std::make_shared<NumberedPicture>(number, widthPixels, heightPixels);
}

// pattern has at most one "*".
bool Matches(std::string_view path, std::string_view pattern) {
  const std::size_t star = pattern.find('*');
  if (star == std::string_view::npos) return path == pattern;
  return path.size() + 1 >= pattern.size() && path.substr(0, star) == pattern.substr(0, star) &&
         EndsWith(path, pattern.substr(star + 1));
}

}  // namespace

WebPlatform::WebPlatform(Browser& browser, ComponentNumber component)
    : browser_(browser),
      component_(component),
      hostWindow_(windows_.Open(
          {.owner = Window::Owner::Host, .className = "Host", .title = "zav-drag-drop"})) {}

void WebPlatform::AddPicture(std::string_view path, std::int32_t number, int widthPixels,
                             int heightPixels) {
  pictures_[PictureKey(std::string(path))] = MakePicture(number, widthPixels, heightPixels);
}

void WebPlatform::AddResourcePicture(std::string_view tag, std::int32_t number, int widthPixels,
                                     int heightPixels) {
  resources_[std::string(tag)] = MakePicture(number, widthPixels, heightPixels);
}

void WebPlatform::AddFile(std::string_view path, std::vector<std::uint8_t> bytes) {
  files_[std::string(path)] = std::move(bytes);
}

void WebPlatform::PageLoaded(std::int32_t ticket) {
  const auto load = loads_.extract(ticket);
  if (!load.empty()) load.mapped().loaded();
}

void WebPlatform::TimerTicked(ControlId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  const Handler<void()> tick = found->second;  // which may stop its timer
  tick();
}

void WebPlatform::CloseWindow(WindowHandle window) {
  const Window* found = windows_.Find(window);
  if (found == nullptr) return;
  if (found->form != nullptr) {
    found->form->RaiseClose();
  } else {
    SendClose(window);
  }
}

void WebPlatform::RaiseWindow(WindowHandle window) {
  const Window* found = windows_.Find(window);
  if (found != nullptr && found->owner != Window::Owner::Host) BringWindowToTop(window);
}

Control* WebPlatform::Find(ControlId id) const {
  const auto found = controls_.find(id);
  return found == controls_.end() ? nullptr : found->second;
}

PictureRef WebPlatform::LoadPicture(const std::string& path) {
  if (path.empty()) return {};
  const auto found = pictures_.find(PictureKey(path));
  if (found == pictures_.end() && files_.count(path) == 0) RaiseNotFound(path);
  if (found == pictures_.end() || !found->second) {
    RaiseError(error_number::kInvalidPicture, {"Invalid picture: ", path});
  }
  return found->second;
}

PictureRef WebPlatform::ResourcePicture(std::string_view tag) {
  const auto found = resources_.find(tag);
  if (found == resources_.end() || !found->second) {
    RaiseError(error_number::kInvalidPicture, {"No such picture: ", tag});
  }
  return found->second;
}

void WebPlatform::SavePicture(const Picture& picture, const std::string& path) {
  const auto& numbered = static_cast<const NumberedPicture&>(picture);
  AddPicture(path, numbered.number(), picture.WidthPixels(), picture.HeightPixels());
  browser_.NamePicture(component_, path, numbered.number());
}

int WebPlatform::RichTextHeight(const RichContent& content, int widthPixels) {
  return browser_.RichTextHeight(component_, content, widthPixels);
}

void WebPlatform::LoadPage(ControlId pane, const std::string& html, Handler<void()> loaded) {
  ForgetLoadsOf(pane);
  loads_[++lastTicket_] = {pane, loaded};
  browser_.LoadPage(component_, pane, html, lastTicket_);
}

void WebPlatform::DropPage(ControlId pane) {
  ForgetLoadsOf(pane);
  browser_.DropPage(component_, pane);
}

void WebPlatform::ForgetLoadsOf(ControlId pane) {
  std::erase_if(loads_, [&](const auto& entry) { return entry.second.pane == pane; });
}

int WebPlatform::PageContentHeight(ControlId pane, int paneWidthPixels, int marginPixels) {
  return browser_.PageContentHeight(component_, pane, paneWidthPixels, marginPixels);
}

int WebPlatform::PageScrollTop(ControlId pane) { return browser_.PageScrollTop(component_, pane); }

void WebPlatform::StartTimer(ControlId timer, int milliseconds, Handler<void()> tick) {
  timers_[timer] = tick;
  browser_.StartTimer(component_, timer, milliseconds);
}

void WebPlatform::StopTimer(ControlId timer) {
  if (timers_.erase(timer) > 0) browser_.StopTimer(component_, timer);
}

WindowHandle WebPlatform::CreateFormWindow(const std::string& title) {
  return windows_.Open({.owner = Window::Owner::Form, .className = "Form", .title = title});
}

// The page hears of it with the form that is presented as gone.
void WebPlatform::DestroyFormWindow(WindowHandle window) {
  windows_.Close(window);
  windowsChanged_ = true;
}

WindowHandle WebPlatform::SetParent(WindowHandle window, WindowHandle parent) {
  const WindowHandle previous = windows_.SetParent(window, parent);
  ArrangeWindows();
  return previous;
}

bool WebPlatform::IsWindow(WindowHandle window) { return windows_.Find(window) != nullptr; }

WindowHandle WebPlatform::FindWindow(std::string_view className, std::string_view title) {
  return windows_.Find(className, title);
}

void WebPlatform::BringWindowToTop(WindowHandle window) {
  windows_.BringToTop(window);
  ArrangeWindows();
}

void WebPlatform::RestoreWindow(WindowHandle window) {
  windows_.Show(window);
  ArrangeWindows();
}

void WebPlatform::SendClose(WindowHandle window) {
  const Window* found = windows_.Find(window);
  if (found == nullptr || found->owner != Window::Owner::Program) return;
  windows_.Close(window);
  ArrangeWindows();
}

void WebPlatform::Shell(const std::string& path) {
  if (!EndsWith(UpperCase(path), kCalculatorFile)) RaiseNotFound(path);
  windows_.Open({.owner = Window::Owner::Program,
                 .className = "SciCalc",
                 .title = "Calculator",
                 .visible = false});
}

bool WebPlatform::FileExists(const std::string& path) {
  return files_.count(path) > 0 || pictures_.count(PictureKey(path)) > 0;
}

std::vector<std::uint8_t> WebPlatform::ReadFile(const std::string& path) {
  const auto found = files_.find(path);
  if (found == files_.end()) RaiseNotFound(path);
  return found->second;
}

void WebPlatform::WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  AddFile(path, bytes);
}

void WebPlatform::DeleteFiles(const std::string& pattern) {
  std::erase_if(files_, [&](const auto& entry) { return Matches(entry.first, pattern); });
  std::erase_if(pictures_, [key = PictureKey(pattern)](const auto& entry) {
    return Matches(entry.first, key);
  });
}

void WebPlatform::Present(std::span<Control* const> changed, std::span<const ControlId> removed) {
  for (const ControlId id : removed) controls_.erase(id);
  for (Control* control : changed) {
    controls_[control->id()] = control;
    if (control->kind() != ControlKind::Form) continue;
    windows_.Announce(static_cast<Form&>(*control));
    windowsChanged_ = true;
  }
  changes_.Write(changed, removed);
  if (!changes_.Words().empty()) {
    browser_.Present(component_, changes_.Words(), changes_.Texts());
  }
  if (std::exchange(windowsChanged_, false)) ArrangeWindows();
}

// Forms say themselves whether they are seen. Programs' windows are in front of all forms.
void WebPlatform::ArrangeWindows() {
  std::vector<ShownWindow> shown;
  for (const Form* form : windows_.Forms()) {
    shown.push_back({form->hwnd(), form->id(), form->visible()});
  }
  for (const WindowHandle handle : windows_.Order()) {
    const Window& window = *windows_.Find(handle);
    if (window.owner == Window::Owner::Program) shown.push_back({handle, 0, window.visible});
  }
  browser_.ArrangeWindows(component_, shown);
}

}  // namespace zav

#include "platform/headless/HeadlessPlatform.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "platform/headless/EmbeddedPictures.h"
#include "platform/headless/HitTest.h"
#include "platform/headless/LocalFiles.h"
#include "platform/headless/PictureFile.h"
#include "platform/headless/TextLayout.h"

namespace zav {
namespace {

// Paths of items name folders in either way.
std::string ProgramName(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return UpperCase(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

}  // namespace

HeadlessPlatform::HeadlessPlatform(HeadlessOptions options)
    : options_(options), timers_(clock_), pages_(clock_, PageLoader()), input_(windows_, pages_) {}

std::unique_ptr<HeadlessPlatform> MakeHeadlessPlatform(HeadlessOptions options) {
  return std::make_unique<HeadlessPlatform>(options);
}

PictureLoader HeadlessPlatform::PageLoader() {
  return [this](const std::string& path) { return LoadPicture(path); };
}

bool HeadlessPlatform::Click(HtmlPane& pane, std::string_view elementId) {
  const std::optional<Point> place = pages_.PlaceOf(pane, elementId);
  if (!place) return false;
  const Point at = CandidateInput::InWindow(pane, *place);
  if (input_.ControlUnder(at) != &pane) return false;
  input_.Press(at);
  input_.Release();
  return true;
}

void HeadlessPlatform::ScrollPageTo(HtmlPane& pane, int topPixels) {
  pages_.ScrollTo(pane, topPixels);
}

WindowHandle HeadlessPlatform::CreateHostWindow(const std::string& title) {
  return windows_.Open({.owner = Window::Owner::Host, .className = "Host", .title = title});
}

void HeadlessPlatform::CloseWindow(WindowHandle window) {
  const Window* found = windows_.Find(window);
  if (found == nullptr) return;
  if (found->owner != Window::Owner::Form) {
    windows_.Close(window);
  } else if (found->form != nullptr) {
    found->form->RaiseClose();
  }
}

void HeadlessPlatform::RegisterProgram(std::string_view path, Program program) {
  programs_[ProgramName(path)] = std::move(program);
}

TwipsPerPixel HeadlessPlatform::ScreenTwipsPerPixel() const {
  return {options_.twipsPerPixel, options_.twipsPerPixel};
}

PictureRef HeadlessPlatform::LoadPicture(const std::string& path) {
  if (path.empty()) return {};
  std::weak_ptr<const Picture>& shown = pictures_[path];
  if (PictureRef picture = shown.lock()) return picture;
  const std::string file = IsOwnPicture(path) ? local_files::FindIgnoringCase(path) : path;
  PictureRef picture = OpenPicture(local_files::Read(file), path);
  shown = picture;
  return picture;
}

PictureRef HeadlessPlatform::ResourcePicture(std::string_view tag) {
  const auto known = resources_.find(tag);
  if (known != resources_.end()) return known->second;
  const auto pictures = EmbeddedPictures();
  const auto found = std::find_if(pictures.begin(), pictures.end(),
                                  [&](const EmbeddedPicture& each) { return each.name == tag; });
  if (found == pictures.end()) {
    throw AutomationError(error_number::kInvalidPicture, "No such picture: " + std::string(tag));
  }
  const std::string name(tag);
  return resources_.emplace(name, DecodePicture(found->bytes, name)).first->second;
}

void HeadlessPlatform::SavePicture(const Picture& picture, const std::string& path) {
  local_files::Write(path, EncodeBitmap(picture));
}

int HeadlessPlatform::RichTextHeight(const RichContent& content, int widthPixels) {
  return TextHeightPixels(content, widthPixels, PageLoader());
}

void HeadlessPlatform::LoadPage(ControlId pane, const std::string& html, Handler<void()> loaded) {
  pages_.Load(pane, html, loaded);
}

void HeadlessPlatform::DropPage(ControlId pane) { pages_.Drop(pane); }

int HeadlessPlatform::PageContentHeight(ControlId pane, int paneWidthPixels, int marginPixels) {
  const auto known = panes_.find(pane);
  const Control* control = known == panes_.end() ? input_.Find(pane) : known->second;
  const Font font = control == nullptr ? Font{} : control->font();
  return pages_.ContentHeight(pane, paneWidthPixels, marginPixels, font);
}

int HeadlessPlatform::PageScrollTop(ControlId pane) { return pages_.ScrollTop(pane); }

void HeadlessPlatform::StartTimer(ControlId timer, int milliseconds, Handler<void()> tick) {
  timers_.Start(timer, milliseconds, tick);
}

void HeadlessPlatform::StopTimer(ControlId timer) { timers_.Stop(timer); }

WindowHandle HeadlessPlatform::CreateFormWindow(const std::string& title) {
  return windows_.Open({.owner = Window::Owner::Form, .className = "Form", .title = title});
}

void HeadlessPlatform::DestroyFormWindow(WindowHandle window) { windows_.Close(window); }

WindowHandle HeadlessPlatform::SetParent(WindowHandle window, WindowHandle parent) {
  return windows_.SetParent(window, parent);
}

bool HeadlessPlatform::IsWindow(WindowHandle window) { return windows_.Find(window) != nullptr; }

WindowHandle HeadlessPlatform::FindWindow(std::string_view className, std::string_view title) {
  return windows_.Find(className, title);
}

void HeadlessPlatform::BringWindowToTop(WindowHandle window) { windows_.BringToTop(window); }

void HeadlessPlatform::RestoreWindow(WindowHandle window) { windows_.Show(window); }

void HeadlessPlatform::SendClose(WindowHandle window) {
  const Window* found = windows_.Find(window);
  if (found != nullptr && found->owner == Window::Owner::Program) windows_.Close(window);
}

void HeadlessPlatform::Shell(const std::string& path) {
  const auto found = programs_.find(ProgramName(path));
  if (found == programs_.end()) {
    throw AutomationError(error_number::kFileNotFound, "File not found: " + path);
  }
  const Program& program = found->second;
  const Window window{.owner = Window::Owner::Program,
                      .className = program.className,
                      .title = program.title,
                      .visible = false};
  if (program.startupDelay > Milliseconds(0)) {
    clock_.Post(program.startupDelay, [this, window] { windows_.Open(window); });
  } else {
    windows_.Open(window);
  }
}

bool HeadlessPlatform::FileExists(const std::string& path) { return local_files::Exists(path); }

std::vector<std::uint8_t> HeadlessPlatform::ReadFile(const std::string& path) {
  return local_files::Read(path);
}

void HeadlessPlatform::WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  local_files::Write(path, bytes);
}

void HeadlessPlatform::DeleteFiles(const std::string& pattern) { local_files::Delete(pattern); }

void HeadlessPlatform::Present(std::span<Control* const> changed,
                               std::span<const ControlId> removed) {
  ++presentedBatches_;
  lastBatch_ = {{}, {removed.begin(), removed.end()}};
  for (const ControlId id : removed) panes_.erase(id);
  for (Control* control : changed) {
    if (control->kind() == ControlKind::HtmlPane) panes_[control->id()] = control;
    lastBatch_.changed.push_back({control->id(), control->changes()});
    if (control->kind() == ControlKind::Form) windows_.Announce(static_cast<Form&>(*control));
  }
}

}  // namespace zav

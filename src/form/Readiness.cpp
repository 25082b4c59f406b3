#include "form/Readiness.h"

#include <utility>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "host/StaticMessages.h"

namespace zav {
namespace {

constexpr float kHeadingInsetTwips = 15;

template <typename Control>
void Disable(const ControlArray<Control>& elements) {
  for (int i = 1; i <= elements.UpperBound(); ++i) elements[i].SetEnabled(false);
}

}  // namespace

bool Readiness::IsFullyLoaded() {
  bool loaded = true;
  form_.Trap("IsFullyLoaded", [&] {
    loaded = form_.controls.PagesLoaded(static_cast<int>(form_.tables.GroupList.Count()));
    if (loaded && form_.layout.LayoutPending) resize();
  });
  return loaded;
}

void Readiness::resize() {
  form_.Trap("resize", [&] {
    if (form_.layout.ResizePending) {
      MoveForm();
    } else {
      rooms_.layout.SizeControls();
    }
    rooms_.scrolling.SetScrollFlags();
  });
}

void Readiness::MoveForm() {
  LayoutState& layout = form_.layout;
  FormControls& controls = form_.controls;
  controls.form.Move(layout.DisplayRect);
  rooms_.layout.SizeControls();
  if (layout.StatePending) {
    rooms_.restorer.LoadState();
    layout.StatePending = false;
    layout.LayoutPending = true;
    rooms_.layout.SizeControls();
  }
  controls.scrSource.Show();
  controls.pcWorkContainer.Show();
  controls.spSplitter.Show();
  layout.ResizePending = false;
}

void Readiness::moparent_LoadState() {
  if (IsFullyLoaded() && form_.layout.ResizePending) {
    rooms_.restorer.LoadState();
    rooms_.scrolling.SetScrollFlags();
  } else {
    form_.layout.StatePending = true;
  }
}

void Readiness::moParent_ResizeDisplay(const Rect& displayRect) {
  form_.Trap("moParent_ResizeDisplay", [&] {
    LayoutState& layout = form_.layout;
    layout.ResizePending = true;
    form_.controls.form.Show();
    layout.LayoutPending = true;
    layout.DisplayRect = displayRect;
    IsFullyLoaded();
    if (form_.options.ReadOnly) DisableControls();
  });
}

void Readiness::DisableControls() {
  Disable(form_.controls.txtTarget);
  Disable(form_.controls.txtSource);
  Disable(form_.controls.imgSourceCover);
  Disable(form_.controls.imgTargetCover);
}

void Readiness::spSplitter_SplitterEndDrag() {
  form_.Trap("spSplitter_SplitterEndDrag", [&] {
    form_.layout.LayoutPending = true;
    IsFullyLoaded();
    rooms_.sizing.SizeWorkHeading(form_.controls.scrWork.width() - kHeadingInsetTwips);
  });
}

bool Readiness::ViewedAll_Get() {
  bool viewed = false;
  form_.Trap("ViewedAll_Get", [&] {
    if (!IsFullyLoaded()) return;
    if (rooms_.scrolling.ViewedWhole()) {
      viewed = true;
      return;
    }
    AskToScroll();
    rooms_.flash.Start();
  });
  return viewed;
}

void Readiness::AskToScroll() {
  const DataIO& document = form_.Document();
  if (!EqualIgnoringCase(document.GetAttribute("DisplayScrollMsg").View(), "True")) return;
  ShowMessage(form_.Owner(), GetStaticMsg(form_.Owner(), "ScrollItem"), message_style::kNotice);
}

}  // namespace zav

#include "controls/ControlHost.h"

#include <algorithm>
#include <utility>

#include "controls/Control.h"

namespace zav {

ControlId ControlHost::NextId() {
  static ControlId last = 0;
  return ++last;
}

void ControlHost::RunHostCall(Procedure call) {
  const Entry entry(*this);
  call();
}

void ControlHost::RunEvent(Procedure handler) {
  const Entry entry(*this);
  try {
    handler();
  } catch (...) {
    if (depth_ > 1) throw;
  }
}

// Ids grow in the order in which controls come to be, and a container is older than what it holds.
void ControlHost::MarkChanged(Control& control) {
  const auto isOlder = [](const Control* a, const Control* b) { return a->id() < b->id(); };
  changed_.insert(std::upper_bound(changed_.begin(), changed_.end(), &control, isOlder), &control);
}

void ControlHost::Forget(Control& control) {
  std::erase(changed_, &control);
  removed_.push_back(control.id());
}

void ControlHost::Leave() {
  if (depth_ == 1) std::exchange(kept_, {}).clear();
  if (--depth_ > 0 || (changed_.empty() && removed_.empty())) return;
  std::vector<Control*> changed = std::exchange(changed_, {});
  const std::vector<ControlId> removed = std::exchange(removed_, {});
  platform_.presenter.Present(changed, removed);
  for (Control* control : changed) {
    control->changes_ = 0;
    control->Presented();
  }
}

}  // namespace zav

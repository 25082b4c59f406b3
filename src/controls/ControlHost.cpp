#include "controls/ControlHost.h"

#include <algorithm>
#include <utility>

#include "automation/AutomationError.h"
#include "controls/Control.h"

namespace zav {
namespace {

constexpr int kMostNested = 16;
constexpr int kMostPutOff = 100;

[[noreturn]] void RaiseOutOfStack() {
  RaiseError(error_number::kOutOfStackSpace, "Out of stack space");
}

template <typename T>
void MakeRoom(std::vector<T>& list, std::size_t size) {
  if (list.capacity() < size) list.reserve(2 * size);
}

}  // namespace

ControlId ControlHost::NextId() {
  static ControlId last = 0;
  return ++last;
}

void ControlHost::RunHostCall(Procedure call) {
  const std::shared_ptr<void> alive = Enter();
  try {
    call();
    Settle();
  } catch (...) {
    SettleQuietly();
    Leave();
    throw;
  }
  Leave();
}

void ControlHost::RunEvent(Procedure handler) {
  if (busy()) return;
  const std::shared_ptr<void> alive = Enter();
  try {
    handler();
    Settle();
  } catch (...) {
    SettleQuietly();
  }
  Leave();
}

void ControlHost::RunEventInTurn(const Control& control, Handler<void()> handler) {
  if (!busy()) return RunEvent(handler);
  PutOff([this, handler] { RunEvent(handler); }, &control);
}

void ControlHost::PutOff(std::function<void()> entry, const Control* control) {
  if (putOff_ >= kMostPutOff) RaiseOutOfStack();
  waiting_.push_back({std::move(entry), control});
  ++putOff_;
}

std::shared_ptr<void> ControlHost::Enter() {
  if (depth_ >= kMostNested) RaiseOutOfStack();
  std::shared_ptr<void> alive = keeper_ ? keeper_() : nullptr;
  ++depth_;
  return alive;
}

void ControlHost::Leave() noexcept {
  if (depth_ == 1) {
    std::exchange(kept_, {}).clear();
    Present();
  }
  if (--depth_ == 0 && !runsWaiting_) RunWaiting();
}

void ControlHost::RunWaiting() noexcept {
  runsWaiting_ = true;
  while (!waiting_.empty()) {
    const std::function<void()> entry = std::move(waiting_.front().entry);
    waiting_.erase(waiting_.begin());
    try {
      entry();
    } catch (...) {  // who asked for it has gone on long since
    }
  }
  runsWaiting_ = false;
  putOff_ = 0;
}

void ControlHost::Add() {
  MakeRoom(changed_, living_ + 1);
  MakeRoom(removed_, removed_.size() + living_ + 1);
  ++living_;
}

void ControlHost::MarkChanged(Control& control) noexcept {
  control.changedPlace_ = changed_.size();
  changed_.push_back(&control);
}

void ControlHost::Forget(Control& control) noexcept {
  if (control.changes_ != 0) {
    Control* last = changed_.back();
    changed_[control.changedPlace_] = last;
    last->changedPlace_ = control.changedPlace_;
    changed_.pop_back();
  }
  std::erase_if(waiting_, [&](const Waiting& waiting) { return waiting.control == &control; });
  removed_.push_back(control.id());
  --living_;
}

// What settles may change others, which then stand at the list's end.
void ControlHost::Settle() {
  if (depth_ > 1) return;
  // NOLINTNEXTLINE(modernize-loop-convert): the list may grow meanwhile
  for (std::size_t i = 0; i < changed_.size(); ++i) changed_[i]->Settle();
}

void ControlHost::SettleQuietly() noexcept {
  try {
    Settle();
  } catch (...) {  // an error of the entry's own is on its way to the host
  }
}

// Ids grow in the order in which controls come to be, and a container is older than what it holds.
// By way of a heap: the code of std::sort is several times as long.
void ControlHost::SortChanged() noexcept {
  const auto isOlder = [](const Control* a, const Control* b) { return a->id() < b->id(); };
  std::make_heap(changed_.begin(), changed_.end(), isOlder);
  std::sort_heap(changed_.begin(), changed_.end(), isOlder);
  for (std::size_t i = 0; i < changed_.size(); ++i) changed_[i]->changedPlace_ = i;
}

// Without the memory to present it, what changed waits for the next entry.
void ControlHost::Present() noexcept {
  if (changed_.empty() && removed_.empty()) return;
  SortChanged();
  try {
    platform_.presenter.Present(changed_, removed_);
  } catch (...) {
    return;
  }
  for (Control* control : changed_) {
    control->changes_ = 0;
    control->Presented();
  }
  changed_.clear();
  removed_.clear();
}

}  // namespace zav

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
  } catch (...) {
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
  } catch (...) {
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

// Ids grow in the order in which controls come to be, and a container is older than what it holds.
void ControlHost::MarkChanged(Control& control) noexcept {
  const auto isOlder = [](const Control* a, const Control* b) { return a->id() < b->id(); };
  changed_.insert(std::upper_bound(changed_.begin(), changed_.end(), &control, isOlder), &control);
}

void ControlHost::Forget(Control& control) noexcept {
  std::erase(changed_, &control);
  std::erase_if(waiting_, [&](const Waiting& waiting) { return waiting.control == &control; });
  removed_.push_back(control.id());
  --living_;
}

// Without the memory to present it, what changed waits for the next entry.
void ControlHost::Present() noexcept {
  if (changed_.empty() && removed_.empty()) return;
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

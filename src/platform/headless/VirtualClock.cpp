#include "platform/headless/VirtualClock.h"

#include <algorithm>
#include <utility>

#include "automation/AutomationError.h"

namespace zav {
namespace {

constexpr int kMostAtOnce = 10'000;

}  // namespace

VirtualClock::Ticket VirtualClock::Post(Milliseconds delay, std::function<void()> task) {
  const Ticket ticket{now_ + std::max(delay, Milliseconds(0)), ++lastNumber_};
  tasks_.emplace(ticket, std::move(task));
  return ticket;
}

void VirtualClock::Advance(Milliseconds time) {
  const Milliseconds end = now_ + std::max(time, Milliseconds(0));
  int atOnce = 0;
  while (!tasks_.empty() && tasks_.begin()->first.due <= end) {
    const auto task = tasks_.extract(tasks_.begin());
    const Milliseconds due = task.key().due;
    atOnce = due > now_ ? 1 : atOnce + 1;
    if (atOnce > kMostAtOnce) {
      throw AutomationError(error_number::kInternal, "Events follow one another without end");
    }
    now_ = due;
    task.mapped()();
  }
  now_ = std::max(now_, end);
}

void VirtualTimers::Start(ControlId timer, int milliseconds, std::function<void()> tick) {
  Stop(timer);
  const VirtualClock::Milliseconds interval(std::max(milliseconds, 1));
  timers_.emplace(timer, Timer{interval, std::move(tick), {}});
  Arm(timer);
}

void VirtualTimers::Stop(ControlId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  clock_.Cancel(found->second.next);
  timers_.erase(found);
}

void VirtualTimers::Arm(ControlId id) {
  Timer& timer = timers_.at(id);
  timer.next = clock_.Post(timer.interval, [this, id] { Tick(id); });
}

void VirtualTimers::Tick(ControlId id) {
  const std::function<void()> tick = timers_.at(id).tick;  // a copy: the tick may stop its timer
  Arm(id);
  tick();
}

}  // namespace zav

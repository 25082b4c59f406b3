// Time that stands still until it is moved by hand, and what is to happen in it.
//
// Things run in the order in which they are due; of things due at the same moment the one that was
// posted first. What is posted with no delay is due at once, but runs only when the clock is moved
// next, if only by nothing.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>

#include "platform/Services.h"

namespace zav {

class VirtualClock {
 public:
  using Milliseconds = std::chrono::milliseconds;

  // Names something posted; the default names nothing.
  struct Ticket {
    Milliseconds due{0};
    std::uint64_t number = 0;
    auto operator<=>(const Ticket&) const = default;
  };

  [[nodiscard]] Milliseconds Now() const { return now_; }

  Ticket Post(Milliseconds delay, std::function<void()> task);
  // What has run already, or never was, is passed over.
  void Cancel(const Ticket& ticket) { tasks_.erase(ticket); }

  // Runs what falls due, what comes to be posted meanwhile included. Raises 51 when one moment
  // brings forth things without end. May be called from a task.
  void Advance(Milliseconds time);

 private:
  Milliseconds now_{0};
  std::uint64_t lastNumber_ = 0;
  std::map<Ticket, std::function<void()>> tasks_;
};

// Timers that tick on a virtual clock until they are stopped. The clock outlives them.
class VirtualTimers {
 public:
  explicit VirtualTimers(VirtualClock& clock) : clock_(clock) {}

  // Starting a running timer restarts it. An interval below 1 counts as 1.
  void Start(ControlId timer, int milliseconds, std::function<void()> tick);
  void Stop(ControlId timer);

 private:
  struct Timer {
    VirtualClock::Milliseconds interval;
    std::function<void()> tick;
    VirtualClock::Ticket next;
  };

  void Arm(ControlId id);
  void Tick(ControlId id);

  VirtualClock& clock_;
  std::map<ControlId, Timer> timers_;
};

}  // namespace zav

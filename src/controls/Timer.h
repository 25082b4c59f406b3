// Ticks at an interval while it is enabled.
#pragma once

#include "automation/Handler.h"
#include "controls/ControlHost.h"

namespace zav {

class Timer {
 public:
  Timer(ControlHost& host, int intervalMilliseconds)
      : host_(host), id_(ControlHost::NextId()), interval_(intervalMilliseconds) {}
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer() { SetEnabled(false); }

  [[nodiscard]] bool enabled() const { return enabled_; }
  // Enabling a timer that runs changes nothing.
  void SetEnabled(bool enabled);

  Handler<void()> onTimer;

 private:
  ControlHost& host_;
  ControlId id_;
  int interval_;
  bool enabled_ = false;
};

}  // namespace zav

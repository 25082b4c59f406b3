// Shows what changed. Called once at the end of every entry from outside (a host's call, a
// control's event, a timer's tick), however much changed in it.
#pragma once

#include <span>

#include "platform/Services.h"

namespace zav {

class Control;

class Presenter {
 public:
  Presenter() = default;
  Presenter(const Presenter&) = delete;
  Presenter& operator=(const Presenter&) = delete;
  virtual ~Presenter() = default;

  // Every control that changed since the last call, once each, containers before what they hold;
  // Control::Changes tells what about it changed. removed: controls that are gone.
  virtual void Present(std::span<Control* const> changed, std::span<const ControlId> removed) = 0;
};

// The window system of one component: both objects outlive it.
struct Platform {
  Services& services;
  Presenter& presenter;
};

}  // namespace zav

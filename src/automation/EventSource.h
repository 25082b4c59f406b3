// The outgoing side of an automation object: sinks that are told of its events.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "automation/Variant.h"

namespace zav {

class EventSink {
 public:
  virtual ~EventSink() = default;
  // Arguments are passed by reference. An exception reaches whoever raised the event.
  virtual void OnEvent(std::int32_t dispatchId, std::span<Variant> arguments) = 0;
};

class EventSource {
 public:
  // The sink is not owned; it must be taken off before it goes.
  void Advise(EventSink& sink);
  void Unadvise(EventSink& sink);
  // Sinks are told in the order in which they were advised, before Raise returns. A sink may
  // take itself or another off while it is being told.
  void Raise(std::int32_t dispatchId, std::span<Variant> arguments);

 private:
  std::vector<EventSink*> sinks_;
};

}  // namespace zav

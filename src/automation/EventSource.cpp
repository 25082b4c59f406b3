#include "automation/EventSource.h"

#include <algorithm>

namespace zav {

void EventSource::Advise(EventSink& sink) { sinks_.push_back(&sink); }

void EventSource::Unadvise(EventSink& sink) { std::erase(sinks_, &sink); }

void EventSource::Raise(std::int32_t dispatchId, std::span<Variant> arguments) {
  const std::vector<EventSink*> told = sinks_;
  for (EventSink* sink : told) {
    if (std::find(sinks_.begin(), sinks_.end(), sink) != sinks_.end()) {
      sink->OnEvent(dispatchId, arguments);
    }
  }
}

}  // namespace zav

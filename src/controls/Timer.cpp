#include "controls/Timer.h"

namespace zav {

void Timer::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  if (!enabled) {
    host_.services().StopTimer(id_);
    return;
  }
  host_.services().StartTimer(id_, interval_, [this] {
    if (onTimer) host_.RunEvent([this] { onTimer(); });
  });
}

}  // namespace zav

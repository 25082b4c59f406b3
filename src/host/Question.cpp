#include "host/Question.h"

#include <utility>

namespace zav {

void Question::Ask(ItemOwner& owner, const std::string& text, std::int16_t style,
                   const std::function<void(std::int16_t)>& answered) {
  if (open_) return;
  open_ = true;
  controlHost_.SetTakesInput(false);
  std::int16_t answer = 0;
  try {
    answer = ShowMessage(owner, text, style);
  } catch (...) {
    Drop();
    throw;
  }
  const bool dropped = !std::exchange(open_, false);
  controlHost_.SetTakesInput(true);
  if (!dropped) answered(answer);
}

void Question::Drop() {
  open_ = false;
  controlHost_.SetTakesInput(true);
}

}  // namespace zav

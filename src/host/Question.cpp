#include "host/Question.h"

#include <utility>

namespace zav {

void Question::Ask(ItemOwner& owner, const std::string& text, std::int16_t style,
                   Answered answered) {
  if (open_) return;
  open_ = true;
  controlHost_.SetTakesInput(false);
  MessageAnswer answer;
  try {
    answer = AskMessage(owner, text, style);
  } catch (...) {
    Close();
    throw;
  }
  const bool dropped = !open_;  // while the host was asking
  if (dropped) {
    if (answer.pending) answer.pending->Drop();
  } else if (answer.pending) {
    pending_ = answer.pending;
    answered_ = answered;
    pending_->Await([this](std::int16_t given) {
      controlHost_.RunEvent([&] {
        Close();
        answered_(given);
      });
    });
  } else {
    Close();
    answered(answer.value);
  }
}

void Question::Drop() {
  const auto pending = std::move(pending_);
  Close();
  if (pending) pending->Drop();
}

void Question::Close() {
  pending_.reset();
  if (std::exchange(open_, false)) controlHost_.SetTakesInput(true);
}

}  // namespace zav

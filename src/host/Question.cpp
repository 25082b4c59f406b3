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
    pending_->Await([this](std::int16_t given) { Hear(given); });
  } else {
    Close();
    answered(answer.value);
  }
}

// A host may answer in the middle of a call that is made to it: before ShowMessage ends, or later.
void Question::Hear(std::int16_t given) {
  if (controlHost_.busy()) {
    controlHost_.PutOff([pending = pending_] { pending->Tell(); });
    return;
  }
  controlHost_.RunEvent([&] {
    Close();
    answered_(given);
  });
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

// A question to the candidate, through the host.
//
// While it is open the form takes no input. What follows the answer is handed over with the
// question, because a host may answer at once or, with a PendingAnswer, later; a question that is
// dropped meanwhile, since the item was hidden, freed or given another state, is never answered.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/PendingAnswer.h"
#include "host/clsErrorDisplay.h"

namespace zav {

class Question {
 public:
  using Answered = PendingAnswer::Answered;

  explicit Question(ControlHost& controlHost) : controlHost_(controlHost) {}
  Question(const Question&) = delete;
  Question& operator=(const Question&) = delete;
  ~Question() { Drop(); }

  // Raises what ShowMessage raises. One question at a time: asking while one is open does nothing.
  void Ask(ItemOwner& owner, const std::string& text, std::int16_t style, Answered answered);
  void Drop();

 private:
  void Hear(std::int16_t given);
  void Close();

  ControlHost& controlHost_;
  bool open_ = false;
  std::shared_ptr<PendingAnswer> pending_;  // while the host has not answered yet
  Answered answered_;
};

}  // namespace zav

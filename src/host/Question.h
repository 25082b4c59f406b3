// A question to the candidate, through the host.
//
// While it is open the form takes no input. What follows the answer is handed over with the
// question, because a host may answer at once or later; a question that is dropped meanwhile,
// since the item was hidden, freed or given another state, is never answered.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "host/clsErrorDisplay.h"

namespace zav {

class Question {
 public:
  explicit Question(ControlHost& controlHost) : controlHost_(controlHost) {}

  // Raises what ShowMessage raises. One question at a time: asking while one is open does nothing.
  void Ask(ItemOwner& owner, const std::string& text, std::int16_t style,
           const std::function<void(std::int16_t answer)>& answered);
  void Drop();

 private:
  ControlHost& controlHost_;
  bool open_ = false;
};

}  // namespace zav

// Keeps the candidate's work in the state section of the item document, as it changes.
#pragma once

#include <string>
#include <string_view>

#include "form/FormCore.h"

namespace zav {

class StateRecorder {
 public:
  explicit StateRecorder(FormCore& form) : form_(form) {}

  // Appends a response. A state that the host set need not have room for one, or be there at all:
  // what is missing is made. Raises 91 where that cannot be.
  void WriteStateResponse(std::string_view response);

  // Removes the first response whose text contains answerId, which is not empty. Reports under
  // "RemoveStateResponse".
  void RemoveStateResponse(std::string_view answerId);

  // Writes a view value: into its element where there is one, else into a new one. Does nothing
  // while a state is waiting to be loaded, or without a state section. Reports under
  // "WriteStateValue".
  void WriteStateValue(std::string_view name, std::string_view value);

 private:
  FormCore& form_;
};

}  // namespace zav

// Brings a stored state back onto the screen.
#pragma once

#include <string>

#include "form/Panes.h"
#include "form/interaction/Placement.h"

namespace zav {

class StateRestorer {
 public:
  StateRestorer(FormCore& form, Panes& panes, Placement& placement)
      : form_(form), panes_(panes), placement_(placement) {}

  // Empties what the screen shows, places every response of the state section, and takes over its
  // view values. Reports under "LoadState".
  void LoadState();

  // Places the item that a response names, as the candidate would have. Reports under "SetAnswer".
  void SetAnswer(const std::string& response);

 private:
  void ReadScrollValues();
  void RestorePanes();
  // The text of a view value of the state section; empty variant when there is none.
  [[nodiscard]] Variant ViewValue(std::string_view name) const;

  FormCore& form_;
  Panes& panes_;
  Placement& placement_;
};

}  // namespace zav

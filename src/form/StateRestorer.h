// Brings a stored state back onto the screen.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "document/DocumentValue.h"
#include "form/Panes.h"
#include "form/interaction/Placement.h"

namespace zav {

class StateRestorer {
 public:
  StateRestorer(FormCore& form, Panes& panes, Placement& placement)
      : form_(form), panes_(panes), placement_(placement) {}

  // Empties what the screen shows, places every response of the state section, and takes over its
  // view values. Reports under "LoadState".
  //
  // What cannot be restored is found out and reported before the screen is emptied: a response that
  // names nothing, under "SetAnswer", and a view value that does not convert, which then counts as
  // none. Everything else is restored.
  void LoadState();

  // Places the item that a response names, as the candidate would have. Reports under "SetAnswer".
  void SetAnswer(const DocumentValue& response);

 private:
  // A response that names something: indices of the controls.
  struct NamedPlacement {
    int source;
    int target;
  };
  struct StoredState {
    std::vector<NamedPlacement> placements;
    std::optional<bool> itemStemScroll;
    std::optional<std::int32_t> workAreaScroll;
    std::optional<std::int32_t> sourceAreaScroll;
    std::optional<float> itemStemHeight;
    std::optional<float> sourceAreaSize;
  };

  StoredState ReadState();
  std::vector<NamedPlacement> ReadPlacements();
  // A view value of the state section; none when it is missing or does not convert.
  template <typename Value>
  std::optional<Value> ReadView(std::string_view name, Value (*convert)(const DocumentValue&));
  [[nodiscard]] NamedPlacement Find(const DocumentValue& response) const;
  void Place(const NamedPlacement& placement);
  void TakeScrollValues(const StoredState& state);
  void RestorePanes(const StoredState& state);

  FormCore& form_;
  Panes& panes_;
  Placement& placement_;
};

}  // namespace zav

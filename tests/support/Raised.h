// What a piece of code raised, for tests of failures.
#pragma once

#include <cstdint>
#include <string>

#include "automation/AutomationError.h"

namespace zav {

struct Raised {
  std::int32_t number = 0;  // 0: nothing was raised
  std::string description;
};

template <typename Action>
Raised Catch(Action action) {
  try {
    action();
    return {};
  } catch (const AutomationError& error) {
    return {error.Number(), error.Description()};
  }
}

}  // namespace zav

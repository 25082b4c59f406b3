// Keys by their names on a keyboard.
#pragma once

#include <optional>
#include <string_view>

#include "controls/Control.h"

namespace zav {

// "Delete", "Enter", "Escape", "Space", "Tab", "Left", "Up", "Right", "Down", a letter or a digit,
// with "Alt+" in front where that key is held. Nothing for other names.
std::optional<KeyEvent> ReadKey(std::string_view name);

}  // namespace zav

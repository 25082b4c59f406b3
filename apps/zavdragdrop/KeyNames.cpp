#include "zavdragdrop/KeyNames.h"

#include <array>
#include <string>

#include "automation/Text.h"

namespace zav {
namespace {

struct NamedKey {
  std::string_view name;
  int keyCode;
};

constexpr std::array kKeys = {
    NamedKey{"Tab", 9},    NamedKey{"Enter", 13}, NamedKey{"Escape", 27},
    NamedKey{"Space", 32}, NamedKey{"Left", 37},  NamedKey{"Up", 38},
    NamedKey{"Right", 39}, NamedKey{"Down", 40},  NamedKey{"Delete", 46},
};

constexpr std::string_view kAlt = "Alt+";

bool IsLetterOrDigit(char key) { return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'); }

}  // namespace

std::optional<KeyEvent> ReadKey(std::string_view name) {
  KeyEvent event;
  event.alt = name.starts_with(kAlt);
  if (event.alt) name.remove_prefix(kAlt.size());
  for (const NamedKey& key : kKeys) {
    if (key.name == name) event.keyCode = key.keyCode;
  }
  const std::string upper = UpperCase(name);
  if (upper.size() == 1 && IsLetterOrDigit(upper[0]))
    event.keyCode = static_cast<unsigned char>(upper[0]);
  if (event.keyCode == 0) return std::nullopt;
  return event;
}

}  // namespace zav

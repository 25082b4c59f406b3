// The texts of the item's own chrome, in the candidate's language. They were merged into the item
// document as its element Static when the item was initialised.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/ItemOwner.h"

namespace zav {

// The message under key in that section of Static; in all of Static when section is empty or not
// there. With bReplace, the marker "%" becomes nValue. A key that is not found is reported under
// "GetStaticMsg", and the text is empty. The document's cursor stays where it was.
std::string GetStaticMsg(ItemOwner& owner, std::string_view key, bool bReplace = false,
                         std::int16_t nValue = 0, std::string_view section = {});

// The caption of a button.
inline std::string ButtonText(ItemOwner& owner, std::string_view key) {
  return GetStaticMsg(owner, key, false, 0, "ButtonText");
}

}  // namespace zav

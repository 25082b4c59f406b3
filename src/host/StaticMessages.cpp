#include "host/StaticMessages.h"

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "host/clsErrorDisplay.h"

namespace zav {
namespace {

std::string FindMessage(DataIO& document, std::string_view key, std::string_view section) {
  const CursorScope keep(document);
  document.SetFromRoot(true);
  if (!document.FindNode("Static")) {
    RaiseError(error_number::kComponent, "Static node not found, Static");
  }
  document.SetFromRoot(false);
  if (!section.empty()) document.FindNode(section);
  if (!document.FindNode(key)) {
    RaiseError(error_number::kComponent, {"Static node not found, ", key});
  }
  return ToText(document.GetText());
}

}  // namespace

std::string GetStaticMsg(ItemOwner& owner, std::string_view key, bool bReplace, std::int16_t nValue,
                         std::string_view section) {
  std::string message;
  clsErrorDisplay& reporter = *owner.Module().gErrorDisplay;
  Trap(reporter, "GetStaticMsg", [&] {
    message = FindMessage(owner.DataIO(), key, section);
    if (!bReplace) return;
    Trap(reporter, "String_Replace", [&] { String_Replace(message, "%", ToText(nValue)); });
  });
  return message;
}

}  // namespace zav

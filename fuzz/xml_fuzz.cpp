// Any bytes either raise an error or load; what loads is written as XML that loads to the same.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "document/DataIO.h"

namespace {

std::string TextOf(const zav::DataIO& document) { return zav::ToText(document.GetText()); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view source(reinterpret_cast<const char*>(data), size);
  zav::DataIO document;
  zav::DataIO again;
  try {
    document.LoadXml(source);
  } catch (const zav::AutomationError&) {
    return 0;
  }
  const std::string xml = document.GetXml();
  again.LoadXml(xml);
  if (again.GetXml() != xml || TextOf(again) != TextOf(document)) std::abort();
  again.LoadXml("<Item><State/></Item>");
  if (!again.InsertXml("State", xml)) std::abort();
  again.RemoveNode("State");
  if (again.GetXml() != "<Item/>") std::abort();
  return 0;
}

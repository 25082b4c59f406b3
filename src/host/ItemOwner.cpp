#include "host/ItemOwner.h"

#include "automation/Conversions.h"

namespace zav {

std::string GetGraphicsPath(const ObjectRef& hostObject, const std::string& fileName) {
  return ToText(Require(hostObject).Call("GetGraphicsPath", fileName));
}

}  // namespace zav

#include "automation/Object.h"

#include "automation/AutomationError.h"

namespace zav {

Object& Require(const ObjectRef& ref) {
  if (!ref) throw AutomationError(error_number::kObjectNotSet, "Object variable not set");
  return *ref;
}

}  // namespace zav

#include "automation/Object.h"

#include "automation/AutomationError.h"

namespace zav {

void RaiseNoSuchMember(std::string_view name) {
  RaiseError(error_number::kNoSuchMember, {"Object does not support this member: ", name});
}

Object& Require(const ObjectRef& ref) {
  if (!ref) RaiseError(error_number::kObjectNotSet, "Object variable not set");
  return *ref;
}

}  // namespace zav

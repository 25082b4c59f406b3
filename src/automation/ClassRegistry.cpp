#include "automation/ClassRegistry.h"

#include <utility>

#include "automation/AutomationError.h"
#include "automation/Text.h"

namespace zav {

void ClassRegistry::Register(std::string_view progId, Factory factory) {
  factories_[UpperCase(progId)] = std::move(factory);
}

bool ClassRegistry::Has(std::string_view progId) const {
  return factories_.count(UpperCase(progId)) != 0;
}

ObjectRef ClassRegistry::Create(std::string_view progId) const {
  const auto found = factories_.find(UpperCase(progId));
  if (found == factories_.end()) {
    RaiseError(error_number::kCannotCreateObject, {"Cannot create object: ", progId});
  }
  return found->second();
}

}  // namespace zav

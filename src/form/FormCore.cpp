#include "form/FormCore.h"

namespace zav {

ItemOwner& FormCore::Owner() const {
  if (owner_ == nullptr) {
    throw AutomationError(error_number::kObjectNotSet, "Object variable not set");
  }
  return *owner_;
}

}  // namespace zav

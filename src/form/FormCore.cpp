#include "form/FormCore.h"

namespace zav {

ItemOwner& FormCore::Owner() const {
  if (owner_ == nullptr) {
    RaiseError(error_number::kObjectNotSet, "Object variable not set");
  }
  return *owner_;
}

void FormCore::Trap(const char* routine, Procedure procedure) {
  zav::Trap(errorDisplay_, routine, procedure);
}

}  // namespace zav

// Creates late-bound objects by the name under which their class was registered.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "automation/Object.h"

namespace zav {

class ClassRegistry {
 public:
  using Factory = std::function<ObjectRef()>;

  // A later registration under the same ProgID replaces the earlier one.
  void Register(std::string_view progId, Factory factory);
  [[nodiscard]] bool Has(std::string_view progId) const;
  // Raises 429 for a ProgID that nobody registered. ProgIDs are compared without regard to case.
  [[nodiscard]] ObjectRef Create(std::string_view progId) const;

 private:
  std::map<std::string, Factory> factories_;  // by upper-cased ProgID
};

}  // namespace zav

// Late binding: an object whose members are called by name.
#pragma once

#include <span>
#include <string_view>
#include <utility>

#include "automation/Variant.h"

namespace zav {

enum class InvokeKind { Call, Put };  // Call: a method, or the reading of a property

class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  // Calls the member of that name; names are compared without regard to case. Arguments are
  // passed by reference: what the member stores in one of them is seen by the caller.
  // Raises 438 for a name that the object does not have.
  virtual Variant Invoke(std::string_view name, std::span<Variant> arguments,
                         InvokeKind kind = InvokeKind::Call) = 0;

  // Calls with values; what the member does to them is dropped.
  template <typename... Values>
  Variant Call(std::string_view name, Values&&... values) {
    if constexpr (sizeof...(Values) == 0) {
      return Invoke(name, {});
    } else {
      Variant arguments[] = {Variant(std::forward<Values>(values))...};
      return Invoke(name, arguments);
    }
  }

  void Put(std::string_view name, Variant value) { Invoke(name, {&value, 1}, InvokeKind::Put); }
};

// Raises 438 for a member that an object does not have.
[[noreturn]] void RaiseNoSuchMember(std::string_view name);

// The object that ref points to. Raises 91 ("Object variable not set") for nothing.
Object& Require(const ObjectRef& ref);

}  // namespace zav

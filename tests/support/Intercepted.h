// A host object whose calls a test hears first, and answers itself where it wants to.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "hosting/ReferenceHost.h"

namespace zav {

class Intercepted : public Object {
 public:
  // May raise; without an answer the object itself is called.
  using Listener =
      std::function<std::optional<Variant>(std::string_view name, std::span<Variant> arguments)>;

  Intercepted(ObjectRef object, Listener listener)
      : object_(std::move(object)), listener_(std::move(listener)) {}

  Variant Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind kind) override {
    const std::optional<Variant> answer = listener_(name, arguments);
    return answer ? *answer : object_->Invoke(name, arguments, kind);
  }

 private:
  ObjectRef object_;
  Listener listener_;
};

// Both host objects.
inline HostOptions Intercept(const Intercepted::Listener& listener, HostOptions options = {}) {
  options.wrapHostObject = [listener](std::string_view, ObjectRef object) -> ObjectRef {
    return std::make_shared<Intercepted>(std::move(object), listener);
  };
  return options;
}

}  // namespace zav

// What is to be done when something happens: a small callable that is kept and copied, or nothing.
//
// It holds as much as a lambda captures by a few references, pointers or numbers, in place, so that
// it costs no more than a pointer to a function beside them. Callables that own something (a text,
// a shared object) are for std::function.
#pragma once

#include <array>
#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

namespace zav {

template <typename Signature>
class Handler;

template <typename Result, typename... Arguments>
class Handler<Result(Arguments...)> {
 public:
  Handler() = default;

  template <typename F>
  requires(!std::is_same_v<F, Handler>)
      Handler(F callable)  // NOLINT(google-explicit-constructor): lambdas are assigned
      : call_([](const void* called, Arguments... arguments) -> Result {
          return (*static_cast<const F*>(called))(std::forward<Arguments>(arguments)...);
        }) {
    static_assert(std::is_trivially_copyable_v<F>, "use std::function for what owns something");
    static_assert(sizeof(F) <= sizeof(captured_) && alignof(F) <= alignof(void*));
    new (captured_.data()) F(callable);
  }

  explicit operator bool() const { return call_ != nullptr; }

  // There must be something to be done.
  Result operator()(Arguments... arguments) const {
    return call_(captured_.data(), std::forward<Arguments>(arguments)...);
  }

 private:
  static constexpr std::size_t kMostPointers = 3;

  alignas(void*) std::array<std::byte, kMostPointers * sizeof(void*)> captured_{};
  Result (*call_)(const void*, Arguments...) = nullptr;
};

}  // namespace zav

// A callable that somebody else owns, passed down to be called while the call lasts: what
// std::function is for callables that are kept. It takes neither memory nor templates to pass one
// on, so that what calls it can be a plain function.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace zav {

template <typename Signature>
class FunctionRef;

template <typename Result, typename... Arguments>
class FunctionRef<Result(Arguments...)> {
 public:
  // The callable must outlive the reference.
  // It is implicit because arguments are lambdas.
  template <typename F>
  // NOLINTNEXTLINE(google-explicit-constructor,bugprone-forwarding-reference-overload)
  requires(!std::is_same_v<std::remove_cvref_t<F>, FunctionRef>) FunctionRef(F&& callable)
      : callable_(const_cast<void*>(static_cast<const void*>(std::addressof(callable)))),
        call_([](void* called, Arguments... arguments) -> Result {
          return (*static_cast<std::remove_reference_t<F>*>(called))(
              std::forward<Arguments>(arguments)...);
        }) {}

  Result operator()(Arguments... arguments) const {
    return call_(callable_, std::forward<Arguments>(arguments)...);
  }

 private:
  void* callable_;
  Result (*call_)(void*, Arguments...);
};

using Procedure = FunctionRef<void()>;

}  // namespace zav

// A host object that works, but for one of its calls.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "automation/AutomationError.h"
#include "automation/Object.h"

namespace zav {

// Counts calls, of several objects if they share it, and says which one fails.
struct CallFault {
  int failingCall = 0;  // 1: the first; 0: none
  int callCount = 0;    // so far; below failingCall: it was never reached
};

class FaultyObject : public Object {
 public:
  FaultyObject(ObjectRef object, std::shared_ptr<CallFault> fault)
      : object_(std::move(object)), fault_(std::move(fault)) {}

  Variant Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind kind) override {
    if (++fault_->callCount == fault_->failingCall) {
      throw AutomationError(1000, "The host cannot do this", "host");
    }
    return object_->Invoke(name, arguments, kind);
  }

 private:
  ObjectRef object_;
  std::shared_ptr<CallFault> fault_;
};

}  // namespace zav

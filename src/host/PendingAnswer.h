// What a host's ShowMessage gives where it answers a question later: an object that stands for the
// answer to come.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "automation/AutomationError.h"
#include "automation/Handler.h"
#include "automation/Object.h"

namespace zav {

class PendingAnswer : public Object {
 public:
  using Answered = Handler<void(std::int16_t answer)>;

  // Who asked waits for the answer.
  void Await(Answered answered) { answered_ = answered; }
  // Nobody waits any more: an answer that still comes is not heard.
  void Drop() {
    answered_ = {};
    if (onDropped) onDropped();
  }
  // The host answers. Only the first answer counts.
  void Answer(std::int16_t answer) {
    if (const Answered answered = std::exchange(answered_, {})) answered(answer);
  }

  Handler<void()> onDropped;

  Variant Invoke(std::string_view name, std::span<Variant> /*arguments*/,
                 InvokeKind /*kind*/) override {
    RaiseNoSuchMember(name);
  }

 private:
  Answered answered_;
};

}  // namespace zav

// What a host's ShowMessage gives where it answers a question later: an object that stands for the
// answer to come.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "automation/AutomationError.h"
#include "automation/Handler.h"
#include "automation/Object.h"

namespace zav {

class PendingAnswer : public Object {
 public:
  using Answered = Handler<void(std::int16_t answer)>;

  // Who asked waits for the answer, and hears it at once where it was given already.
  void Await(Answered answered) {
    answered_ = answered;
    Tell();
  }
  // Nobody waits any more: an answer that still comes is not heard.
  void Drop() {
    answered_ = {};
    if (onDropped) onDropped();
  }
  // The host answers. Only the first answer counts.
  void Answer(std::int16_t answer) {
    if (given_) return;
    given_ = answer;
    Tell();
  }
  // Says the answer, where there is one, to whoever waits; again, when that could not hear it
  // before.
  void Tell() const {
    const Answered answered = answered_;  // which may drop this one
    if (given_ && answered) answered(*given_);
  }

  Handler<void()> onDropped;

  Variant Invoke(std::string_view name, std::span<Variant> /*arguments*/,
                 InvokeKind /*kind*/) override {
    RaiseNoSuchMember(name);
  }

 private:
  Answered answered_;
  std::optional<std::int16_t> given_;
};

}  // namespace zav

// Shows for a short while where there is still something to scroll to.
#pragma once

#include "form/FormCore.h"

namespace zav {

class FlashTimer {
 public:
  explicit FlashTimer(FormCore& form) : form_(form) {}

  void Start() { form_.controls.tmFlash.SetEnabled(true); }
  // Ends the flashing at once.
  void Stop();
  // Reports under "tmFlash_Timer".
  void tmFlash_Timer();

 private:
  void ShowPrompts();

  FormCore& form_;
  int FlashCount_ = 0;
};

}  // namespace zav

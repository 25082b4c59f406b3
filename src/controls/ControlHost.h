// What all controls of one component share: the platform under them, the list of those that
// changed, and the gate through which calls from outside come in.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "automation/FunctionRef.h"
#include "platform/Presenter.h"
#include "platform/Services.h"

namespace zav {

class Control;

class ControlHost {
 public:
  explicit ControlHost(Platform platform) : platform_(platform) {}
  ControlHost(const ControlHost&) = delete;
  ControlHost& operator=(const ControlHost&) = delete;

  [[nodiscard]] Services& services() const { return platform_.services; }
  [[nodiscard]] TwipsPerPixel twipsPerPixel() const {
    return platform_.services.ScreenTwipsPerPixel();
  }

  // Runs a call of the host's: what changed is shown when the outermost call ends, also when it
  // ends with an error, which the host gets.
  void RunHostCall(Procedure call);

  // Runs a control event. An error that reaches this far could not even be reported: it ends here,
  // unless a host's call is on the stack, which then gets it.
  void RunEvent(Procedure handler);

  // While it is off, nothing that the candidate does reaches the controls.
  [[nodiscard]] bool takesInput() const { return takesInput_; }
  void SetTakesInput(bool takes) { takesInput_ = takes; }

  // Keeps something that is being let go until no call from outside is on the stack: the call that
  // lets a form go may have come from one of its own controls.
  void KeepUntilIdle(std::shared_ptr<void> kept) { kept_.push_back(std::move(kept)); }

 private:
  friend class Control;
  friend class Timer;

  class Entry {
   public:
    explicit Entry(ControlHost& host) : host_(host) { ++host_.depth_; }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;
    ~Entry() { host_.Leave(); }

   private:
    ControlHost& host_;
  };

  // Several components may stand on one platform, which tells controls apart by id.
  static ControlId NextId();
  void MarkChanged(Control& control);
  void Forget(Control& control);
  void Leave();

  Platform platform_;
  int depth_ = 0;
  bool takesInput_ = true;
  std::vector<Control*> changed_;   // by id; each once
  std::vector<ControlId> removed_;  // presented before and gone since
  std::vector<std::shared_ptr<void>> kept_;
};

}  // namespace zav

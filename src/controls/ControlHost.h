// What all controls of one component share: the platform under them, the list of those that
// changed, and the gate through which calls from outside come in.
//
// Every call of the host's and every event is an entry. What is on the stack stays alive until the
// outermost entry ends: a host that is called in the middle of one may do what it likes, and what
// it asks for that would change the item is put off until then (PutOff). Nobody else counts calls
// or keeps anything alive by hand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "automation/FunctionRef.h"
#include "automation/Handler.h"
#include "platform/Presenter.h"
#include "platform/Services.h"

namespace zav {

class Control;

class ControlHost {
 public:
  // What an entry holds until it ends; called at the beginning of each. May give nothing.
  using Keeper = Handler<std::shared_ptr<void>()>;

  explicit ControlHost(Platform platform, Keeper keeper = {})
      : platform_(platform), keeper_(keeper) {}
  ControlHost(const ControlHost&) = delete;
  ControlHost& operator=(const ControlHost&) = delete;

  [[nodiscard]] Services& services() const { return platform_.services; }
  [[nodiscard]] TwipsPerPixel twipsPerPixel() const {
    return platform_.services.ScreenTwipsPerPixel();
  }

  // Runs a call of the host's: what changed is shown when the outermost call ends, also when it
  // ends with an error, which the host gets. Raises 28 ("Out of stack space") for a host that calls
  // in the middle of a call that it made in the middle of a call, and so on.
  void RunHostCall(Procedure call);

  // Runs a control event. An error that reaches this far could not even be reported: it ends here.
  // In the middle of another entry the candidate is not heard: the host is busy, with a message box
  // perhaps.
  void RunEvent(Procedure handler);
  // The same for an event that must not be missed: it is put off. Dropped when the control goes.
  void RunEventInTurn(const Control& control, Handler<void()> handler);

  // Whether an entry is on the stack.
  [[nodiscard]] bool busy() const { return depth_ > 0; }
  // Runs it when the outermost entry has ended, after whatever was put off before; what it raises
  // then is dropped. Raises 28 when an entry and what followed it put off more and more.
  void PutOff(std::function<void()> entry) { PutOff(std::move(entry), nullptr); }

  // While it is off, nothing that the candidate does reaches the controls.
  [[nodiscard]] bool takesInput() const { return takesInput_; }
  void SetTakesInput(bool takes) { takesInput_ = takes; }

  // Keeps something that is being let go until no entry is on the stack: the event that lets a
  // window go may have come from one of its own controls.
  void KeepUntilIdle(std::shared_ptr<void> kept) { kept_.push_back(std::move(kept)); }

 private:
  friend class Control;
  friend class Timer;

  // Several components may stand on one platform, which tells controls apart by id.
  static ControlId NextId();
  // Makes room for one more control, so that nothing about it fails later.
  void Add();
  void MarkChanged(Control& control) noexcept;
  void Forget(Control& control) noexcept;

  struct Waiting {
    std::function<void()> entry;
    const Control* control;  // goes with it; null for an entry that no control raised
  };

  void PutOff(std::function<void()> entry, const Control* control);
  [[nodiscard]] std::shared_ptr<void> Enter();
  // At the end of the outermost entry; raises what a control raises.
  void Settle();
  void SettleQuietly() noexcept;
  void Leave() noexcept;
  void SortChanged() noexcept;
  void Present() noexcept;
  void RunWaiting() noexcept;

  Platform platform_;
  Keeper keeper_;
  int depth_ = 0;
  bool takesInput_ = true;
  std::size_t living_ = 0;          // controls; the two lists have room for all of them
  std::vector<Control*> changed_;   // each once, in any order until they are presented
  std::vector<ControlId> removed_;  // presented before and gone since
  std::vector<std::shared_ptr<void>> kept_;
  std::vector<Waiting> waiting_;
  int putOff_ = 0;  // since the outermost entry began
  bool runsWaiting_ = false;
};

}  // namespace zav

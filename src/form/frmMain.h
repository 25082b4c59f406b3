// The form of an item. It wires controls and rooms and holds no rule of its own: every routine
// lives in the room whose name says so.
#pragma once

#include <memory>
#include <span>

#include "automation/EventSource.h"
#include "controls/Form.h"
#include "host/clsErrorDisplay.h"

namespace zav {

class FormCore;

class frmMain : public Form, private EventSink {
 public:
  frmMain(ControlHost& controlHost, clsErrorDisplay& errorDisplay);
  ~frmMain() override;

  // Stores of the owner's, before the form is built.
  void SetReadOnly(bool readOnly);
  void SetShowAnswers(bool showAnswers);
  void SetLorDriver(bool lorDriver);
  void SetCaseStudy(bool caseStudy);
  // Loads the form for its owner, whose events it hears from then on; for null, deletes the
  // temporary pages and lets the owner go. Reports under "SetParentClass_Set".
  void SetParentClass(ItemOwner* owner, EventSource* events);
  void SetPreviousParent(WindowHandle window) { previousParent_ = window; }
  [[nodiscard]] WindowHandle PreviousParent() const { return previousParent_; }

  // Whether the candidate has seen the whole item; one who has not is told to scroll. Reports
  // under "ViewedAll_Get".
  bool ViewedAll();

  // Ends a drag, a glide, the timers and an open question, the item back where it was.
  void EndGesture();
  // Takes everything that was loaded at run time off the form. Reports under "Form_Unload".
  void Form_Unload();

  // The form's controls and tables, for platforms, tests and pictures of the form.
  [[nodiscard]] FormCore& core();

 private:
  struct Rooms;

  void OnEvent(std::int32_t dispatchId, std::span<Variant> arguments) override;
  void WireAreas();
  void WireDrags();
  void WireScrolling();
  void WirePages();
  void WireTimers();

  std::unique_ptr<Rooms> rooms_;
  EventSource* events_ = nullptr;
  WindowHandle previousParent_ = 0;
};

}  // namespace zav

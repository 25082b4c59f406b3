// The candidate's mouse and keyboard on the headless platform: finds the control that they act on
// and raises its events. Places are twips of the window that the forms stand in.
#pragma once

#include <optional>
#include <string>

#include "controls/Control.h"
#include "controls/Splitter.h"
#include "platform/WindowTable.h"
#include "platform/headless/PageStore.h"

namespace zav {

class CandidateInput {
 public:
  // Both outlive the input.
  CandidateInput(const WindowTable& windows, PageStore& pages) : windows_(windows), pages_(pages) {}

  void Press(Point at);
  void MoveTo(Point at);
  void Release();
  void Cancel();
  void LoseRelease() { capture_.reset(); }
  [[nodiscard]] bool IsPressed() const { return capture_.has_value(); }

  void Focus(Control& control);
  [[nodiscard]] Control* Focused() const { return Find(focused_); }
  void Key(const KeyEvent& event) const;

  // Null for an id of no control in any form.
  [[nodiscard]] Control* Find(ControlId id) const;
  // The control that is seen there, or null.
  [[nodiscard]] Control* ControlUnder(Point at) const;
  // A place in the control, in twips from its corner, as a place of the window.
  [[nodiscard]] static Point InWindow(const Control& control, Point within);

 private:
  // What lasts from a press to its release. Controls are named by id, because they may go at any
  // time in between.
  struct Capture {
    ControlId control = 0;  // 0: pressed where nothing takes it
    Point pressedAt;
    std::string element;     // of the page that was pressed on
    bool selecting = false;  // the page has been told that the pointer is drawn over its text
    std::optional<Splitter::Bar> bar;
    float paneSize = 0;  // of the bar's pane at the press
  };

  [[nodiscard]] MouseEvent EventFor(const Control& control, MouseButton button) const;
  Control* Hover();
  void StartCapture();
  void GrabBar(const Splitter& splitter);
  void DropBar(const Capture& capture) const;
  void SelectText(HtmlPane& pane);
  void Click(Control& control, const Capture& capture);

  const WindowTable& windows_;
  PageStore& pages_;
  Point at_;
  ControlId hovered_ = 0;
  ControlId focused_ = 0;
  std::optional<Capture> capture_;
};

}  // namespace zav

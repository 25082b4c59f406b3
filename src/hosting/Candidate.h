// The candidate in front of a reference host: points at things by their names, and moves the
// headless pointer, keys and windows as a person does.
//
// Nothing is done that a person could not do: what is hidden, scrolled out of sight or covered by
// another window cannot be pointed at. Operations raise InputError then, and for names that the
// item does not have, before anything was done; and AutomationError 91 where there is no form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "controls/Control.h"
#include "form/FormCore.h"
#include "hosting/ReferenceHost.h"

namespace zav {

// What can be pointed at.
struct Spot {
  enum class Kind {
    Source,      // a source item, by its SourceID
    Target,      // a target, by its TargetID or the letter that stands for it in responses
    SourceArea,  // where source items stand
    Nowhere,     // a place of the form that has neither
    Pixel,       // of the host's window
  };
  Kind kind = Kind::Nowhere;
  std::string id;
  Point pixel;
};

// "source 3", "target A", "source-area", "nowhere" or "120 80"; nothing for other words.
std::optional<Spot> ReadSpot(std::string_view words);

enum class Area { Stem, Source, Work };

class Candidate {
 public:
  // The host outlives the candidate.
  explicit Candidate(ReferenceHost& host) : host_(host) {}

  void Press(const Spot& spot);
  // In some steps, as a hand moves.
  void MoveTo(const Spot& spot);
  void Release();
  // All three, both ends being in sight.
  void Drag(const Spot& from, const Spot& to);
  void Click(const Spot& spot);

  void Focus(const Spot& spot);
  void Key(const KeyEvent& event);
  // Walks to a target and presses Delete.
  void Delete(const Spot& target);

  // Scrolls by pixels, as far as there is something to see.
  void ScrollBy(Area area, int downPixels, int acrossPixels);
  void ScrollToStart(Area area);
  void ScrollToEnd(Area area);
  // Drags the bar of a pane of the splitter, "ItemStem" or "SourceArea", to make it that large.
  void DragSplitter(std::string_view pane, int pixels);

  // A button of the footer by its id, such as "btnReset".
  void ClickButton(std::string_view id);
  // Closes the window in front: the calculator's or the instructions'.
  void CloseWindow();

 private:
  [[nodiscard]] FormControls& Controls();
  Control& ControlOf(const Spot& spot);
  Point PlaceOf(const Spot& spot);
  Point PlaceIn(const Control& control, const std::string& name);
  void RequireOnTop(const Spot& spot, Point at);
  [[nodiscard]] float TwipsPerPixel() const;
  void MovePointer(Point to);
  void ScrollFrameTo(Area area, Point twips);

  ReferenceHost& host_;
  Point at_;  // of the pointer, twips of the host's window
};

}  // namespace zav

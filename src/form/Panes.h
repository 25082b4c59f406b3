// The splitter's panes by name. Names are compared without regard to case: "workArea" and
// "WorkArea" are one pane.
#pragma once

#include <string_view>

#include "form/FormCore.h"

namespace zav {

class Panes {
 public:
  explicit Panes(FormCore& form) : form_(form) {}

  // The two panes that every item has.
  void Create();
  // The pane of the source area, beside or above the work area, and the controls into their panes.
  void Fill();
  // The controls out of the source and work panes, and the source pane itself away.
  void Empty();

  [[nodiscard]] bool Complete() const { return form_.controls.spSplitter.PaneCount() >= 3; }
  // In twips, relative to the splitter. Raises 5 for a pane that is not there.
  [[nodiscard]] const Rect& RectOf(std::string_view name) const;
  [[nodiscard]] float LeastHeight(std::string_view name) const;
  void SetHeight(std::string_view name, float height);
  void SetWidth(std::string_view name, float width);

  // The size of the source pane that the item's layout leaves to the candidate: its width beside
  // the work area, its height above it.
  [[nodiscard]] float SourceAreaSize() const;
  void SetSourceAreaSize(float size);

 private:
  [[nodiscard]] const SplitterPane& Find(std::string_view name) const;

  FormCore& form_;
};

}  // namespace zav

// Fills the panes of the splitter: the item stem, the groups of source items, and the work area
// with its heading and callouts.
#pragma once

#include <vector>

#include "automation/FunctionRef.h"
#include "form/AreaRefresh.h"
#include "form/Panes.h"
#include "form/TargetLook.h"
#include "form/layout/GroupArrangement.h"

namespace zav {

class AreaSizing {
 public:
  AreaSizing(FormCore& form, Panes& panes, TargetLook& targetLook, AreaRefresh& refresh)
      : form_(form), panes_(panes), targetLook_(targetLook), refresh_(refresh) {}

  // Each reports under its own name.
  void SizeSourceArea();
  void SizeWorkArea();

  // The work container's size changed: its heading and its scroller follow.
  void pcWorkContainer_Resize();

  // The heading of the work area, as high as its page.
  void SizeWorkHeading(float width);

 private:
  void ArrangeSourceArea();
  void SizePanes();
  [[nodiscard]] float StemHeight() const;
  void SizeSources();
  void SizeSource(int source);
  void SizeTargets();
  void ResetScrolling();
  void SizeSourcesTop(bool paneFollows);
  void SizeSourcesLeft();
  [[nodiscard]] ArrangementGaps Gaps() const;
  using Arranger = FunctionRef<GroupArrangement(const std::vector<GroupRequest>&)>;
  // How the groups stand, their headings as high as they are at the widths that they get.
  [[nodiscard]] GroupArrangement Arrange(Arranger arrange);
  // Headings are left without a height.
  [[nodiscard]] std::vector<GroupRequest> RequestGroups() const;
  void Apply(const GroupArrangement& arrangement);
  void PlaceSource(int source, Point at);
  [[nodiscard]] bool TakesRoom(int source) const;
  void PlaceCallouts();

  FormCore& form_;
  Panes& panes_;
  TargetLook& targetLook_;
  AreaRefresh& refresh_;
};

}  // namespace zav

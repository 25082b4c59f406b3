// The reference case study: a text beside which questions stand.
//
// It has a window of its own in the host's. A bar on top carries the heading of the case and that
// of the question; below them the text of the case takes two fifths of the room at the left and
// scrolls, and the rest is left for the question, whose form the item puts into the same window.
//
// A case file is XML in UTF-8 or UTF-16:
//   <Case><Heading>plain text</Heading><Text>&lt;html&gt;...&lt;/html&gt;</Text></Case>
// Pictures in the text are named without a folder; the support object's GetGraphicsPath places
// them.
//
// By name it has the members below. Sizes and places are twips of the host's window, but for what
// QuestionSize gives. Before a case is there and after FreeExternalDisplay, those that need one
// raise 91; failures reach the caller.
//   DisplayInt_SetParentWnd(hWnd)             gives hWnd
//   InitCaseStudy(bytes, byteCount, lOptions, supportObject, heading)
//       heading stands above the question. Raises what is wrong with the file; the case that was
//       there then stays.
//   getCaseParent()                           the window that the question's form stands in
//   QuestionSize(lLeft, lTop, lWidth, lHeight)
//       in: the whole rectangle; out: the question's part of it, from the corner of that window
//   DisplayInt_ShowExternalDisplay(lLeft, lTop, lWidth, lHeight)     and the three below: True
//   DisplayInt_ResizeExternalDisplay(lLeft, lTop, lWidth, lHeight)
//   DisplayInt_HideExternalDisplay()
//   DisplayInt_FreeExternalDisplay()
//   DisplayInt_GetExternalDisplayStatus(lDispState, bViewedAll, sStateMsg)
//       sets bViewedAll: whether the end of the text has been in sight; the others stay
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/ClassRegistry.h"
#include "automation/MemberTable.h"
#include "automation/Object.h"
#include "controls/ControlHost.h"
#include "controls/Form.h"
#include "controls/HtmlPane.h"
#include "platform/Geometry.h"
#include "platform/Presenter.h"

namespace zav {

class CaseStudy : public Object {
 public:
  explicit CaseStudy(Platform platform);
  ~CaseStudy() override;

  Variant Invoke(std::string_view name, std::span<Variant> arguments,
                 InvokeKind kind = InvokeKind::Call) override;

  // For platforms, tests and pictures of it. Both raise 91 without a case.
  [[nodiscard]] Form& form();
  [[nodiscard]] HtmlPane& text();

 private:
  struct Window;

  static MemberTable<CaseStudy> Members();
  Window& RequireWindow();
  void Init(std::span<const std::uint8_t> file, const ObjectRef& support,
            const std::string& questionHeading);
  void Place(const Rect& rect);
  void NoteSeen();

  ControlHost host_;
  WindowHandle parent_ = 0;
  std::unique_ptr<Window> window_;
  bool seen_ = false;
};

// Makes it known under kCaseStudyProgId; every case study created there stands on that platform,
// which outlives it.
void RegisterCaseStudy(ClassRegistry& registry, Platform platform);

}  // namespace zav

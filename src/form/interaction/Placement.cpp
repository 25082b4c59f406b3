#include "form/interaction/Placement.h"

#include <utility>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "document/ItemTag.h"
#include "form/ItemLookup.h"

namespace zav {

// A placement with all its lookups and conversions made.
struct Placement::Landing {
  int target = 0;
  std::string oldAnswer;    // the target's answer field so far
  std::string answerValue;  // of the item
  std::int16_t sourceId = 0;
  std::int16_t oldSourceId = 0;
  int source = 0;

  [[nodiscard]] std::string NewAnswer() const {
    return std::string(FirstCharacters(oldAnswer, 1)) + answerValue;
  }
};

void Placement::TargetDragDrop(int target, const Control& dragged) {
  form_.Trap("TargetDragDrop", [&] {
    try {
      Apply(Prepare(target, dragged));
    } catch (...) {
      // Nothing is replaced, and nothing lands in the frame.
      rooms_.feedback.HideHint();
      rooms_.feedback.RemoveHighlight();
      throw;
    }
  });
}

Placement::Landing Placement::Prepare(int target, const Control& dragged) const {
  const FormControls& controls = form_.controls;
  const bool isDragPicture = &dragged == &controls.pcDrag;
  Landing landing;
  landing.target = target;
  landing.oldAnswer = GetAnswerId(controls.imgTarget[target].tag());
  landing.answerValue = GetAnswerId(isDragPicture ? controls.imgDrag.tag() : dragged.tag());
  landing.oldSourceId = form_.tables.TargetList.Item(target).SourceID;
  landing.source = isDragPicture ? FindSource(form_, landing.answerValue) : dragged.index();
  if (landing.source == 0) {
    RaiseError(error_number::kIndexOutOfRange,
               {"No source item has the answer value ", landing.answerValue});
  }
  landing.sourceId = NumberOf(landing.source, landing.answerValue);
  if (form_.tables.FindGroup(controls.imgTarget[target].tag()) == nullptr) {
    AuthoredValue(form_, "Targets", target, "GroupID")
        .Refuse(error_number::kInvalidArgument, "names no group");
  }
  return landing;
}

// What the author wrote is looked up only where it does not convert.
std::int16_t Placement::NumberOf(int source, const std::string& answerValue) const {
  std::int16_t number = 0;
  try {
    number = ToInt16(answerValue);
  } catch (const AutomationError&) {
    AuthoredValue(form_, "SourceArea", source, "AnswerValue").Use([] { throw; });
  }
  return number;
}

void Placement::Apply(const Landing& landing) {
  const int target = landing.target;
  const std::string tag = SetAnswerId(form_.controls.imgTarget[target].tag(), landing.NewAnswer());
  rooms_.recorder.RemoveStateResponse(landing.oldAnswer);
  rooms_.recorder.WriteStateResponse(landing.NewAnswer());
  form_.controls.lblTargetCaption[target].Hide();
  rooms_.feedback.RemoveHighlight();
  RunBoth(
      [&] {
        rooms_.targetLook.SetTag(target, tag);
        form_.tables.Place(target, landing.sourceId);
        rooms_.targetLook.ShowItem(target, landing.source);
        UpdateAnswerButton(target);
      },
      [&] {
        const int replaced = landing.oldSourceId == 0 ? 0 : FindSource(form_, landing.oldSourceId);
        if (replaced > 0) CheckSourceUses(replaced);
      });
  rooms_.refresh.RefreshWorkArea();
  rooms_.feedback.ShowReplaced();
}

void Placement::ClearTarget(int target) {
  form_.Trap("ClearTarget", [&] {
    const std::string answer = GetAnswerId(form_.controls.imgTarget[target].tag());
    rooms_.recorder.RemoveStateResponse(answer);
    EmptyTarget(target);
  });
}

void Placement::EmptyTarget(int target) {
  const std::string& tag = form_.controls.imgTarget[target].tag();
  const std::string ownAnswer(FirstCharacters(GetAnswerId(tag), 1));
  const std::int16_t heldId = form_.tables.TargetList.Item(target).SourceID;
  rooms_.targetLook.SetTag(target, SetAnswerId(tag, ownAnswer));
  form_.tables.Place(target, 0);
  UpdateAnswerButton(target);
  // A picture that cannot be had leaves the target without one, but empty.
  rooms_.targetLook.ShowEmpty(target, {});
  const int held = heldId == 0 ? 0 : FindSource(form_, heldId);
  if (held > 0) RecountUses(held);
  rooms_.targetLook.ShowEmpty(target, LoadEmptyPicture(target));
}

PictureRef Placement::LoadEmptyPicture(int target) {
  DataIO& document = form_.Document();
  const CursorScope keep(document);
  const std::string groupId = GetGroupId(form_.controls.imgTarget[target].tag());
  document.SetFromRoot(true);
  document.FindNode("Groups");
  PictureRef picture;
  const std::int32_t count = document.ChildCount();
  for (std::int32_t j = 0; j < count; ++j) {
    if (document.GetChildAttribute(j, "GroupID").View() != groupId) continue;
    document.MoveToChild(j);
    const std::string name =
        ToText(document.GetChildAttributeByName("TargetSettings", "EmptyImage"));
    picture = rooms_.pages.LoadGraphic(form_.Owner().ExtParent(), name);
    document.MoveToParent();
  }
  return picture;
}

void Placement::UpdateAnswerButton(int target) {
  if (!form_.options.ShowAnswers) return;
  form_.controls.cmdTargetAnswerValue[target].SetCaption(
      GetAnswerId(form_.controls.imgTarget[target].tag()));
}

void Placement::CheckSourceUses(int source) {
  form_.Trap("CheckSourceUses", [&] {
    const std::string answer = GetAnswerId(form_.controls.imgSource[source].tag());
    const auto count = static_cast<std::int16_t>(form_.tables.CountPlaced(answer));
    form_.tables.SourceUses(source, 2) = count;
    form_.drag.SourceUsedUp = count >= form_.tables.SourceUses(source, 1);
    if (!form_.drag.SourceUsedUp && rooms_.sourceLook.LooksUsedUp(source)) {
      rooms_.sourceLook.ShowUsable(source);
    }
  });
}

void Placement::RecountUses(int source) {
  CheckSourceUses(source);
  if (std::exchange(form_.drag.SourceUsedUp, false)) rooms_.sourceLook.ShowUsedUp(source);
}

void Placement::ForgetPlacements() {
  const int count = static_cast<int>(form_.tables.TargetList.Count());
  for (int target = 1; target <= count; ++target) {
    if (!HoldsItem(form_, target)) continue;
    form_.Trap("ClearTarget", [&] { EmptyTarget(target); });
  }
}

}  // namespace zav

#include "form/WorkArea.h"

#include <algorithm>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "document/ItemTag.h"
#include "form/AuthoredFont.h"
#include "form/ChromePages.h"
#include "form/ItemLookup.h"
#include "form/interaction/SnapMargins.h"

namespace zav {
namespace {

constexpr float kAnswerButtonFontSize = 4;
constexpr float kAnswerButtonWidthPixels = 22;
constexpr float kAnswerButtonHeightPixels = 14;

// Puts the cursor on the section of that name, wherever it is in the item.
std::int32_t EnterList(DataIO& document, std::string_view name) {
  document.SetFromRoot(true);
  document.FindNode(name);
  return document.ChildCount();
}

}  // namespace

void WorkArea::LoadWorkArea() {
  form_.Trap("LoadWorkArea", [&] {
    const CursorScope keep(form_.Document());
    BuildWorkArea();
  });
  // Nothing hangs on the place of the picture: it takes nothing else with it.
  form_.Trap("LoadWorkArea", [&] {
    const CursorScope keep(form_.Document());
    PlaceBackground();
  });
}

void WorkArea::BuildWorkArea() {
  FormControls& controls = form_.controls;
  LoadPicture();
  LoadLabels();
  LoadCallouts();
  LoadShapes();
  LoadTargets();
  if (!ShowTargets()) return;
  const Size picture = controls.pcWork.SizeInTwips();
  EnterList(form_.Document(), "WorkArea");
  const DocumentValue height = form_.Document().GetAttribute("Height");
  controls.scrWork.SetScrollHeight(static_cast<float>(RoundToInt32(picture.height, height)));
  controls.scrWork.SetScrollWidth(
      static_cast<float>(RoundToInt32(picture.width) + form_.layout.MarginX));
  FindSnapAreas();
}

void WorkArea::LoadPicture() {
  DataIO& document = form_.Document();
  document.SetFromRoot(true);
  document.FindNode("WorkArea");
  PictureBox& work = form_.controls.pcWork;
  const DocumentValue width = document.GetAttribute("Width");
  work.SetHeight(form_.tables.PixelsY(document.GetAttribute("Height")) * form_.TwipsY());
  work.SetWidth(form_.tables.PixelsX(width) * form_.TwipsX());
  work.SetBackColor(ToColor(document.GetAttribute("BackColor")));
  const std::string imagePath = ToText(document.GetAttribute("ImagePath"));
  form_.controls.pcWorkLoad.SetPicture(pages_.LoadGraphic(form_.Owner().ExtParent(), imagePath));
  form_.controls.scrWork.SetScrollWidth(static_cast<float>(RoundToInt32(work.width(), width)));
}

void WorkArea::PlaceBackground() {
  if (!form_.controls.pcWorkLoad.picture()) return;
  DataIO& document = form_.Document();
  EnterList(document, "WorkArea");
  ItemTables& tables = form_.tables;
  tables.BackgroundAt = {tables.PixelsX(document.GetAttribute("ImageLeft")),
                         tables.PixelsY(document.GetAttribute("ImageTop"))};
}

void WorkArea::LoadLabels() {
  const std::int32_t count = EnterList(form_.Document(), "Labels");
  for (std::int32_t i = 0; i < count; ++i) LoadLabel(i);
}

void WorkArea::LoadLabel(int entry) {
  DataIO& document = form_.Document();
  const ItemTables& tables = form_.tables;
  Label& label = form_.controls.lblCaption.Load(entry + 1);
  label.SetTag(ToText(document.GetChildAttribute(entry, "LabelID")));
  label.SetTop(tables.PixelsY(document.GetChildAttribute(entry, "Top")));
  label.SetLeft(tables.PixelsX(document.GetChildAttribute(entry, "Left")));
  label.SetHeight(tables.PixelsY(document.GetChildAttribute(entry, "Height")));
  label.SetWidth(tables.PixelsX(document.GetChildAttribute(entry, "Width")));
  label.Show();
  document.MoveToChild(entry);
  document.MoveToChild(0);
  label.SetCaption(ToText(document.GetText()));
  label.SetFont(AuthoredFont(document));
  label.SetForeColor(ToColor(document.GetAttribute("ForeColor")));
  const DocumentValue alignment = document.GetAttribute("Alignment");
  alignment.Use([&] { label.SetAlignment(ToInt16(alignment.Text())); }, "is not 0, 1 or 2");
  document.MoveToParent();
  document.MoveToParent();
}

void WorkArea::LoadCallouts() {
  const std::int32_t count = EnterList(form_.Document(), "Callouts");
  for (std::int32_t i = 0; i < count; ++i) LoadCallout(i);
}

void WorkArea::LoadCallout(int entry) {
  DataIO& document = form_.Document();
  const ItemTables& tables = form_.tables;
  const DocumentValue id = document.GetChildAttribute(entry, "CalloutID");
  if (entry >= kMostCallouts) {
    id.Refuse(error_number::kMissingElement, "is one too many: there is room for 5");
  }
  HtmlPane& callout = form_.controls.txtCallout[entry + 1];
  callout.SetHasBorder(true);
  const auto atLeast0 = [](float pixels) { return ToText(std::max(pixels, 0.0F)); };
  const std::string top = atLeast0(tables.PixelsY(document.GetChildAttribute(entry, "Top")));
  const std::string left = atLeast0(tables.PixelsX(document.GetChildAttribute(entry, "Left")));
  const std::string height = atLeast0(tables.PixelsY(document.GetChildAttribute(entry, "Height")));
  const std::string width = atLeast0(tables.PixelsX(document.GetChildAttribute(entry, "Width")));
  callout.SetTag(Concatenate({top, ":", left, ":", height, ":", width, ":", id.View()}));
  document.MoveToChild(entry);
  document.MoveToChild(0);
  pages_.Load(callout, createCallout(ToText(document.GetText()), height));
  callout.SetMargin(0);
  callout.Show();
  document.MoveToParent();
  document.MoveToParent();
}

void WorkArea::LoadShapes() {
  DataIO& document = form_.Document();
  const std::int32_t count = EnterList(document, "Shapes");
  for (std::int32_t i = 0; i < count; ++i) {
    document.MoveToChild(i);
    LoadShape();
    document.MoveToParent();
  }
}

void WorkArea::LoadShape() {
  DataIO& document = form_.Document();
  form_.tables.HasShapes = true;
  const std::int32_t corners = document.ChildCount();
  if (corners == 0) return;
  ShapeSegment pen;
  pen.drawWidth = ToInt32(document.GetAttribute("DrawWidth"));
  pen.drawColor = ToColor(document.GetAttribute("DrawColor"));
  const auto x = [&](std::int32_t corner) {
    const DocumentValue value = document.GetChildAttribute(corner, "X");
    return RoundToInt32(form_.tables.PixelsX(value), value);
  };
  const auto y = [&](std::int32_t corner) {
    const DocumentValue value = document.GetChildAttribute(corner, "Y");
    return RoundToInt32(form_.tables.PixelsY(value), value);
  };
  for (std::int32_t j = 0; j < corners; ++j) {
    const std::int32_t next = (j + 1) % corners;  // the last segment closes the outline
    form_.tables.ShapeSegments.push_back(
        {x(j), y(j), x(next), y(next), pen.drawWidth, pen.drawColor});
  }
}

void WorkArea::LoadTargets() {
  const std::int32_t count = EnterList(form_.Document(), "Targets");
  for (std::int32_t i = 0; i < count; ++i) LoadTarget(i);
}

void WorkArea::LoadTarget(int entry) {
  DataIO& document = form_.Document();
  FormControls& controls = form_.controls;
  const int target = entry + 1;
  const DocumentValue id = document.GetChildAttribute(entry, "TargetID");
  const DocumentValue group = document.GetChildAttribute(entry, "GroupID");
  const std::string tag =
      MakeTag(id.View(), group.View(), document.GetChildAttribute(entry, "AnswerValue").View());
  const float top = form_.tables.PixelsY(document.GetChildAttribute(entry, "Top"));
  const float left = form_.tables.PixelsX(document.GetChildAttribute(entry, "Left"));
  clsTarget record;
  record.GroupId = ToInt16(group);
  record.TargetID = ToInt16(id);
  id.Use([&] { form_.tables.TargetList.Add(std::move(record), GetObjectId(tag)); },
         "is in use already");
  const std::string letter(FirstCharacters(GetAnswerId(tag), 1));
  if (!letter.empty()) form_.tables.TargetsByLetter.emplace(letter, target);
  controls.imgTarget.Load(target).MoveTo(left, top);
  controls.txtTarget.Load(target).SetHeight(0);
  controls.lblTargetCaption.Load(target);
  PictureButton& cover = controls.imgTargetCover.Load(target);
  cover.MoveTo(left, top);
  cover.Show();
  targetLook_.SetTag(target, tag);
  if (form_.options.ShowAnswers) LoadAnswerButton(target, GetAnswerId(tag));
}

void WorkArea::LoadAnswerButton(int target, const std::string& answerValue) {
  PictureButton& button = form_.controls.cmdTargetAnswerValue.Load(target);
  const PictureButton& cover = form_.controls.imgTargetCover[target];
  button.Show();
  button.Move({cover.left(), cover.top(), kAnswerButtonWidthPixels, kAnswerButtonHeightPixels});
  Font font = button.font();
  font.size = kAnswerButtonFontSize;
  button.SetFont(font);
  button.SetTag(answerValue);
  button.SetCaption(answerValue);
}

bool WorkArea::ShowTargets() {
  std::string loadedName;
  std::string loadedPath;
  const int count = form_.controls.imgTarget.UpperBound();
  for (int target = 1; target <= count; ++target) {
    if (!ShowTarget(target, loadedName, loadedPath)) return false;
  }
  return true;
}

bool WorkArea::ShowTarget(int target, std::string& loadedName, std::string& loadedPath) {
  DataIO& document = form_.Document();
  PictureButton& picture = form_.controls.imgTarget[target];
  document.SetFromRoot(true);
  document.FindNode("Groups");
  if (!document.MoveToChild(form_.tables.TargetList.Item(target).GroupId - 1)) {
    AuthoredValue(form_, "Targets", target, "GroupID")
        .Refuse(error_number::kIndexOutOfRange, "names no group");
  }
  const std::string name = ToText(document.GetChildAttributeByName("TargetSettings", "EmptyImage"));
  if (name != loadedName) {
    picture.SetPicture(pages_.LoadGraphic(form_.Owner().ExtParent(), name, &loadedPath));
    loadedName = name;
  } else {
    picture.SetPicture(form_.controls.imgTarget[target - 1].picture());
  }
  form_.tables.TargetList.Item(target).PicturePath = loadedPath;
  picture.Show();
  return ShowCaption(target);
}

bool WorkArea::ShowCaption(int target) {
  DataIO& document = form_.Document();
  PictureButton& caption = form_.controls.lblTargetCaption[target];
  document.MoveToChild(1);
  caption.SetCaption(ToText(document.GetChildText(0)));
  document.MoveToChild(0);
  caption.SetFont(AuthoredFont(document));
  caption.SetForeColor(ToColor(document.GetAttribute("ForeColor")));
  const std::int32_t alignment = ToInt32(document.GetAttribute("Alignment"));
  if (alignment < 0 || alignment > 2) {
    ShowMessage(form_.Owner(), "Target caption alignment must be a 0,1 or 2",
                message_style::kNotice);
    return false;
  }
  caption.SetCaptionAlignment(alignment == 2 ? static_cast<int>(CaptionAlignment::Centred)
                                             : alignment);
  caption.SetLeft(form_.controls.imgTarget[target].left());
  caption.Show();
  targetLook_.Restack(target);
  return true;
}

std::vector<Rect> WorkArea::TargetRects() const {
  std::vector<Rect> rects;
  const int count = static_cast<int>(form_.tables.TargetList.Count());
  for (int t = 1; t <= count; ++t) rects.push_back(form_.controls.imgTargetCover[t].rect());
  return rects;
}

void WorkArea::FindSnapAreas() {
  const int count = static_cast<int>(form_.tables.TargetList.Count());
  // Margins are shares of a target's size, so the targets get their size first.
  for (int t = 1; t <= count; ++t) targetLook_.Arrange(t);
  const std::vector<Rect> rects = TargetRects();
  const SnapView below(rects, SnapDirection::Below);
  const SnapView above(rects, SnapDirection::Above);
  const SnapView left(rects, SnapDirection::Left);
  const SnapView right(rects, SnapDirection::Right);
  for (int t = 1; t <= count; ++t) {
    const auto limit = [&](const SnapView& view) {
      std::int32_t margin = 0;
      form_.Trap("FindSnapLimit", [&] { margin = view.Limit(static_cast<std::size_t>(t) - 1); });
      return RoundToInt16(margin);
    };
    clsTarget& record = form_.tables.TargetList.Item(t);
    record.SnapBottom = limit(below);
    record.SnapTop = limit(above);
    record.SnapLeft = limit(left);
    record.SnapRight = limit(right);
  }
}

}  // namespace zav

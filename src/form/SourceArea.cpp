#include "form/SourceArea.h"

#include <utility>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "document/ItemTag.h"
#include "form/ChromePages.h"

namespace zav {
namespace {

constexpr float kAnswerButtonFontSize = 6;
constexpr float kAnswerButtonWidthTwips = 330;
constexpr float kAnswerButtonHeightTwips = 210;
constexpr float kScrollerRoomPixels = 10;

}  // namespace

void SourceArea::LoadSourceArea() {
  form_.Trap("LoadSourceArea", [&] {
    const CursorScope keep(form_.Document());
    LoadGroups();
    SizeSourcePicture();
    LoadSources();
    SizeScroller();
  });
}

void SourceArea::LoadGroups() {
  DataIO& document = form_.Document();
  document.SetFromRoot(true);
  document.FindNode("Groups");
  const std::int32_t count = document.ChildCount();
  for (std::int32_t g = 0; g < count; ++g) {
    document.MoveToChild(g);
    LoadGroup(g);
    document.MoveToParent();
  }
}

void SourceArea::LoadGroup(int entry) {
  DataIO& document = form_.Document();
  const ItemTables& tables = form_.tables;
  clsGroup group;
  const DocumentValue id = document.GetAttribute("GroupID");
  group.GroupId = id.View();
  const DocumentValue height = document.GetChildAttributeByName("ItemSettings", "ItemHeight");
  const DocumentValue width = document.GetChildAttributeByName("ItemSettings", "ItemWidth");
  group.ItemHeight = RoundToInt16(tables.PixelsY(height) * form_.TwipsY(), height);
  group.ItemWidth = RoundToInt16(tables.PixelsX(width) * form_.TwipsX(), width);
  if (entry >= kMostGroups) {
    id.Refuse(error_number::kMissingElement, "is one too many: there is room for 8");
  }
  HtmlPane& heading = form_.controls.txtSourceHeading[entry + 1];
  group.Heading = &heading;
  const std::string groupId = group.GroupId;
  id.Use([&] { form_.tables.GroupList.Add(std::move(group), groupId); }, "is in use already");
  document.MoveToChild(2);
  document.MoveToChild(0);
  LoadHeading(heading, groupId);
  document.MoveToParent();
  document.MoveToParent();
}

void SourceArea::LoadHeading(HtmlPane& heading, const std::string& groupId) {
  heading.Show();
  heading.SetHasBorder(true);
  heading.SetTag(groupId);
  const std::string text = ToText(form_.Document().GetText());
  if (!IsHtml(text)) return;
  pages_.Load(heading, createAreaTitle(text));
  heading.SetMargin(0);
}

void SourceArea::SizeSourcePicture() {
  DataIO& document = form_.Document();
  document.SetFromRoot(true);
  document.FindNode("SourceArea");
  ItemTables& tables = form_.tables;
  const DocumentValue height = document.GetAttribute("Height");
  const DocumentValue width = document.GetAttribute("Width");
  tables.SourceAreaHeight = RoundToInt32(tables.PixelsY(height) * form_.TwipsY(), height);
  tables.SourceAreaWidth = RoundToInt32(tables.PixelsX(width) * form_.TwipsX(), width);
  form_.controls.pcSource.Resize(static_cast<float>(tables.SourceAreaWidth),
                                 static_cast<float>(tables.SourceAreaHeight));
}

void SourceArea::LoadSources() {
  DataIO& document = form_.Document();
  const std::int32_t count = document.ChildCount();
  form_.tables.SourceUses.Resize(count);
  pictureName_.clear();
  lastPicture_.reset();
  for (std::int32_t s = 0; s < count; ++s) {
    document.MoveToChild(s);
    LoadSource(s + 1);
    document.MoveToParent();
  }
}

void SourceArea::LoadSource(int source) {
  const SourceEntry entry = ReadEntry();
  FormControls& controls = form_.controls;
  entry.group->Heading->SetWidth(controls.pcSource.width());
  ++entry.group->SourceCount;
  PictureButton& picture = controls.imgSource.Load(source);
  RichText& text = controls.txtSource.Load(source);
  PictureButton& cover = controls.imgSourceCover.Load(source);
  for (Control* control : {static_cast<Control*>(&picture), static_cast<Control*>(&text),
                           static_cast<Control*>(&cover)}) {
    control->SetTag(entry.tag);
    control->Show();
  }
  picture.SetPicture(entry.picture);
  if (!entry.picture) picture.Resize(1, 1);
  form_.tables.SourceUses(source, 1) = entry.allowedUses;
  form_.tables.SourceUses(source, 2) = 0;
  if (form_.options.ShowAnswers) LoadAnswerButton(source, GetAnswerId(entry.tag));
  text.SetWidth(static_cast<float>(entry.group->ItemWidth));
  text.Load(entry.text);
  form_.tables.SourceTexts.push_back(text.Export());
  form_.tables.Sources.Add(GetAnswerId(entry.tag), source);
  entry.group->Sources.push_back(&text);
}

// Whatever can fail about a source fails here, before anything of it was built.
SourceArea::SourceEntry SourceArea::ReadEntry() {
  DataIO& document = form_.Document();
  SourceEntry entry;
  entry.group = &GroupOfEntry();
  entry.picture = ReadPicture();
  entry.allowedUses = ToInt16(document.GetAttribute("NumUses"));
  entry.tag = MakeTag(document.GetAttribute("SourceID").View(), entry.group->GroupId,
                      document.GetAttribute("AnswerValue").View());
  entry.text = ReadText();
  return entry;
}

// Groups are compared exactly as they are written, unlike the keys of their list.
clsGroup& SourceArea::GroupOfEntry() {
  const DocumentValue id = form_.Document().GetAttribute("GroupID");
  for (clsGroup& group : form_.tables.GroupList) {
    if (group.GroupId == id.View()) return group;
  }
  id.Refuse(error_number::kObjectNotSet, "names no group");
}

PictureRef SourceArea::ReadPicture() {
  const std::string name = ToText(form_.Document().GetAttribute("ImagePath"));
  if (name.empty()) return {};
  if (name != pictureName_) {
    lastPicture_ = pages_.LoadGraphic(form_.Owner().ExternalSupport(), name);
    pictureName_ = name;
  }
  return lastPicture_;
}

std::string SourceArea::ReadText() {
  DataIO& document = form_.Document();
  if (!document.MoveToChild(0)) return {};
  std::string text = ToText(document.GetText());
  document.MoveToParent();
  return IsHtml(text) ? pages_.RewriteGraphicsPaths(text) : text;
}

void SourceArea::LoadAnswerButton(int source, const std::string& answerValue) {
  PictureButton& button = form_.controls.cmdSourceValue.Load(source);
  const PictureButton& cover = form_.controls.imgSourceCover[source];
  button.Show();
  button.Move({cover.left(), cover.top(), kAnswerButtonWidthTwips, kAnswerButtonHeightTwips});
  Font font = button.font();
  font.size = kAnswerButtonFontSize;
  button.SetFont(font);
  button.SetCaption(answerValue);
}

void SourceArea::SizeScroller() {
  FormControls& controls = form_.controls;
  controls.pcSource.MoveTo(0, 0);
  controls.scrSource.SetScrollHeight(static_cast<float>(RoundToInt32(controls.pcSource.height())));
  controls.scrSource.SetScrollWidth(static_cast<float>(RoundToInt32(
      kScrollerRoomPixels * form_.TwipsX() + static_cast<float>(form_.tables.SourceAreaWidth))));
  controls.scrSource.SetHeight(controls.pcSource.height());
}

}  // namespace zav

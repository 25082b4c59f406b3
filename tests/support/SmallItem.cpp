#include "support/SmallItem.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "automation/Conversions.h"
#include "document/ItemTag.h"
#include "form/ItemLookup.h"

namespace zav {
namespace {

constexpr std::string_view kHead =
    R"(<DragAndDropItem Language="en" ResponseType="S" CaseCode="NONE" TwipsPerPixelX="15"
 TwipsPerPixelY="15" DisplayScrollMsg="True">
<Instructions><Text>&lt;html&gt;Drag the items.&lt;/html&gt;</Text></Instructions>
<ItemStem><Heading>Small</Heading><Text>&lt;html&gt;What goes where?&lt;/html&gt;</Text></ItemStem>
<WorkArea Height="4500" Width="7500" BackColor="HFFFFFF" ImagePath="diagram.png" ImageLeft="0"
 ImageTop="0"><Heading>Boxes</Heading></WorkArea>
<Labels><Label LabelID="1" Top="4200" Left="0" Height="270" Width="900">
<Caption FontName="DejaVu Sans" FontSize="9" FontBold="False" FontItalic="False"
 FontUnderline="False" ForeColor="H795F1F" Alignment="0">label</Caption></Label></Labels>
<Callouts><Callout CalloutID="1" Top="3600" Left="5400" Height="600" Width="1500">
<Body>Mind the gap.</Body></Callout></Callouts>
<Shapes><Shape DrawWidth="2" DrawColor="H1B8AC9"><Corner X="0" Y="3300"/>
<Corner X="7500" Y="3300"/></Shape></Shapes>
<Targets>
<Target TargetID="1" GroupID="1" AnswerValue="A" Top="300" Left="600"/>
<Target TargetID="2" GroupID="1" AnswerValue="B" Top="300" Left="2700"/>
<Target TargetID="3" GroupID="1" AnswerValue="C" Top="1800" Left="600"/>
<Target TargetID="4" GroupID="2" AnswerValue="D" Top="1800" Left="5100"/>
<Target TargetID="5" GroupID="2" AnswerValue="E" Top="300" Left="5100"/>
</Targets>
<Groups>)";

constexpr std::string_view kTail = R"(</Groups>
<SourceArea Location="Left" Height="5700" Width="2400">
<Source SourceID="1" GroupID="1" AnswerValue="1" NumUses="1" ImagePath=""><Body>one</Body></Source>
<Source SourceID="2" GroupID="1" AnswerValue="2" NumUses="2" ImagePath="lamp.png"/>
<Source SourceID="3" GroupID="1" AnswerValue="3" NumUses="1" ImagePath="">
<Body>&lt;html&gt;&lt;b&gt;three&lt;/b&gt;&lt;/html&gt;</Body></Source>
<Source SourceID="4" GroupID="2" AnswerValue="4" NumUses="1" ImagePath=""><Body>four</Body></Source>
<Source SourceID="5" GroupID="2" AnswerValue="12" NumUses="1" ImagePath="bulb.png">
<Body>twelve</Body></Source>
<Source SourceID="6" GroupID="1" AnswerValue="6" NumUses="0" ImagePath=""><Body>six</Body></Source>
</SourceArea>
<Answers><Answer Weight="2">A1 AND B2</Answer><Answer Weight="1">D12</Answer></Answers>
</DragAndDropItem>)";

std::string Group(const std::string& id, const std::string& size) {
  return "<Group GroupID=\"" + id + "\"><ItemSettings " + size +
         "/><TargetSettings EmptyImage=\"reading-slot.png\"><Caption FontName=\"DejaVu Sans\""
         " FontSize=\"8\" FontBold=\"False\" FontItalic=\"True\" FontUnderline=\"False\""
         " ForeColor=\"H806B3D\" Alignment=\"2\">here</Caption></TargetSettings><HeadingSettings>"
         "<GroupHeading>&lt;html&gt;Group " +
         id + "&lt;/html&gt;</GroupHeading></HeadingSettings></Group>\n";
}

class Findings {
 public:
  Findings& Unless(bool sound, const std::string& finding) {
    if (!sound) text_ += finding + "\n";
    return *this;
  }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

void CheckTarget(const FormCore& core, int target, Findings& findings) {
  const FormControls& controls = core.controls;
  const std::string& tag = controls.imgTarget[target].tag();
  const std::string name = "target " + GetObjectId(tag) + " (" + tag + "): ";
  const std::string value(WithoutFirstCharacters(GetAnswerId(tag), 1));
  const std::int16_t record = core.tables.TargetList.Item(target).SourceID;
  findings.Unless(controls.imgTargetCover[target].tag() == tag, name + "the cover's tag differs")
      .Unless(controls.txtTarget[target].tag() == tag, name + "the text's tag differs")
      .Unless(record == (value.empty() ? 0 : ToInt16(value)), name + "the record differs");
  if (value.empty()) return;
  const int source = FindSource(core, value);
  findings.Unless(source > 0, name + "holds what is no source item");
  if (source == 0) return;
  findings
      .Unless(GetGroupId(controls.txtSource[source].tag()) == GetGroupId(tag),
              name + "holds an item of another group")
      .Unless(controls.imgTarget[target].picture() == controls.imgSource[source].picture(),
              name + "shows another picture")
      .Unless(controls.txtTarget[target].Export() == controls.txtSource[source].Export(),
              name + "shows another text");
}

void CheckSource(FormCore& core, int source, Findings& findings) {
  const std::string& tag = core.controls.imgSource[source].tag();
  const std::string name = "source " + GetObjectId(tag) + ": ";
  const std::string value = GetAnswerId(tag);
  int placed = 0;
  for (int t = 1; t <= core.controls.imgTarget.UpperBound(); ++t) {
    placed += HoldsItem(core, t) &&
              WithoutFirstCharacters(GetAnswerId(core.controls.imgTarget[t].tag()), 1) == value;
  }
  const int counted = core.tables.SourceUses(source, 2);
  const int allowed = core.tables.SourceUses(source, 1);
  findings.Unless(counted == placed,
                  name + "counted " + ToText(counted) + ", placed " + ToText(placed));
  if (allowed == 0) return;  // looks used up once it was placed
  const bool looksUsedUp = core.controls.txtSource[source].backColor() != color::kWhite;
  findings.Unless(looksUsedUp == (placed >= allowed), name + "its look does not fit its uses")
      .Unless(core.options.ReadOnly ||
                  core.controls.imgSourceCover[source].enabled() == (placed < allowed),
              name + "can be taken when it should not, or cannot");
}

std::vector<std::string> ShownResponses(const FormCore& core) {
  std::vector<std::string> shown;
  for (int t = 1; t <= core.controls.imgTarget.UpperBound(); ++t) {
    if (HoldsItem(core, t)) shown.push_back(GetAnswerId(core.controls.imgTarget[t].tag()));
  }
  return shown;
}

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

void CheckAtRest(FormCore& core, Findings& findings) {
  const FormControls& controls = core.controls;
  const bool carrying = core.drag.carried != Carried::Nothing;
  findings.Unless(!core.drag.ItemPressed, "something is still pressed")
      .Unless(carrying || core.drag.HighlightedTarget == 0, "a target is still highlighted")
      .Unless(!controls.pcDrag.visible() || controls.tmTimer.enabled(), "the drag picture stays");
}

std::string SmallItemXml() {
  return std::string(kHead) + Group("1", R"(ItemHeight="600" ItemWidth="1500")") +
         Group("2", R"(ItemHeight="900" ItemWidth="1200")") + std::string(kTail);
}

}  // namespace

// Its pictures and strings are those of a sample.
ItemFolder SmallItem(const std::vector<ItemEdit>& edits) {
  std::string xml = SmallItemXml();
  for (const ItemEdit& edit : edits) {
    const std::size_t at = xml.find(edit.part);
    if (at == std::string::npos) throw std::invalid_argument("not in the item: " + edit.part);
    xml.replace(at, edit.part.size(), edit.replacement);
  }
  ItemFolder folder("items/circuit");
  folder.SetItemXml(std::move(xml));
  return folder;
}

HostOptions WithOptions(std::int32_t lOptions) {
  HostOptions options;
  options.lOptions = lOptions;
  return options;
}

HostOptions OnScreen(int widthPixels, int heightPixels) {
  HostOptions options;
  options.screen.widthPixels = widthPixels;
  options.screen.heightPixels = heightPixels;
  return options;
}

std::string Faults(ReferenceHost& host, bool log) {
  FormCore& core = host.form().core();
  Findings findings;
  for (int t = 1; t <= core.controls.imgTarget.UpperBound(); ++t) CheckTarget(core, t, findings);
  for (int s = 1; s <= core.controls.imgSource.UpperBound(); ++s) CheckSource(core, s, findings);
  std::vector<std::string> recorded = host.Responses();
  std::vector<std::string> shown = ShownResponses(core);
  std::sort(recorded.begin(), recorded.end());
  std::sort(shown.begin(), shown.end());
  findings.Unless(recorded == shown, "recorded: " + Joined(recorded) + "; shown: " + Joined(shown));
  if (!host.platform().IsPressed()) CheckAtRest(core, findings);
  if (log) findings.Unless(host.parent().log().empty(), "reported: " + Reports(host));
  return findings.text();
}

std::string Reports(ReferenceHost& host) {
  std::string routines;
  const std::vector<LogEntry>& log = host.parent().log();
  for (std::size_t i = 0; i < log.size();) {
    const std::string& routine = log[i].routine;
    std::size_t times = 0;
    while (i < log.size() && log[i].routine == routine) ++i, ++times;
    routines += (routines.empty() ? "" : ", ") + routine;
    if (times > 1) routines += " x" + std::to_string(times);
  }
  return routines;
}

std::string TagOf(ItemFixture& item, char letter) {
  return item.form().controls.imgTarget[letter - '@'].tag();
}

int UsesOf(ItemFixture& item, int source) { return item.form().tables.SourceUses(source, 2); }

}  // namespace zav

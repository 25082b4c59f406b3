// Items that are not as they should be. Each says once what is wrong, under the name of the routine
// that found it; what was built before stays, and the host can go on.
#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "form/FormCore.h"
#include "support/Intercepted.h"
#include "support/SmallItem.h"

namespace zav {
namespace {

constexpr const char* kSource1 = R"(SourceID="1" GroupID="1" AnswerValue="1" NumUses="1")";
constexpr const char* kSource2 = R"(SourceID="2" GroupID="1" AnswerValue="2" NumUses="2")";
constexpr const char* kTarget2 = R"(TargetID="2" GroupID="1" AnswerValue="B" Top="300")";

// Groups, source items, labels, callouts and targets that were built.
std::string Built(ItemFixture& item) {
  const FormControls& controls = item.form().controls;
  int callouts = 0;
  for (int k = 1; k <= kMostCallouts; ++k) callouts += !controls.txtCallout[k].tag().empty();
  std::string text;
  for (const int count :
       {static_cast<int>(item.form().tables.GroupList.Count()), controls.imgSource.UpperBound(),
        controls.lblCaption.UpperBound(), callouts, controls.imgTarget.UpperBound()}) {
    text += (text.empty() ? "" : " ") + std::to_string(count);
  }
  return text;
}

std::string Repeat(int times, const std::string& text) {
  std::string repeated;
  for (int i = 0; i < times; ++i) repeated += text;
  return repeated;
}

std::string Callouts(int count) {
  return "<Callouts>" + Repeat(count,
                               R"(<Callout CalloutID="9" Top="0" Left="0" Height="15" Width="15">)"
                               "<Body>x</Body></Callout>");
}

std::string Group(const std::string& id) {
  return "<Group GroupID=\"" + id +
         R"("><ItemSettings ItemHeight="300" ItemWidth="300"/><TargetSettings EmptyImage="">)"
         R"(<Caption FontName="" FontSize="8" FontBold="0" FontItalic="0" FontUnderline="0")"
         R"( ForeColor="H0" Alignment="0"/></TargetSettings><Heading><Text/></Heading></Group>)";
}

// What a host does next works, and reports nothing more.
void GoesOn(ItemFixture& item, const char* why) {
  const std::string reports = Reports(item);
  ReferenceHost& host = item.host;
  EXPECT_EQ(host.Status().lDispState, 2) << why;
  EXPECT_TRUE(host.Resize(800, 600)) << why;
  host.SetState("<State><Responses/></State>");
  EXPECT_TRUE(host.Hide() && host.Show()) << why;
  EXPECT_NE(host.State(), "") << why;
  EXPECT_EQ(Faults(item, false), "") << why;
  EXPECT_TRUE(host.Free()) << why;
  EXPECT_EQ(Reports(item), reports) << why;
}

TEST(BadItem, SaysOnceWhatIsWrongAndKeepsWhatWasBuilt) {
  const struct {
    const char* why;
    std::vector<ItemEdit> edits;
    std::string built;
    std::string reports;
    std::string says;  // part of the first entry
  } rows[] = {
      {"as it should be", {}, "2 6 1 1 5", "", ""},
      {"background missing",
       {{"diagram.png", "none.png"}},
       "2 6 0 0 0",
       "LoadWorkArea",
       "none.png (53)"},
      {"picture of a source item missing",
       {{"lamp.png", "none.png"}},
       "2 1 1 1 5",
       "LoadSourceArea",
       "none.png (53)"},
      {"picture of an empty target missing",
       {{"reading-slot.png", "none.png"}},
       "2 6 1 1 5",
       "LoadWorkArea",
       "none.png (53)"},
      {"where the background stands takes nothing with it",
       {{"ImageLeft=\"0\"", "ImageLeft=\"abc\""}},
       "2 6 1 1 5",
       "LoadWorkArea",
       R"(WorkArea: ImageLeft "abc" is no number (13))"},
      {"a label's alignment",
       {{"Alignment=\"0\">label", "Alignment=\"3\">label"}},
       "2 6 1 0 0",
       "LoadWorkArea",
       R"(Label, Caption: Alignment "3" is not 0, 1 or 2 (380))"},
      {"a label's alignment that is no number",
       {{"Alignment=\"0\">label", "Alignment=\"left\">label"}},
       "2 6 1 0 0",
       "LoadWorkArea",
       R"(Label, Caption: Alignment "left" is not 0, 1 or 2 (13))"},
      {"a font that is neither bold nor not",
       {{"FontBold=\"False\"", "FontBold=\"semi\""}},
       "2 6 1 0 0",
       "LoadWorkArea",
       R"(Label, Caption: FontBold "semi" is neither True nor False (13))"},
      {"a font's size",
       {{"FontSize=\"8\" FontBold=\"False\" FontItalic=\"True\"", "FontSize=\"8pt\""}},
       "2 6 1 1 5",
       "LoadWorkArea",
       R"(Group 1, TargetSettings, Caption: FontSize "8pt" is no number (13))"},
      {"a missing colour",
       {{" ForeColor=\"H795F1F\"", ""}},
       "2 6 1 0 0",
       "LoadWorkArea",
       "Label, Caption: missing ForeColor is no colour (13)"},
      {"a colour without H",
       {{"DrawColor=\"H1B", "DrawColor=\"1B"}},
       "2 6 1 1 0",
       "LoadWorkArea",
       R"(Shape: DrawColor "1B8AC9" is no colour (13))"},
      {"a shape's corner",
       {{R"(X="7500" Y="3300")", R"(X="7500" Y="3,3")"}},
       "2 6 1 1 0",
       "LoadWorkArea",
       R"(Shape, Corner 2: Y "3,3" is no number (13))"},
      {"the sixth callout",
       {{"<Callouts>", Callouts(5)}},
       "2 6 1 5 0",
       "LoadWorkArea",
       R"(Callout 6: CalloutID "1" is one too many: there is room for 5 (340))"},
      {"the ninth group",
       {{"</Groups>", Group("3") + Group("4") + Group("5") + Group("6") + Group("7") + Group("8") +
                          Group("9") + "</Groups>"}},
       "8 0 1 1 5",
       "LoadSourceArea",
       R"(Group 9: GroupID "9" is one too many: there is room for 8 (340))"},
      {"two groups of one name",
       {{"</Groups>", Group("1") + "</Groups>"}},
       "2 0 1 1 5",
       "LoadSourceArea",
       R"(Group 3: GroupID "1" is in use already (457))"},
      {"two targets of one name",
       {{kTarget2, R"(TargetID="1" GroupID="1" AnswerValue="B" Top="300")"}},
       "2 6 1 1 1",
       "LoadWorkArea",
       R"(Target 2: TargetID "1" is in use already (457))"},
      {"a source item of no group",
       {{kSource2, R"(SourceID="2" GroupID="7" AnswerValue="2" NumUses="2")"}},
       "2 1 1 1 5",
       "LoadSourceArea",
       R"(Source 2: GroupID "7" names no group (91))"},
      {"a group's name in other letters is no group",
       {{kSource1, R"(SourceID="1" GroupID="1 " AnswerValue="1" NumUses="1")"}},
       "2 0 1 1 5",
       "LoadSourceArea",
       R"(Source 1: GroupID "1 " names no group (91))"},
      {"uses that are no number",
       {{"NumUses=\"2\"", "NumUses=\"many\""}},
       "2 1 1 1 5",
       "LoadSourceArea",
       R"(Source 2: NumUses "many" is no number (13))"},
      {"a target of no group",
       {{kTarget2, R"(TargetID="2" GroupID="3" AnswerValue="B" Top="300")"}},
       "2 6 1 1 5",
       "LoadWorkArea",
       R"(Target 2: GroupID "3" names no group (9))"},
      {"a target's group that is no number",
       {{kTarget2, R"(TargetID="2" GroupID="x" AnswerValue="B" Top="300")"}},
       "2 6 1 1 1",
       "LoadWorkArea",
       R"(Target 2: GroupID "x" is no number (13))"},
      {"a target's name beyond 16 bits",
       {{kTarget2, R"(TargetID="40000" GroupID="1" AnswerValue="B" Top="300")"}},
       "2 6 1 1 1",
       "LoadWorkArea",
       R"(Target 2: TargetID "40000" is out of range (6))"},
      {"a size that is no number",
       {{"Height=\"4500\"", "Height=\"NaN\""}},
       "2 6 0 0 0",
       "LoadWorkArea",
       R"(WorkArea: Height "NaN" is no number (13))"},
      {"a size beyond every number",
       {{"Height=\"4500\"", "Height=\"1e999\""}},
       "2 6 0 0 0",
       "LoadWorkArea",
       R"(WorkArea: Height "1e999" is out of range (6))"},
      {"a value as long as a page",
       {{"Width=\"7500\"", "Width=\"" + std::string(500, '9') + "\""}},
       "2 6 0 0 0",
       "LoadWorkArea",
       "WorkArea: Width \"" + std::string(40, '9') + "...\" is out of range (6)"},
      {"an item size beyond 16 bits",
       {{"ItemHeight=\"600\"", "ItemHeight=\"99999\""}},
       "0 0 1 1 5",
       "LoadSourceArea",
       R"(Group 1, ItemSettings: ItemHeight "99999" is out of range (6))"},
      {"no authoring display",
       {{"TwipsPerPixelX=\"15\"", ""}},
       "0 0 0 0 0",
       "LoadSourceArea, LoadWorkArea",
       R"(Group 1, ItemSettings: ItemWidth "1500" cannot be measured: )"
       "the item's twips per pixel are 0 (11)"},
      {"an authoring display of 0",
       {{"TwipsPerPixelY=\"15\"", "TwipsPerPixelY=\"0\""}},
       "0 0 0 0 0",
       "LoadSourceArea, LoadWorkArea",
       R"(Group 1, ItemSettings: ItemHeight "600" cannot be measured: )"
       "the item's twips per pixel are 0 (11)"},
      {"an authoring display that is no number",
       {{"TwipsPerPixelY=\"15\"", "TwipsPerPixelY=\"x\""}},
       "0 0 0 0 0",
       "LoadControls",
       R"(DragAndDropItem: TwipsPerPixelY "x" is no number (13))"},
      {"no labels, callouts, shapes or targets",
       {{"<Label ", "<!-- "},
        {"</Label>", "-->"},
        {"<Callout ", "<!-- "},
        {"</Callout>", "-->"},
        {"<Shape ", "<!-- "},
        {"</Shape>", "-->"},
        {"<Target ", "<!-- "},
        {"\n</Targets>", "--></Targets>"}},
       "2 6 0 0 0",
       "",
       ""},
      {"no key", {{"<Answers>", "<Other>"}, {"</Answers>", "</Other>"}}, "2 6 1 1 5", "", ""},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem(row.edits));
    EXPECT_EQ(Built(item), row.built) << row.why;
    EXPECT_EQ(Reports(item), row.reports) << row.why;
    ASSERT_EQ(item.Log().empty(), row.reports.empty()) << row.why;
    if (!item.Log().empty()) {
      EXPECT_TRUE(Contains(item.Log()[0], row.says)) << row.why << ": " << item.Log()[0];
    }
    GoesOn(item, row.why);
  }
}

TEST(BadItem, SaysWhichPictureIsNone) {
  const struct {
    const char* name;
    std::string reports;
  } rows[] = {
      {"diagram.png", "LoadWorkArea"},
      {"lamp.png", "LoadSourceArea"},
      {"reading-slot.png", "LoadWorkArea"},
  };
  for (const auto& row : rows) {
    const auto giveText = [&](std::string_view member,
                              std::span<Variant> arguments) -> std::optional<Variant> {
      if (member != "GetGraphicsPath" || ToText(arguments[0]) != row.name) return std::nullopt;
      return std::string("items/README.md");
    };
    ItemFixture item(SmallItem(), Intercept(giveText));
    EXPECT_EQ(Reports(item), row.reports) << row.name;
    EXPECT_TRUE(Contains(item.Log().at(0), "(481)")) << item.Log().at(0);
    GoesOn(item, row.name);
  }
}

TEST(BadItem, TellsTheCandidateOfACaptionsAlignment) {
  for (const char* alignment : {"3", "-1"}) {
    ItemFixture item(
        SmallItem({{"Alignment=\"2\">here", std::string("Alignment=\"") + alignment + "\">here"}}));
    EXPECT_EQ(item.Messages(),
              (std::vector<std::string>{"Target caption alignment must be a 0,1 or 2"}));
    EXPECT_EQ(item.host.parent().messages().at(0).style, 0);
    EXPECT_EQ(Reports(item), "");
    EXPECT_FALSE(item.form().controls.imgTarget[2].visible()) << "the builder ended there";
    EXPECT_EQ(item.form().tables.TargetList.Item(1).SnapTop, 0) << "and what follows it";
    GoesOn(item, alignment);
  }
}

// A layout that fails half way leaves the source items where the candidate can take them.
TEST(BadItem, KeepsItsSourceItemsInSight) {
  ItemFixture item(SmallItem());
  Splitter& splitter = item.form().controls.spSplitter;
  splitter.RemovePane("ItemStem");
  splitter.AddPane({"Other", 0, 0, {}, nullptr, 0});
  item.form().layout.ItemStemHeightRestored = false;
  item.host.Resize(900, 700);
  EXPECT_EQ(Reports(item), "SizeSourceArea, SizeControls");
  EXPECT_TRUE(item.form().controls.pcSource.visible());
}

// An answer value that is no number cannot be placed: the target stays as it was.
TEST(BadItem, PlacesNoAnswerValueThatIsNoNumber) {
  for (const char* value : {"x", "", "40000", "1.5.2", "NaN"}) {
    ItemFixture item(
        SmallItem({{kSource1, std::string(R"(SourceID="1" GroupID="1" NumUses="1" AnswerValue=")") +
                                  value + "\""}}));
    item.Drag("source 2").To("target A").Release();
    item.Drag("source 1").To("target A");
    EXPECT_TRUE(item.form().controls.pcdroptext.visible()) << value << ": would be a replacement";
    item.Release();
    EXPECT_FALSE(item.form().controls.pcdroptext.visible()) << value;
    item.Wait(2000);
    EXPECT_EQ(item.Responses(), "A2") << value;
    EXPECT_EQ(Reports(item), "TargetDragDrop") << value;
    EXPECT_TRUE(Contains(item.Log()[0], Concatenate({"Source 1: AnswerValue \"", value, "\" is "})))
        << item.Log()[0];
    EXPECT_EQ(Faults(item, false), "") << value;
    item.Drag("source 3").To("target A").Release();
    EXPECT_EQ(item.Responses(), "A3") << value;
  }
}

TEST(BadItem, ThatCannotBeReadIsRefusedAndTheHostGoesOn) {
  const std::string whole = SmallItem().itemXml();
  const struct {
    const char* why;
    std::string xml;
    std::string says;
  } rows[] = {
      {"cut in the middle", whole.substr(0, whole.size() / 2), "line "},
      {"nothing", "", "it is empty"},
      {"two roots", whole + whole, "line "},
      {"a document type", "<!DOCTYPE x>" + whole, "DOCTYPE"},
      {"another document", "<Other/>", "DragAndDropItem"},
      {"a path to nowhere", "/none/item.xml", "/none/item.xml"},
      {"nested beyond reason", Repeat(200'000, "<a>"), "line "},
  };
  for (const auto& row : rows) {
    ItemFolder folder = SmallItem();
    folder.SetItemXml(row.xml);
    ItemFixture item(std::move(folder));
    EXPECT_EQ(item.host.item().form(), nullptr) << row.why;
    ASSERT_EQ(Reports(item), "InitExternalDisplay") << row.why;
    EXPECT_TRUE(Contains(item.Log()[0], row.says)) << row.why << ": " << item.Log()[0];
    EXPECT_FALSE(item.host.Show()) << row.why;
    EXPECT_FALSE(item.host.Hide()) << row.why;
    EXPECT_EQ(item.host.State(), "") << row.why;
    EXPECT_EQ(Reports(item),
              "InitExternalDisplay, DisplayInt_ShowExternalDisplay, DisplayInt_HideExternalDisplay")
        << row.why;
    EXPECT_TRUE(item.host.Free()) << row.why;
  }
}

// Whatever bytes a host hands over: they are told as what they are, and never opened as a path.
TEST(BadItem, SaysWhatItsBytesAre) {
  const std::string xml = SmallItem().itemXml();
  const auto bytes = [](const std::string& text) {
    return std::vector<std::uint8_t>(text.begin(), text.end());
  };
  const auto swapped = [](std::vector<std::uint8_t> units) {
    for (std::size_t at = 0; at + 1 < units.size(); at += 2) std::swap(units[at], units[at + 1]);
    return units;
  };
  const struct {
    const char* why;
    std::vector<std::uint8_t> bytes;
    std::string says;  // nothing: it is an item
  } rows[] = {
      {"a byte-order mark", Utf8ToUtf16Le("\uFEFF" + xml), ""},
      {"blanks and line ends in front", Utf8ToUtf16Le(" \r\n\t" + xml), ""},
      {"UTF-8 as it is", bytes(xml), "it looks like UTF-8"},
      {"UTF-8 of an odd length", bytes(xml + "\n"), "it looks like UTF-8"},
      {"UTF-8 behind a blank", bytes(" " + xml), "it looks like UTF-8"},
      {"UTF-8 with its mark", bytes("\xEF\xBB\xBF" + xml), "it is UTF-8"},
      {"big-endian", swapped(Utf8ToUtf16Le(xml)), "it is big-endian UTF-16"},
      {"big-endian behind a line end", swapped(Utf8ToUtf16Le("\n" + xml)),
       "it is big-endian UTF-16"},
      {"big-endian with its mark", swapped(Utf8ToUtf16Le("\uFEFF" + xml)),
       "it is big-endian UTF-16"},
      {"nothing", {}, "it is empty"},
      {"blanks", Utf8ToUtf16Le("  \r\n"), "it is blank"},
      {"zeros", std::vector<std::uint8_t>(8), "it is blank"},
      {"a mark alone", Utf8ToUtf16Le("\uFEFF"), "it is blank"},
      {"half a unit", bytes("<"), "it looks like UTF-8"},
      {"a path", Utf8ToUtf16Le("items/heart/item.xml"), "it begins with \"items/heart/item.xml\""},
      {"a long text", Utf8ToUtf16Le("é " + std::string(99, 'x')),
       "it begins with \"? xxxxxxxxxxxxxxxxxx\""},
  };
  for (const auto& row : rows) {
    ReferenceHost host(SmallItem());
    host.Init();
    host.item().InitExternalDisplay(SafeArray(row.bytes), 0, 0);
    const std::vector<LogEntry>& log = host.parent().log();
    ASSERT_EQ(log.size(), row.says.empty() ? 0 : 1) << row.why;
    if (log.empty()) continue;
    EXPECT_EQ(log[0].description, "An item is XML in UTF-16, low byte first, but " + row.says)
        << row.why;
    EXPECT_EQ(log[0].number, error_number::kComponent) << row.why;
  }
}

}  // namespace
}  // namespace zav

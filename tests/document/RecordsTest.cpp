// Records, tags, status and the keyed collection: what the item document's texts turn into.
#include "document/Records.h"

#include <gtest/gtest.h>

#include <memory>

#include "automation/Conversions.h"
#include "controls/clsGroup.h"
#include "document/ItemTag.h"
#include "document/KeyedList.h"
#include "document/clsStatus.h"
#include "support/Raised.h"

namespace zav {
namespace {

constexpr const char* kPrefix = "<Visited><cmdShowQuestion/></Visited><ItemType><CT/></ItemType>";

TEST(Records, ConvertKeys) {
  const struct {
    const char* why;
    const char* key;
    const char* want;
  } rows[] = {
      {"the names of the children do not matter",
       "<Answers><Key Weight='2'>A1 AND B2</Key></Answers>",
       R"(<Answers><Answer Expression="A1 AND B2" Weight="2"/></Answers>)"},
      {"in order, a missing weight is empty", "<Answers><k>C3</k> <k Weight='-1'>A1</k></Answers>",
       R"(<Answers><Answer Expression="C3" Weight=""/><Answer Expression="A1" Weight="-1"/></Answers>)"},
      {"text is escaped", "<Answers><k Weight='1'>&lt;\n</k></Answers>",
       R"(<Answers><Answer Expression="&lt;&#10;" Weight="1"/></Answers>)"},
      {"no expressions", "<Answers/>", "<Answers/>"},
      {"the key inside another element", "<Item><Answers><k>A1</k></Answers></Item>",
       R"(<Answers><Answer Expression="A1" Weight=""/></Answers>)"},
      {"no key", "<Item><k>A1</k></Item>", "<Answers/>"},
  };
  for (const auto& row : rows) EXPECT_EQ(ConvertKey(row.key), row.want) << row.why;
}

TEST(Records, ConvertResponsesThereAndBack) {
  const struct {
    const char* why;
    const char* responses;
    const char* userAnswers;
    const char* commaForm;
  } rows[] = {
      {"two, in order", "<Responses><Response>A3</Response><Response>B1</Response></Responses>",
       R"(<UserAnswers><Answer Value="A3"/><Answer Value="B1"/></UserAnswers>)", " A3, B1"},
      {"none", "<Responses/>", "<UserAnswers/>", ""},
      {"one that needs escapes", "<Responses><Response>A&amp;&#13;</Response></Responses>",
       R"(<UserAnswers><Answer Value="A&amp;&#13;"/></UserAnswers>)", " A&\r"},
  };
  for (const auto& row : rows) {
    const std::string record = kPrefix + std::string(row.userAnswers);
    EXPECT_EQ(ConvertResponse(row.responses), record) << row.why;
    EXPECT_EQ(RestoreResponses(record), row.responses) << row.why;
    EXPECT_EQ(CommaForm(row.responses), row.commaForm) << row.why;
  }
}

TEST(Records, MakeAStateOfEveryResponseFormat) {
  const struct {
    const char* why;
    const char* text;
    const char* want;
  } rows[] = {
      {"a section is only wrapped", "<Responses><Response>A3</Response></Responses>",
       "<State><Responses><Response>A3</Response></Responses></State>"},
      {"a host record", "<Visited/><ItemType/><UserAnswers><Answer Value='A3'/></UserAnswers>",
       "<State><Responses><Response>A3</Response></Responses></State>"},
      {"a host record without answers", "<Visited/><ItemType/>", "<State><Responses/></State>"},
      {"a comma list, trimmed", " A3, B1 ",
       "<State><Responses><Response>A3</Response><Response>B1</Response></Responses></State>"},
      {"a comma at the end", "A3,",
       "<State><Responses><Response>A3</Response></Responses></State>"},
      {"nothing between two commas", "A3,,B1",
       "<State><Responses><Response>A3</Response><Response></Response><Response>B1</Response>"
       "</Responses></State>"},
      {"blanks only", "  ", "<State><Responses></Responses></State>"},
      {"an item that is no XML is left to the document", "A&,B1",
       "<State><Responses><Response>A&</Response><Response>B1</Response></Responses></State>"},
  };
  for (const auto& row : rows) EXPECT_EQ(StateFromResponseText(row.text), row.want) << row.why;
}

TEST(Records, RaiseForWhatDoesNotParse) {
  for (const char* bad : {"", "A3", "<Answers>", "<a/><b/>", "</Root><Root>"}) {
    EXPECT_NE(Catch([&] { ConvertKey(bad); }).number, 0) << bad;
    EXPECT_NE(Catch([&] { ConvertResponse(bad); }).number, 0) << bad;
    EXPECT_NE(Catch([&] { CommaForm(bad); }).number, 0) << bad;
  }
  EXPECT_EQ(Catch([] { ConvertKey("A1 AND B2"); }).description,
            "XML error at line 1, column 1: expected an element, found \"A1 AND B2\"")
      << "and no path";
  EXPECT_NE(Catch([] { RestoreResponses("</Root><Root>"); }).number, 0);
  EXPECT_NE(Catch([] { StateFromResponseText("<UserAnswers>"); }).number, 0);
}

TEST(Records, KeepTheStateSectionPresent) {
  const struct {
    const char* why;
    const char* item;
    const char* want;
  } rows[] = {
      {"added at the end", "<DragAndDropItem><Stem/></DragAndDropItem>",
       "<DragAndDropItem><Stem/><State><Responses/></State></DragAndDropItem>"},
      {"one that is there stays, whatever it lacks",
       "<DragAndDropItem><Box><State/></Box></DragAndDropItem>",
       "<DragAndDropItem><Box><State/></Box></DragAndDropItem>"},
      {"not in another document", "<Root><Stem/></Root>", "<Root><Stem/></Root>"},
  };
  for (const auto& row : rows) {
    DataIO document;
    document.LoadXml(row.item);
    document.MoveToChild(0);
    document.SetFromRoot(false);
    const std::string before = document.GetNodeXml("Stem");
    EnsureStateSection(document);
    EXPECT_EQ(document.GetNodeXml("Stem"), before) << row.why << ": cursor and flag given back";
    EXPECT_EQ(document.GetXml(), row.want) << row.why;
  }
}

TEST(Status, CountsResponsesAgainstTheLeast) {
  const std::string screens =
      "<Screens><s Form='frmText' Node='Text'/><s Form='frmMC' Node='Part2'/></Screens>"
      "<Part1><MultipleChoice Min='9'/></Part1><Part2><MultipleChoice Min='3'/></Part2>";
  const std::string two = "<Responses><r>A3</r><r>B1</r></Responses>";
  const std::string three = "<Responses><r>A3</r><r>B1</r><r>C2</r></Responses>";
  const struct {
    const char* why;
    std::string content;
    std::int32_t want;
  } rows[] = {
      {"no section", "", 2},
      {"no responses", "<Responses/>", 2},
      {"any response will do", "<Responses><r>A3</r></Responses>", 100},
      {"fewer than the screen's node asks for", screens + two, 3},
      {"as many as it asks for", screens + three, 100},
      {"none at all comes before too few", screens + "<Responses/>", 2},
      {"another form's node does not count",
       "<Screens><s Form='frmText' Node='P'/></Screens><P><MultipleChoice Min='3'/></P>" + two,
       100},
      {"a node that is not there asks for nothing",
       "<Screens><s Form='frmMC' Node='P'/></Screens>" + two, 100},
      {"a node without the element asks for nothing",
       "<Screens><s Form='frmMC' Node='P'/></Screens><P/><MultipleChoice Min='3'/>" + two, 100},
  };
  for (const auto& row : rows) {
    DataIO document;
    document.LoadXml("<Item><at>here</at>" + row.content + "</Item>");
    document.FindNode("at");
    document.SetFromRoot(false);
    clsStatus status;
    status.DataIO = &document;
    EXPECT_EQ(std::get<std::int32_t>(status.AnswerStatus()), row.want) << row.why;
    EXPECT_EQ(ToText(document.GetText()), "here") << row.why << ": cursor given back";
    EXPECT_FALSE(document.GetFromRoot()) << row.why << ": flag given back";
  }
  EXPECT_EQ(Catch([] { (void)clsStatus().AnswerStatus(); }).number, 91) << "after the release";
}

TEST(ItemTag, HasThreeFields) {
  const struct {
    const char* why;
    const char* tag;
    const char* object;
    const char* group;
    const char* answer;
    const char* withX;
  } rows[] = {
      {"a source", "3*1*2", "3", "1", "2", "3*1*X"},
      {"a target that holds an item", "12*10*A21", "12", "10", "A21", "12*10*X"},
      {"empty fields", "**", "", "", "", "**X"},
      {"what follows the second star is the answer", "1*2*3*4", "1", "2", "3*4", "1*2*X"},
      {"one star", "1*2", "1", "2", "", "1*2*X"},
      {"no star", "Dragging", "Dragging", "", "", "Dragging**X"},
      {"no tag", "", "", "", "", "**X"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(GetObjectId(row.tag), row.object) << row.why;
    EXPECT_EQ(GetGroupId(row.tag), row.group) << row.why;
    EXPECT_EQ(GetAnswerId(row.tag), row.answer) << row.why;
    EXPECT_EQ(SetAnswerId(row.tag, "X"), row.withX) << row.why;
  }
}

TEST(KeyedList, FindsByPositionAndByKey) {
  KeyedList<std::unique_ptr<int>> list;
  const std::unique_ptr<int>& first = list.Add(std::make_unique<int>(10), "alpha");
  for (int i = 0; i < 1000; ++i) list.Add(std::make_unique<int>(i), std::to_string(i));
  EXPECT_EQ(&list.Item("ALPHA"), &first) << "no case, and references stay";
  EXPECT_EQ(*list.Item(1), 10);
  EXPECT_EQ(*list.Item("7"), 7);
  EXPECT_EQ(*list.Item(9), 7) << "the key is no position";
  EXPECT_EQ(Catch([&] { list.Add(nullptr, "Alpha"); }).number, 457);
  EXPECT_EQ(list.Count(), 1001) << "a refused item is not in the list";
  EXPECT_EQ(Catch([&] { list.Item(0); }).number, 9);
  EXPECT_EQ(Catch([&] { list.Item(1002); }).number, 9);
  EXPECT_EQ(Catch([&] { list.Item("1000"); }).number, 5);
}

TEST(Group, KeepsAStartLocationThatIsANumber) {
  clsGroup group;
  EXPECT_EQ(group.StartLocation(), "0");
  group.SetStartLocation(" 1e2 ");
  EXPECT_EQ(group.StartLocation(), "100");
  EXPECT_EQ(Catch([&] { group.SetStartLocation("x"); }).number, 13);
  EXPECT_EQ(group.StartLocation(), "100");
}

}  // namespace
}  // namespace zav

#include "document/DataIO.h"

#include <gtest/gtest.h>

#include "automation/Conversions.h"
#include "support/Raised.h"

namespace zav {
namespace {

using namespace std::string_literals;

// Every element carries its place, so that a test can ask where the cursor is.
constexpr const char* kItem =
    R"(<Item at="top"><Stem at="stem"><Text at="stem text">S</Text></Stem>)"
    R"(<State at="state"><Responses at="responses"><Response at="r0">A3</Response>)"
    R"(<Response at="r1">B1</Response></Responses><Text at="state text">T</Text></State>)"
    R"(<Tail at="tail"/></Item>)";

bool IsEmpty(const Variant& value) { return std::holds_alternative<std::monostate>(value); }

class DataIOTest : public testing::Test {
 protected:
  DataIOTest() { item.LoadXml(kItem); }

  std::string At() { return ToText(item.GetAttribute("at")); }

  DataIO item;
};

TEST_F(DataIOTest, SearchesTheScopeInDocumentOrder) {
  const struct {
    const char* why;
    const char* start;
    bool fromRoot;
    const char* name;
    const char* want;  // the cursor afterwards; null: not found, cursor as before
  } rows[] = {
      {"whole document: the first in order", "State", true, "Text", "stem text"},
      {"inside the section only", "State", false, "Text", "state text"},
      {"not outside the section", "State", false, "Tail", nullptr},
      {"not above the section", "State", false, "Item", nullptr},
      {"the section by its own name", "State", false, "State", "state"},
      {"not the next sibling of the section", "Stem", false, "State", nullptr},
      {"nothing below a leaf", "Tail", false, "Text", nullptr},
      {"the case counts", "State", true, "text", nullptr},
      {"no name is no element", "State", true, "", nullptr},
      {"text is no element", "State", true, "S", nullptr},
  };
  for (const auto& row : rows) {
    item.SetFromRoot(true);
    ASSERT_TRUE(item.FindNode(row.start));
    const std::string before = At();
    item.SetFromRoot(row.fromRoot);
    EXPECT_EQ(item.FindNode(row.name), row.want != nullptr) << row.why;
    EXPECT_EQ(At(), row.want != nullptr ? row.want : before) << row.why;
  }
}

TEST_F(DataIOTest, ActsOnTheFirstElementInScope) {
  item.FindNode("Responses");
  item.SetFromRoot(false);
  EXPECT_TRUE(item.AddNode("Responses", "Response")) << "the current element by its own name";
  EXPECT_TRUE(item.SetText("C2"));
  item.MoveToParent();
  EXPECT_EQ(At(), "responses");
  EXPECT_EQ(ToText(item.GetChildText(2)), "C2");

  item.MoveToChild(1);
  EXPECT_TRUE(item.RemoveNode("Response")) << "this response, not the first one";
  EXPECT_EQ(At(), "top") << "the cursor was removed with it";
  item.SetFromRoot(true);
  EXPECT_EQ(item.GetNodeXml("Responses"),
            R"(<Responses at="responses"><Response at="r0">A3</Response><Response>C2</Response>)"
            R"(</Responses>)");

  item.FindNode("Stem");
  EXPECT_TRUE(item.RemoveNode("Response"));
  EXPECT_EQ(At(), "stem") << "a cursor elsewhere stays";
  EXPECT_FALSE(item.RemoveNode("Screens"));
  EXPECT_FALSE(item.AddNode("Screens", "Screen"));
  EXPECT_FALSE(item.InsertXml("Screens", "<Screen/>"));
  EXPECT_EQ(item.GetNodeXml("Screens"), "");
  EXPECT_EQ(At(), "stem") << "absence moves nothing";
}

TEST_F(DataIOTest, CountsElementChildrenOnly) {
  item.LoadXml("<a> x <b k='0'>B</b> y <!-- --> <c k='1'/> <b k='2'/></a>");
  EXPECT_EQ(item.ChildCount(), 3);
  EXPECT_EQ(ToText(item.GetChildAttribute(2, "k")), "2");
  EXPECT_EQ(ToText(item.GetChildAttribute(0, "k")), "0") << "back from a later position";
  EXPECT_EQ(ToText(item.GetChildAttributeByName("b", "k")), "0") << "the first of that name";
  EXPECT_EQ(ToText(item.GetChildText(0)), "B");
  for (const std::int32_t index : {-1, 3, 2147483647}) {
    EXPECT_FALSE(item.MoveToChild(index)) << index;
    EXPECT_TRUE(IsEmpty(item.GetChildText(index))) << index;
    EXPECT_TRUE(IsEmpty(item.GetChildAttribute(index, "k"))) << index;
  }
  EXPECT_TRUE(IsEmpty(item.GetChildAttributeByName("d", "k")));
  EXPECT_TRUE(IsEmpty(item.GetAttribute("k"))) << "missing is empty, not an empty text";
  EXPECT_FALSE(item.MoveToParent()) << "nothing is above the document element";
}

TEST_F(DataIOTest, SeesChildrenThatCameAndWentDuringAWalk) {
  item.LoadXml("<a><b k='0'/><b k='1'/><b k='2'/></a>");
  EXPECT_EQ(ToText(item.GetChildAttribute(1, "k")), "1");
  item.RemoveNode("b");
  EXPECT_EQ(ToText(item.GetChildAttribute(1, "k")), "2");
  EXPECT_TRUE(IsEmpty(item.GetChildAttribute(2, "k")));
  item.InsertXml("a", "<b k='3'/>");
  EXPECT_EQ(ToText(item.GetChildAttribute(2, "k")), "3");
}

TEST_F(DataIOTest, HandlesToRemovedElementsLeadToTheDocumentElement) {
  item.FindNode("Response");
  const NodeHandle response = item.GetCurrentNode();
  item.FindNode("Tail");
  item.SetCurrentNode(response);
  EXPECT_EQ(At(), "r0");

  item.RemoveNode("Response");
  EXPECT_EQ(At(), "top");
  item.InsertXml("Responses", "<Response at='new'/>");
  item.FindNode("Tail");
  item.SetCurrentNode(response);
  EXPECT_EQ(At(), "top") << "the place of a removed element may be taken by a new one";

  item.FindNode("Tail");
  const NodeHandle tail = item.GetCurrentNode();
  item.LoadXml(kItem);
  item.FindNode("Stem");
  item.SetCurrentNode(tail);
  EXPECT_EQ(At(), "top") << "an element of the document before";
  item.RemoveNode("Item");
  item.SetCurrentNode(tail);
  EXPECT_EQ(item.GetXml(), "");
  item.SetCurrentNode({4000000, 1});
  EXPECT_FALSE(item.MoveToTop());
}

TEST_F(DataIOTest, GivesCursorAndFlagBack) {
  item.FindNode("State");
  item.SetFromRoot(false);
  {
    const CursorScope keep(item);
    item.SetFromRoot(true);
    item.FindNode("Tail");
  }
  EXPECT_EQ(At(), "state");
  EXPECT_FALSE(item.GetFromRoot());
}

TEST(DataIO, WithoutADocumentNothingIsFound) {
  DataIO document;
  for (int round = 0; round < 2; ++round) {
    EXPECT_FALSE(document.MoveToTop() || document.MoveToChild(0) || document.MoveToParent() ||
                 document.FindNode("a") || document.RemoveNode("a") ||
                 document.InsertXml("a", "<b/>") || document.AddNode("a", "b") ||
                 document.SetText("t") || document.SetAttribute("a", "v") ||
                 document.HasAttribute("a"));
    EXPECT_TRUE(IsEmpty(document.GetText()));
    EXPECT_EQ(document.GetXml() + document.GetNodeXml("a"), "");
    EXPECT_EQ(document.ChildCount(), 0);
    const CursorScope keep(document);
    document.LoadXml("<a/>");
    document.Clear();
  }
}

TEST(DataIO, AFailedLoadOrInsertionChangesNothing) {
  DataIO document;
  document.LoadXml("<a><b>1</b></a>");
  document.FindNode("b");
  for (const char* bad : {"<c>", "<c/><d/>", "c", "", "<!DOCTYPE c><c/>"}) {
    EXPECT_NE(Catch([&] { document.LoadXml(bad); }).number, 0) << bad;
    EXPECT_NE(Catch([&] { document.InsertXml("a", bad); }).number, 0) << bad;
  }
  EXPECT_EQ(document.GetXml(), "<a><b>1</b></a>");
  EXPECT_EQ(ToText(document.GetText()), "1");
}

TEST(DataIO, WritesWhatParsesBackToTheSame) {
  const struct {
    const char* why;
    const char* source;
    const char* want;
  } rows[] = {
      {"no declaration, comment or instruction", "<?xml version='1.0'?><a><!-- c --><?p q?></a>",
       "<a/>"},
      {"attributes in their order", "<a z='1' b='2' m='3'/>", R"(<a z="1" b="2" m="3"/>)"},
      {"white space between elements", "<a>\n  <b/>\n</a>", "<a>\n  <b/>\n</a>"},
      {"markup characters in text", "<a>&lt;&amp;&gt;'\"</a>", "<a>&lt;&amp;&gt;'\"</a>"},
      {"markup characters in a value", "<a b='&lt;&amp;&gt;&apos;\"'/>",
       R"(<a b="&lt;&amp;&gt;'&quot;"/>)"},
      {"line ends and tab in a value", "<a b='1&#13;&#10;2&#9;3'/>",
       R"(<a b="1&#13;&#10;2&#9;3"/>)"},
      {"raw line ends in a value are blanks, as XML says", "<a b='1\r\n2\t3'/>",
       R"(<a b="1 2 3"/>)"},
      {"carriage returns in text", "<a>1\r\n2&#13;3</a>", "<a>1&#13;\n2&#13;3</a>"},
      {"siblings after deep ends", "<a><b><c><d/></c></b><e>1</e>2</a>",
       "<a><b><c><d/></c></b><e>1</e>2</a>"},
  };
  for (const auto& row : rows) {
    DataIO document;
    document.LoadXml(row.source);
    EXPECT_EQ(document.GetXml(), row.want) << row.why;
    document.LoadXml(row.want);
    EXPECT_EQ(document.GetXml(), row.want) << row.why << ": again";
  }
}

TEST(DataIO, WritesAnElementSoThatItStandsByItself) {
  DataIO document;
  document.LoadXml("<a xmlns:x='u' xmlns:y='v'><b xmlns:y='w'><x:c y:d='1'/></b></a>");
  EXPECT_EQ(document.GetNodeXml("x:c"), R"(<x:c y:d="1" xmlns:y="w" xmlns:x="u"/>)");
  EXPECT_EQ(Catch([&] { DataIO().LoadXml(document.GetNodeXml("b")); }).number, 0);
}

TEST(DataIO, StoresOnlyWhatXmlCanCarry) {
  DataIO document;
  document.LoadXml("<a b='0'><c/>text</a>");
  EXPECT_TRUE(document.SetText("<&>\r\n"));
  EXPECT_TRUE(document.SetAttribute("b", "\"\t"));
  EXPECT_TRUE(document.SetAttribute("xml:lang", "fr"));
  const std::string kept = document.GetXml();
  EXPECT_EQ(kept, "<a b=\"&quot;&#9;\" xml:lang=\"fr\">&lt;&amp;&gt;&#13;\n</a>");
  for (const std::string& text : {"\x01"s, "\0"s, "\xFF"s, "\xEF\xBF\xBF"s, "\xED\xA0\x80"s}) {
    EXPECT_EQ(Catch([&] { document.SetText(text); }).number, 5);
    EXPECT_EQ(Catch([&] { document.SetAttribute("b", text); }).number, 5);
  }
  for (const char* name : {"", "1", "a b", "a ", "a/><b", "x:a", "a='1' b", "xmlns:x"}) {
    EXPECT_EQ(Catch([&] { document.AddNode("a", name); }).number, 5) << name;
    EXPECT_EQ(Catch([&] { document.SetAttribute(name, "v"); }).number, 5) << name;
  }
  EXPECT_EQ(document.GetXml(), kept);
  EXPECT_TRUE(document.SetText(""));
  EXPECT_EQ(document.ChildCount(), 0);
}

TEST(DataIO, LoadsFilesInTheirEncodings) {
  const std::string utf16 = "<\0a\0>\0\xE9\0\r\0\n\0<\0/\0a\0>\0"s;
  std::string bigEndian = utf16;
  for (std::size_t at = 0; at < utf16.size(); ++at) bigEndian[at] = utf16[at ^ 1];
  const struct {
    const char* why;
    std::string bytes;
  } rows[] = {
      {"UTF-8", "<a>\xC3\xA9\r\n</a>"},
      {"UTF-8 with its mark", "\xEF\xBB\xBF<?xml version='1.0'?><a>\xC3\xA9\r\n</a>"},
      {"UTF-16, low byte first", "\xFF\xFE" + utf16},
      {"UTF-16, high byte first", "\xFE\xFF" + bigEndian},
      {"ISO-8859-1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9\r\n</a>"},
  };
  for (const auto& row : rows) {
    std::string asked;
    DataIO document([&](const std::string& path) {
      asked = path;
      return std::vector<std::uint8_t>(row.bytes.begin(), row.bytes.end());
    });
    document.LoadXml("C:\\Static.xml");
    EXPECT_EQ(ToText(document.GetText()), "\xC3\xA9\r\n") << row.why;
    EXPECT_EQ(asked, "C:\\Static.xml");
  }
}

TEST(DataIO, NamesTheFileThatItCannotRead) {
  const std::string bad = "<a>\n<b></a>";
  DataIO document(
      [&](const std::string&) { return std::vector<std::uint8_t>(bad.begin(), bad.end()); });
  const Raised raised = Catch([&] { document.LoadXml("Static.xml"); });
  EXPECT_EQ(raised.description.rfind("XML error in Static.xml at line 2, column 6: ", 0), 0U)
      << raised.description;
  EXPECT_EQ(Catch([] { DataIO().LoadXml("Static.xml"); }).number, 53) << "no reader, no file";
}

TEST(DataIO, IsDrivenByName) {
  DataIO document;
  Object& object = document;
  object.Call("LoadXml", "<a><b k='1'>x</b><b/></a>"s);
  EXPECT_TRUE(std::get<bool>(object.Call("findnode", "b"s)));
  const Variant node = object.Call("GetCurrentNode");
  EXPECT_EQ(std::get<std::string>(object.Call("GetAttribute", "k"s)), "1");
  object.Call("MoveToTop");
  EXPECT_EQ(std::get<std::int32_t>(object.Call("ChildCount")), 2);
  object.Call("SetCurrentNode", node);
  EXPECT_EQ(std::get<std::string>(object.Call("GetText")), "x");
  EXPECT_EQ(Catch([&] { object.Call("SetCurrentNode", 7); }).number, 13);
  EXPECT_EQ(Catch([&] { object.Call("FindNodes", "b"s); }).number, 438);
}

}  // namespace
}  // namespace zav

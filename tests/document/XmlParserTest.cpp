// What is accepted as XML, where errors are placed, and that size and depth do no harm.
#include <gtest/gtest.h>

#include "automation/Conversions.h"
#include "document/DataIO.h"
#include "document/XmlParser.h"
#include "support/Raised.h"

namespace zav {
namespace {

using namespace std::string_literals;

Raised Load(const std::string& source) {
  return Catch([&] { DataIO().LoadXml(source); });
}

TEST(XmlParser, PlacesWhatIsNotWellFormed) {
  const struct {
    const char* why;
    std::string source;
    const char* want;
  } rows[] = {
      {"cut in the middle", "<a>\n <b>text", "line 2, column 9: expected </b>, found the end"},
      {"cut inside a tag", "<a>\n<b x='1", "line 2, column 1: expected the end of what begins"},
      {"end tag of another element", "<a>\r\n<b></a>", "line 2, column 6: expected </b>, found"},
      {"end tag too many", "<a/></b>", "line 1, column 6: expected what may stand"},
      {"two roots", "<a/>\n<b/>", "line 2, column 1: expected nothing after the document element"},
      {"text after the root", "<a/> x", "line 1, column 6: expected nothing after"},
      {"text before the root", "<?xml version='1.0'?>\nx<a/>", "line 2, column 2: "},
      {"only a comment", "<!-- c -->", "line 1, column 11: expected an element, found the end"},
      {"duplicate attribute", "<a b='1' c='2' b='3'/>", "column 16: expected each attribute once"},
      {"attribute without quotes", "<a b=1/>", "line 1, column 6: "},
      {"attributes without a blank", "<a b='1'c='2'/>", "line 1, column 9: "},
      {"less-than sign in a value", "<a b='<'/>", "line 1, column 7: "},
      {"undefined entity", "<a>&nbsp;</a>", "column 4: expected amp, lt, gt, quot or apos"},
      {"bare ampersand", "<a>R&D</a>", "line 1, column 7: "},
      {"reference to no character", "<a>&#0;</a>", "column 4: expected the number of a character"},
      {"reference to a surrogate", "<a>&#xD800;</a>", "column 4: expected the number"},
      {"reference beyond the last character", "<a>&#x110000;</a>", "column 4: expected the num"},
      {"control character", "<a>x\x01</a>",
       "line 1, column 5: expected what may stand here in XML,"
       " found the byte 0x01"},
      {"NUL", "<a>x\0</a>"s, "line 1, column 5: "},
      {"ill-formed UTF-8", "<a>\xC3\xA9\xFF</a>", "line 1, column 5: "},
      {"end of a section in text", "<a>]]></a>", "line 1, column 6: "},
      {"section without end", "<a><![CDATA[x</a>", "expected ]]>, found the end"},
      {"two hyphens in a comment", "<a><!-- -- --></a>", "line 1, column 11: "},
      {"declaration not at the beginning", " <?xml version='1.0'?><a/>", "line 1, column 2: "},
      {"name beginning with a digit", "<1a/>", "line 1, column 2: "},
      {"blank before the name", "< a/>", "line 1, column 2: "},
      {"unbound prefix of an element", "<a>\n<x:b/></a>", "line 2, column 1: expected a declared"},
      {"unbound prefix of an attribute", "<a x:b='1'/>", "expected a declared prefix, found \"x:b"},
      {"prefix out of its scope", "<a><b xmlns:x='u'/><x:c/></a>",
       "column 20: expected a declared"},
      {"prefix bound to nothing", "<a xmlns:x=''/>", "expected a namespace"},
      {"prefix xml bound anew", "<a xmlns:xml='u'/>", "reserved"},
      {"two colons", "<a xmlns:x='u'><x:b:c/></a>", "column 16: expected a name with at most one"},
      {"two colons in a declaration", "<a xmlns:x:y='u'/>",
       "column 1: expected a name with at most one"},
      {"a declaration's prefix as an element's", "<xmlns:a/>", "expected a declared prefix"},
      {"one attribute under two prefixes", "<a xmlns:p='u' xmlns:q='u' p:b='1' q:b='2'/>",
       "expected each attribute once, found \"q:b\""},
      {"DOCTYPE", "<!DOCTYPE a><a/>", "expected an element, found <!DOCTYPE a>"},
      {"entities that multiply", "<!DOCTYPE a [<!ENTITY b 'bb'><!ENTITY c '&b;&b;'>]>\n<a>&c;</a>",
       "found <!DOCTYPE a>"},
  };
  for (const auto& row : rows) {
    const Raised raised = Load(row.source);
    EXPECT_EQ(raised.number, error_number::kComponent) << row.why;
    EXPECT_NE(raised.description.find(row.want), std::string::npos)
        << row.why << ": " << raised.description;
  }
}

TEST(XmlParser, AcceptsWhatIsWellFormed) {
  const struct {
    const char* why;
    std::string source;
  } rows[] = {
      {"a byte-order mark", "\xEF\xBB\xBF<a/>"},
      {"blanks before the root", " \r\n\t<a/>\n"},
      {"a declaration of another encoding: text is always UTF-8",
       "<?xml version='1.0' encoding='UTF-16'?><a>\xC3\xA9</a>"},
      {"a declaration of an unknown encoding", "<?xml version='1.0' encoding='x-none'?><a/>"},
      {"a comment and an instruction on both sides", "<?p q?><!-- c --><a/><!-- d --><?p q?>"},
      {"a prefix inside the scope of its declaration", "<x:a xmlns:x='u'><b x:c='1'/></x:a>"},
      {"a declaration after its use in the same tag", "<a x:b='1' xmlns:x='u'/>"},
      {"a prefix that stays bound after an inner binding",
       "<a xmlns:x='u'><b xmlns:x='v'/><x:c/></a>"},
      {"the prefix that is always bound", "<a xml:space='preserve'/>"},
      {"one local name in two namespaces", "<a xmlns:p='u' xmlns:q='v' p:b='1' q:b='2' b='3'/>"},
      {"names in other scripts", "<\xC3\xA9l\xC3\xA9ment \xE5\x80\xA4='1'/>"},
  };
  for (const auto& row : rows) {
    const Raised raised = Load(row.source);
    EXPECT_EQ(raised.number, 0) << row.why << ": " << raised.description;
  }
}

TEST(XmlParser, KeepsTextExactly) {
  const struct {
    const char* why;
    std::string source;
    std::string text;
  } rows[] = {
      {"blanks and line ends", "<a>  x\n\ty </a>", "  x\n\ty "},
      {"line ends of all three kinds", "<a>1\r\n2\r3\n4</a>", "1\r\n2\r3\n4"},
      {"line ends after characters of several bytes", "<a>\xE2\x82\xAC\r\n\xE2\x82\xAC\r</a>",
       "\xE2\x82\xAC\r\n\xE2\x82\xAC\r"},
      {"line ends as references", "<a>&#13;&#10;&#x9;</a>", "\r\n\t"},
      {"a section", "<a>1<![CDATA[<&>\r\n]]>2</a>", "1<&>\r\n2"},
      {"the predefined entities", "<a>&lt;&gt;&amp;&quot;&apos;</a>", "<>&\"'"},
      {"texts on both sides of a comment", "<a>1<!-- 2 -->3</a>", "13"},
      {"the texts of descendants in order", "<a>1<b>2<c>3</c></b>4<d/>5</a>", "12345"},
  };
  for (const auto& row : rows) {
    DataIO document;
    document.LoadXml(row.source);
    EXPECT_EQ(ToText(document.GetText()), row.text) << row.why;
    DataIO again;
    again.LoadXml(document.GetXml());
    EXPECT_EQ(ToText(again.GetText()), row.text) << row.why << ": written and read again";
  }
}

std::string Repeat(int count, const char* part) {
  std::string text;
  for (int i = 0; i < count; ++i) text += part;
  return text;
}

TEST(XmlParser, BearsDepthAndSize) {
  constexpr int kDepth = 200000;
  const std::string deep =
      Repeat(kDepth, "<p:a xmlns:p=\"u\">") + "<end/>" + Repeat(kDepth, "</p:a>");
  DataIO document;
  document.LoadXml(deep);
  EXPECT_TRUE(document.FindNode("end"));
  EXPECT_EQ(document.GetXml(), deep);
  EXPECT_TRUE(document.RemoveNode("p:a"));
  EXPECT_EQ(Load(Repeat(kDepth, "<a>")).number, error_number::kComponent) << "freed half built";

  const std::string value(10 << 20, 'x');
  document.LoadXml("<a b=\"" + value + "\"/>");
  EXPECT_EQ(ToText(document.GetAttribute("b")), value);

  document.LoadXml("<a>" + Repeat(100000, "<b/> ") + "</a>");
  for (std::int32_t index = 0; index < document.ChildCount(); ++index) {
    ASSERT_TRUE(document.MoveToChild(index));
    ASSERT_TRUE(document.MoveToParent());
  }
}

TEST(XmlParser, LeavesNothingOfAFailedRunInTheTree) {
  XmlTree tree;
  EXPECT_NE(Catch([&] { ParseXml(tree, "<a><b>", XmlEncoding::Utf8); }).number, 0);
  EXPECT_LE(tree.AddElement("c"), 2U) << "the places of a and b are free again";
}

}  // namespace
}  // namespace zav

// The pages around an item, byte for byte against files written by hand, how the item's own pages
// come to be, and what becomes of events in them.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "automation/Text.h"
#include "form/ChromePages.h"
#include "form/FormCore.h"
#include "support/SmallItem.h"
#include "support/TemporaryFolder.h"

namespace zav {
namespace {

std::string ReadExpected(const std::string& name) {
  std::ifstream file("tests/form/expected/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(ChromePages, AreWrittenByteForByte) {
  const FooterButton reset{"btnReset", "Reset"};
  const FooterButton instructions{"btnInstructions", "Instructions"};
  const struct {
    const char* file;
    std::string page;
  } rows[] = {
      {"title.html", createTitle("The <b>heart</b> &amp; lungs")},
      {"work-heading.html", createWorkHeading("Front view")},
      {"area-title.html", createAreaTitle("<html>Names</html>")},
      {"callout.html", createCallout("Wires are <b>ideal</b>.", "40")},
      {"left-edge.html", createLeftEdge()},
      {"right-edge.html", createRightEdge()},
      {"bottom.html", createBottom()},
      {"two-buttons.html", createButtons({reset, instructions})},
      {"four-buttons.html", createButtons({reset,
                                           instructions,
                                           {"btnCalculator", "Calculator"},
                                           {"btnSetAnswers", "Set Answers"}})},
  };
  for (const auto& row : rows) EXPECT_EQ(row.page, ReadExpected(row.file)) << row.file;
}

std::vector<std::string> ButtonIds(const std::string& page) {
  std::vector<std::string> ids;
  for (std::size_t at = page.find("<Button id=\""); at != std::string::npos;
       at = page.find("<Button id=\"", at + 1)) {
    ids.push_back(page.substr(at + 12, page.find('"', at + 12) - at - 12));
  }
  return ids;
}

TEST(ItemPages, OfferTheButtonsThatTheHostWants) {
  const struct {
    const char* why;
    std::int32_t lOptions;
    std::vector<std::string> want;
  } rows[] = {
      {"the two of every item, reset first", 0, {"btnReset", "btnInstructions"}},
      {"read-only shows the same", 0x1, {"btnReset", "btnInstructions"}},
      {"the calculator", 0x100, {"btnReset", "btnInstructions", "btnCalculator"}},
      {"Set Answers", 0x10, {"btnReset", "btnInstructions", "btnSetAnswers"}},
      {"both", 0x110, {"btnReset", "btnInstructions", "btnCalculator", "btnSetAnswers"}},
      {"other bits say nothing", 0x1022, {"btnReset", "btnInstructions"}},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem(), WithOptions(row.lOptions));
    EXPECT_EQ(ButtonIds(item.form().controls.brwButtons.page()), row.want) << row.why;
  }
}

TEST(ItemPages, NameTheirPicturesByFullPath) {
  const TemporaryFolder folder;
  const std::string support = folder.Path("");
  HostOptions options;
  options.supportFolder = support;
  ItemFixture item(SmallItem({{"Top=\"3600\"", "Top=\"-15\""},
                              {"Height=\"600\" Width=\"1500\">\n<Body>Mind the gap.",
                               "Height=\"640\" Width=\"1500\"><Body>&lt;img src=\"bulb.png\">"},
                              {"What goes where?", "&lt;img src=\"none.png\">"}}),
                   options);
  FormControls& controls = item.form().controls;
  const std::string bulb = ItemFolder("items/circuit").GraphicsPath("bulb.png");
  const struct {
    const char* why;
    const HtmlPane& pane;
    std::string part;
  } rows[] = {
      {"a page of the form's own", controls.brwButtons,
       "BACKGROUND-IMAGE:url(" + support + "Bottom_bar_tilekvt.bmp);"},
      {"a callout's background", controls.txtCallout[1],
       "BACKGROUND-IMAGE:url(" + support + "Calloutbackgroundkvt.bmp);"},
      {"a picture in a callout", controls.txtCallout[1], "<img src=\"" + bulb + "\">"},
      {"a callout's row is as high as the callout, fractions kept", controls.txtCallout[1],
       ".TitleRow{HEIGHT: 42.66667px;}"},
      {"the heading of a group", controls.txtSourceHeading[2], "<html>Group 2</html>"},
      {"the title", controls.brwTitle, "<SPAN class=\"Title\">Small</SPAN>"},
      {"the work heading", controls.txtWorkHeading, "<SPAN class=\"Title\">Boxes</SPAN>"},
  };
  for (const auto& row : rows) {
    EXPECT_TRUE(Contains(row.pane.page(), row.part)) << row.why << ": " << row.pane.page();
  }
  EXPECT_EQ(controls.txtCallout[1].tag(), "0:360:42.66667:100:1") << "above the edge reads as 0";
  EXPECT_EQ(controls.txtCallout[2].tag(), "") << "no callout";
}

TEST(ItemPages, ShowHtmlOnlyWhereItBeginsExactlyThere) {
  const struct {
    const char* why;
    const char* text;
    bool shown;
  } rows[] = {
      {"as it should be", "&lt;html&gt;x", true},
      {"in upper case", "&lt;HTML&gt;x", false},
      {"behind a blank", " &lt;html&gt;x", false},
      {"plain", "x", false},
  };
  for (const auto& row : rows) {
    const std::string heading = std::string("<GroupHeading>") + row.text;
    ItemFixture item(SmallItem({{"<Text>&lt;html&gt;What", std::string("<Text>") + row.text},
                                {"<GroupHeading>&lt;html&gt;", heading}}));
    FormControls& controls = item.form().controls;
    EXPECT_EQ(!controls.txtItemStem.page().empty(), row.shown) << row.why;
    EXPECT_EQ(!controls.txtSourceHeading[1].page().empty(), row.shown) << row.why;
    EXPECT_TRUE(controls.txtSourceHeading[1].visible()) << row.why;
    EXPECT_EQ(Reports(item), "") << row.why;
  }
}

TEST(PageEvents, AreKeptFromTheHostButForKeysWithAlt) {
  ItemFixture item(SmallItem());
  const struct {
    const char* why;
    const char* type;
    bool alt;
    bool passes;
    int key;
  } rows[] = {
      {"no text can be selected", "selectstart", false, false, 65},
      {"keys are swallowed", "keydown", false, false, 32},
      {"but for those with Alt", "keydown", true, true, 65},
      {"whatever else happens is none of ours", "mousemove", false, true, 65},
  };
  for (HtmlPane* pane : item.form().controls.HtmlPanes()) {
    for (const auto& row : rows) {
      PageEvent event{.type = row.type, .sourceId = "", .altKey = row.alt, .keyCode = 65};
      pane->RaisePageEvent(event);
      EXPECT_EQ(event.cancelBubble, !row.passes) << pane->name() << ": " << row.why;
      EXPECT_EQ(event.returnValue, row.passes) << pane->name() << ": " << row.why;
      EXPECT_EQ(event.clearSelection, std::string_view(row.type) == "selectstart") << pane->name();
      EXPECT_EQ(event.keyCode, row.key) << pane->name() << ": " << row.why;
    }
  }
  PageEvent event{.type = "keydown", .sourceId = "", .altKey = false, .keyCode = 65};
  item.form().controls.brwBottom.RaisePageEvent(event);
  EXPECT_TRUE(event.returnValue) << "the bottom bar hears nothing";
}

TEST(FooterClicks, AreRoutedByTheButtonsId) {
  const struct {
    const char* why;
    std::int32_t lOptions;
    const char* id;
    std::string messages;
    std::string responses;
    std::string reports;
  } rows[] = {
      {"Reset asks, and resets when the answer is OK", 0, "btnReset", "1", "", ""},
      {"Reset does nothing in a read-only item", 0x1, "btnReset", "", "A1", ""},
      {"Set Answers asks nothing", 0x10, "btnSetAnswers", "", "A1 B2 D12", ""},
      {"no other id means anything", 0x10, "", "", "A1", ""},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem(), WithOptions(row.lOptions));
    item.host.SetState("<State><Responses><Response>A1</Response></Responses></State>");
    item.host.Show();
    PageEvent event{.type = "click", .sourceId = row.id};
    item.form().controls.brwButtons.RaisePageEvent(event);
    std::string styles;
    for (const ShownMessage& message : item.host.parent().messages()) {
      styles += std::to_string(message.style);
    }
    EXPECT_EQ(styles, row.messages) << row.why;
    EXPECT_EQ(item.Responses(), row.responses) << row.why;
    EXPECT_EQ(Reports(item), row.reports) << row.why;
  }
}

}  // namespace
}  // namespace zav

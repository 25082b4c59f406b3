// The form's rules that need no screen: where a drop lands, where panes and groups stand, how a
// picture and a text share an item's room, how a glide goes, and which paths pages get.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/Splitter.h"
#include "form/GraphicsPaths.h"
#include "form/ItemParts.h"
#include "form/interaction/DragPicture.h"
#include "form/interaction/DropLocation.h"
#include "form/interaction/SnapMargins.h"
#include "form/layout/GroupArrangement.h"
#include "form/layout/PanePlacement.h"
#include "platform/headless/HeadlessPlatform.h"
#include "support/Raised.h"

namespace zav {
namespace {

std::string Words(const Rect& rect) {
  std::string words;
  for (const float value : {rect.left, rect.top, rect.width, rect.height}) {
    words += ToText(value) + " ";
  }
  return words;
}

TEST(SnapMargins, AreHalfTheTargetButNothingTowardsACloseNeighbour) {
  constexpr auto kBelow = SnapDirection::Below;
  constexpr auto kAbove = SnapDirection::Above;
  constexpr auto kLeft = SnapDirection::Left;
  constexpr auto kRight = SnapDirection::Right;
  const Rect target{100, 100, 40, 30};
  const struct {
    const char* why;
    std::vector<Rect> targets;  // the first one's margin is asked for
    SnapDirection direction;
    std::int32_t want;
  } rows[] = {
      {"no neighbour: half the width", {target}, kLeft, 20},
      {"no neighbour: half the height", {target}, kBelow, 15},
      {"7.5 is rounded to even", {{0, 0, 15, 15}}, kRight, 8},
      {"6.5 is rounded to even", {{0, 0, 13, 13}}, kAbove, 6},
      {"half-size zones apart: half", {target, {181, 100, 40, 30}}, kRight, 20},
      {"half-size zones touch: they meet", {target, {180, 100, 40, 30}}, kRight, 0},
      {"a wide neighbour's zone reaches far", {target, {250, 100, 200, 30}}, kRight, 0},
      {"close at the right leaves the left", {target, {150, 100, 40, 30}}, kLeft, 20},
      {"close at the left", {target, {50, 100, 40, 30}}, kLeft, 0},
      {"close above", {target, {100, 65, 40, 30}}, kAbove, 0},
      {"close below", {target, {100, 135, 40, 30}}, kBelow, 0},
      {"edge to edge is wholly beyond", {target, {140, 100, 40, 30}}, kRight, 0},
      {"one that laps over the edge is none", {target, {139, 100, 40, 30}}, kRight, 20},
      {"beside, but only touching along the other axis", {target, {150, 130, 40, 30}}, kRight, 20},
      {"beside, lapping by one pixel", {target, {150, 129, 40, 30}}, kRight, 0},
      {"diagonally away is no neighbour", {target, {150, 140, 40, 30}}, kBelow, 15},
      {"the closest counts",
       {target, {900, 100, 40, 30}, {150, 100, 40, 30}, {600, 100, 40, 30}},
       kRight,
       0},
      {"no such direction", {target}, static_cast<SnapDirection>(0), 19000},
      {"no such direction", {target}, static_cast<SnapDirection>(5), 19000},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(SnapView(row.targets, row.direction).Limit(0), row.want) << row.why;
  }
}

TEST(DropZones, AreOpenAtTheirEdgesAndTheFirstOneCounts) {
  const std::vector<DropZone> zones = {{0, 0, 10, 10}, {5, 5, 20, 20}, {15, 0, 30, 10}};
  const struct {
    const char* why;
    Point point;
    std::int16_t want;
  } rows[] = {
      {"inside the first", {1, 1}, 1},
      {"where two lap the lower one counts", {7, 7}, 1},
      {"only in the second", {12, 12}, 2},
      {"left edge", {0, 5}, 0},
      {"top edge", {5, 0}, 0},
      {"right edge of the first, inside the second", {10, 7}, 2},
      {"bottom edge of the first, left edge of the second", {5, 10}, 0},
      {"just inside", {0.5, 9.5}, 1},
      {"beside all", {40, 5}, 0},
  };
  for (const auto& row : rows) EXPECT_EQ(FindDropZone(zones, row.point), row.want) << row.why;
  EXPECT_EQ(FindDropZone({}, {1, 1}), 0) << "an item without targets";
}

TEST(PanePlacement, FramesTheSplitter) {
  const struct {
    const char* why;
    PaneRequest request;
    PaneRects want;
  } rows[] = {
      {"1024x768 pixels of 15 twips",
       {{15360, 11520}, {15, 15}, false},
       {{0, 0, 15360, 405},
        {0, 405, 120, 10995},
        {15240, 405, 120, 10995},
        {0, 11400, 15360, 120},
        {120, 10785, 15120, 615},
        {120, 405, 15120, 10380}}},
      {"widths go by the horizontal pixel, heights by the vertical one",
       {{12000, 10000}, {12, 20}, false},
       {{0, 0, 12000, 540},
        {0, 540, 96, 9300},
        {11904, 540, 96, 9300},
        {0, 9840, 12000, 160},
        {96, 9020, 11808, 820},
        {96, 540, 11808, 8480}}},
      {"a case study has title and edges of its own",
       {{15360, 11520}, {15, 15}, true},
       {{}, {}, {}, {}, {0, 10905, 15360, 615}, {0, 0, 15360, 10905}}},
      {"a form smaller than its frame",
       {{100, 100}, {15, 15}, false},
       {{0, 0, 100, 405},
        {0, 405, 120, 0},
        {0, 405, 120, 0},
        {0, 0, 100, 120},
        {120, 0, 0, 615},
        {120, 405, 0, 0}}},
      {"a negative form in a case study",
       {{-5, -5}, {15, 15}, true},
       {{}, {}, {}, {}, {0, 0, 0, 615}, {0, 0, 0, 0}}},
  };
  for (const auto& row : rows) {
    const PaneRects panes = PlacePanes(row.request);
    EXPECT_EQ(Words(panes.title), Words(row.want.title)) << row.why;
    EXPECT_EQ(Words(panes.leftEdge), Words(row.want.leftEdge)) << row.why;
    EXPECT_EQ(Words(panes.rightEdge), Words(row.want.rightEdge)) << row.why;
    EXPECT_EQ(Words(panes.bottom), Words(row.want.bottom)) << row.why;
    EXPECT_EQ(Words(panes.footer), Words(row.want.footer)) << row.why;
    EXPECT_EQ(Words(panes.splitter), Words(row.want.splitter)) << row.why;
  }
}

// A group as one text: its heading's rectangle, then its items' corners.
std::string Words(const ArrangedGroup& group) {
  std::string words = Words(group.heading) + "|";
  for (const Point& item : group.items) words += " " + ToText(item.x) + "," + ToText(item.y);
  return words;
}

ArrangementGaps TestGaps() {
  ArrangementGaps gaps;
  gaps.betweenItems = 10;
  gaps.betweenRows = 20;
  gaps.besideItems = 5;
  gaps.betweenGroups = 30;
  gaps.atEnd = 40;
  return gaps;
}

TEST(GroupArrangement, StandsUnderOneAnotherOrSideBySide) {
  const GroupRequest three{27, {100, 50}, 3};
  const GroupRequest none{20, {100, 50}, 0};
  const GroupRequest wide{27, {600, 50}, 1};
  const struct {
    const char* why;
    bool left;
    std::vector<GroupRequest> groups;
    float width;
    std::vector<std::string> want;
    Size surface;
  } rows[] = {
      {"a new row when the next item would pass the heading",
       true,
       {three},
       250,
       {"0 0 250 27 | 5,47 115,47 5,117"},
       {250, 207}},
      {"two that fit to the point stay in a row",
       true,
       {three},
       220,
       {"0 0 220 27 | 5,47 115,47 5,117"},
       {220, 207}},
      {"a twip less, and each has its own row",
       true,
       {three},
       219,
       {"0 0 219 27 | 5,47 5,117 5,187"},
       {219, 277}},
      {"a group without items still has its heading below the others",
       true,
       {three, none},
       250,
       {"0 0 250 27 | 5,47 115,47 5,117", "0 197 250 20 |"},
       {250, 257}},
      {"the widest item widens the surface, and every heading with it",
       true,
       {none, wide},
       250,
       {"0 0 610 20 |", "0 50 610 27 | 5,97"},
       {610, 187}},
      {"no groups", true, {}, 250, {}, {250, 40}},
      {"side by side they share the area",
       false,
       {three, none},
       1000,
       {"15 0 462.5 27 | 20,47 130,47 240,47", "507.5 0 462.5 20 |"},
       {1000, 137}},
      {"the surface is as high as the highest group",
       false,
       {none, three},
       300,
       {"15 0 112.5 20 |", "157.5 0 112.5 27 | 162.5,47 162.5,117 162.5,187"},
       {300, 277}},
      {"none gets less than its widest item needs",
       false,
       {wide, none},
       1000,
       {"15 0 610 27 | 20,47", "655 0 462.5 20 |"},
       {1147.5, 137}},
      {"no groups", false, {}, 1000, {}, {1000, 40}},
  };
  for (const auto& row : rows) {
    const GroupArrangement made = row.left
                                      ? ArrangeGroupsLeft(row.groups, row.width, TestGaps())
                                      : ArrangeGroupsTop(row.groups, row.width, 15, TestGaps());
    std::vector<std::string> groups;
    for (const ArrangedGroup& group : made.groups) groups.push_back(Words(group));
    EXPECT_EQ(groups, row.want) << row.why;
    EXPECT_EQ(made.surface.width, row.surface.width) << row.why;
    EXPECT_EQ(made.surface.height, row.surface.height) << row.why;
  }
}

TEST(GlideAxis, TakesOneStepATickAndCountsAsArrivedWithinAStep) {
  const struct {
    const char* why;
    GlideAxis axis;
    std::int32_t position;  // after one tick
    int ticks;              // until it has arrived
  } rows[] = {
      {"down in steps of a tenth", {1000, 0, 100}, 900, 9},
      {"up in steps of a tenth", {0, 1000, 100}, 100, 9},
      {"a step that was rounded down takes longer", {0, 104, 10}, 10, 10},
      {"a step that was rounded up", {0, 96, 10}, 10, 9},
      {"an axis without a step has arrived at once", {100, 104, 0}, 100, 1},
      {"one that is there stays", {50, 50, 0}, 50, 1},
      {"a step past the end comes back by as much", {5, 0, 8}, 5, 1},
  };
  for (const auto& row : rows) {
    GlideAxis axis = row.axis;
    axis.Advance();
    EXPECT_EQ(axis.position, row.position) << row.why;
    int ticks = 1;
    for (; !axis.Arrived() && ticks < 100; ++ticks) axis.Advance();
    EXPECT_EQ(ticks, row.ticks) << row.why;
  }
}

TEST(ItemParts, ShareTheItemsHeight) {
  const struct {
    const char* why;
    bool hasPicture;
    float content;
    float picture;
    float text;
  } rows[] = {
      {"a picture alone has all of it", true, 0, 100, 0},
      {"a text alone has all of it", false, 30, 0, 100},
      {"neither takes anything", false, 0, 0, 0},
      {"the picture gets what the text leaves", true, 30, 70, 30},
      {"a text that is higher than the item is cut", true, 140, 0, 100},
      {"a text alone too", false, 140, 0, 100},
  };
  for (const auto& row : rows) {
    const ItemParts parts = DivideItem(100, row.hasPicture, row.content);
    EXPECT_EQ(parts.pictureHeight, row.picture) << row.why;
    EXPECT_EQ(parts.textHeight, row.text) << row.why;
  }
}

TEST(GraphicsPaths, AreRewrittenOnce) {
  const struct {
    const char* why;
    std::string page;
    std::string want;
  } rows[] = {
      {"no reference", "<p>src=\"a.png\" url(b.png);</p>", "<p>src=\"a.png\" url(b.png);</p>"},
      {"a picture of the item", R"(<img src="a.png">)", R"(<img src="G/a.png">)"},
      {"upper case", R"(<IMG SRC="a.png">)", R"(<IMG SRC="G/a.png">)"},
      {"mixed case, other attributes", R"(<iMg alt="x" sRc="a.png" id=1>)",
       R"(<iMg alt="x" sRc="G/a.png" id=1>)"},
      {"two", R"(<img src="a.png"><img src="b.png">)", R"(<img src="G/a.png"><img src="G/b.png">)"},
      {"the host cannot place it", R"(<img src="gone.png">)", R"(<img src="S/gone.png">)"},
      {"a support picture is never the host's", R"(<img src="xkvt.bmp">)",
       R"(<img src="S/xkvt.bmp">)"},
      {"its name in other letters is the host's", R"(<img src="xKVT.bmp">)",
       R"(<img src="G/xKVT.bmp">)"},
      {"an element without a source takes the next one's", R"(<img alt=""><p src="a.png">)",
       R"(<img alt=""><p src="G/a.png">)"},
      {"two elements, one source: rewritten once", R"(<img><img src="a.png">)",
       R"(<img><img src="G/a.png">)"},
      {"the same with an empty name", R"(<img><img src="">x)", R"(<img><img src="S/">x)"},
      {"no source at all", "<img>", "<img>"},
      {"a name that is not closed ends the pass", R"(<img src="a.png> <b>)",
       R"(<img src="a.png> <b>)"},
      {"the page ends behind the source", "<img src=", "<img src="},
      {"such a letter where the quote should be", R"(<img src=é.png">)", R"(<img src=éG/.png">)"},
      {"letters of more than one byte", R"(é<img src="é.png">é)", R"(é<img src="G/é.png">é)"},
      {"a background", "X{BACKGROUND-IMAGE:url(Tilekvt.bmp); A:b;}",
       "X{BACKGROUND-IMAGE:url(S/Tilekvt.bmp); A:b;}"},
      {"a background is never the host's", "BACKGROUND-IMAGE:url(a.png);",
       "BACKGROUND-IMAGE:url(S/a.png);"},
      {"in lower case it is none", "background-image:url(a.png);", "background-image:url(a.png);"},
      {"what stands between ) and the next ); is lost",
       "BACKGROUND-IMAGE:url(a.png) red; B:url(b.png); c", "BACKGROUND-IMAGE:url(S/a.png); c"},
      {"one that is not closed ends its own pass only",
       "LIST-STYLE-IMAGE:url(b.png); BACKGROUND-IMAGE:url(a.png) x",
       "LIST-STYLE-IMAGE:url(S/b.png); BACKGROUND-IMAGE:url(a.png) x"},
      {"never closed", "BACKGROUND-IMAGE:url(a.png) end", "BACKGROUND-IMAGE:url(a.png) end"},
      {"a list picture", "LIST-STYLE-IMAGE:url(dot.png); BACKGROUND-IMAGE:url(a.png);",
       "LIST-STYLE-IMAGE:url(S/dot.png); BACKGROUND-IMAGE:url(S/a.png);"},
  };
  const GraphicsPathResolver resolve = [](const std::string& name) {
    return name == "gone.png" || name.empty() ? std::string() : "G/" + name;
  };
  for (const auto& row : rows) {
    EXPECT_EQ(RewriteGraphicsPaths(row.page, resolve, "S/"), row.want) << row.why;
  }
}

TEST(GraphicsPaths, TakeNoTimeOnABigPageAndPassTheHostsErrorsOn) {
  std::string page;
  for (int i = 0; i < 100'000; ++i) page += R"(<img src="a.png"><img BACKGROUND-IMAGE:url(b);)";
  const std::string rewritten = RewriteGraphicsPaths(
      page, [](const std::string& name) { return "G/" + name; }, "S/");
  EXPECT_EQ(rewritten.size(), page.size() + 100'000 * 4);
  const Raised raised = Catch([] {
    RewriteGraphicsPaths(R"(<img src="a">)",
                         [](const std::string&) -> std::string { throw AutomationError(70, "no"); },
                         "S/");
  });
  EXPECT_EQ(raised.number, 70);
}

// A splitter as an item's form has it: the stem above, source and work area below.
struct SplitterStage {
  SplitterStage() {
    splitter.AddPane({"Stem", 0, 600, {}, nullptr, 0});
    splitter.AddPane({"Work", 3000, 2400, {}, nullptr, 0});
    splitter.Resize(10000, 6000);
  }
  std::string Panes() {
    std::string words;
    for (const SplitterPane* pane : splitter.Panes()) words += Words(pane->rect) + "/ ";
    return words;
  }
  std::unique_ptr<HeadlessPlatform> platform = MakeHeadlessPlatform();
  ControlHost host{platform->platform()};
  Form form{host, "form"};
  Splitter splitter{host, &form, "splitter"};
};

TEST(Splitter, KeepsLeastSizesAndRemembersWhatWasWanted) {
  SplitterStage stage;
  Splitter& splitter = stage.splitter;
  EXPECT_EQ(stage.Panes(), "0 0 10000 600 / 0 690 10000 5310 / ") << "the last row takes the rest";
  splitter.AddPane({"Source", 1000, 1000, {}, nullptr, 0}, "Work", PanePlacement::LeftOf);
  EXPECT_EQ(stage.Panes(), "0 0 10000 600 / 0 690 1000 5310 / 1090 690 8910 5310 / ");
  const struct {
    const char* why;
    std::string_view pane;
    char side;  // h: the pane's height, w: its width, H and W: the splitter's own
    float size;
    std::string want;
  } rows[] = {
      {"a height", "Stem", 'h', 2000, "0 0 10000 2000 / 0 2090 1000 3910 / 1090 2090 8910 3910 / "},
      {"no more than leaves the others their least", "Stem", 'h', 5000,
       "0 0 10000 3510 / 0 3600 1000 2400 / 1090 3600 8910 2400 / "},
      {"no less than its least", "Stem", 'h', 10,
       "0 0 10000 600 / 0 690 1000 5310 / 1090 690 8910 5310 / "},
      {"a last row's height comes from the one above", "Work", 'h', 3910,
       "0 0 10000 2000 / 0 2090 1000 3910 / 1090 2090 8910 3910 / "},
      {"a width", "Source", 'w', 2500,
       "0 0 10000 2000 / 0 2090 2500 3910 / 2590 2090 7410 3910 / "},
      {"a last pane's width comes from the one before", "Work", 'w', 4000,
       "0 0 10000 2000 / 0 2090 5910 3910 / 6000 2090 4000 3910 / "},
      {"less room", "", 'H', 3000, "0 0 10000 600 / 0 690 5910 2310 / 6000 690 4000 2310 / "},
      {"room again: what was wanted comes back", "", 'H', 6000,
       "0 0 10000 2000 / 0 2090 5910 3910 / 6000 2090 4000 3910 / "},
      {"no room at all", "", 'W', 50, "0 0 50 2000 / 0 2090 0 3910 / 90 2090 0 3910 / "},
  };
  for (const auto& row : rows) {
    if (row.side == 'h') splitter.SetPaneHeight(row.pane, row.size);
    if (row.side == 'w') splitter.SetPaneWidth(row.pane, row.size);
    if (row.side == 'H') splitter.SetHeight(row.size);
    if (row.side == 'W') splitter.SetWidth(row.size);
    EXPECT_EQ(stage.Panes(), row.want) << row.why;
  }
}

TEST(Splitter, PutsAPaneAboveAndTakesItAwayAgain) {
  SplitterStage stage;
  Splitter& splitter = stage.splitter;
  splitter.AddPane({"Source", 1000, 1000, {}, nullptr, 0}, "Work", PanePlacement::Above);
  EXPECT_EQ(stage.Panes(), "0 0 10000 600 / 0 690 10000 1000 / 0 1780 10000 4220 / ");
  int ends = 0;
  splitter.onSplitterEndDrag = [&ends] { ++ends; };
  splitter.DragBar("Source", 1500);
  EXPECT_EQ(stage.Panes(), "0 0 10000 600 / 0 690 10000 1500 / 0 2280 10000 3720 / ");
  EXPECT_EQ(ends, 1);
  splitter.RemovePane("Source");
  EXPECT_EQ(stage.Panes(), "0 0 10000 600 / 0 690 10000 5310 / ");
  EXPECT_EQ(Catch([&] { splitter.RemovePane("Source"); }).number, error_number::kInvalidArgument);
}

}  // namespace
}  // namespace zav

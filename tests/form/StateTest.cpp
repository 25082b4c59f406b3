// The candidate's work in the state section: kept as it changes, and brought back onto the screen.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "form/FormCore.h"
#include "form/StateRecorder.h"
#include "support/Intercepted.h"
#include "support/SmallItem.h"

namespace zav {
namespace {

std::string StateOf(std::string_view responses, const std::string& values = {}) {
  std::string xml = "<State><Responses>";
  while (!responses.empty()) {
    const std::size_t blank = std::min(responses.find(' '), responses.size());
    xml += "<Response>" + std::string(responses.substr(0, blank)) + "</Response>";
    responses.remove_prefix(std::min(blank + 1, responses.size()));
  }
  return xml + "</Responses>" + values + "</State>";
}

// A state comes in, and the host asks for the item's place again, as it does after that.
void Load(ItemFixture& item, const std::string& state) {
  item.host.SetState(state);
  item.host.Show();
}

void Place(ItemFixture& item, std::string_view source, std::string_view target) {
  item.Drag(source).To(target).Release();
}

std::string ValueOf(ItemFixture& item, const std::string& name) {
  DataIO state;
  state.LoadXml(item.host.State());
  return state.FindNode(name) ? ToText(state.GetText()) : "none";
}

// The elements of an XML text, in order.
std::string Elements(const std::string& xml) {
  std::string names;
  for (std::size_t at = xml.find('<'); at != std::string::npos; at = xml.find('<', at + 1)) {
    if (xml[at + 1] != '/')
      names += xml.substr(at + 1, xml.find_first_of(" />", at) - at - 1) + " ";
  }
  return names;
}

TEST(StateSection, IsKeptAsTheCandidateWorks) {
  ItemFixture item(SmallItem());
  const std::string kOnce =
      "State Responses SourceAreaWidth ItemStemHeight ItemStemScroll WorkAreaScroll "
      "SourceAreaScroll ";
  EXPECT_EQ(Elements(item.host.State()), kOnce) << "in the order in which they were first written";
  item.host.Resize(900, 700);
  item.candidate.DragSplitter("SourceArea", 250);
  EXPECT_EQ(Elements(item.host.State()), kOnce) << "and then updated in place";
  EXPECT_EQ(ValueOf(item, "SourceAreaWidth"), "3750");
  Place(item, "source 1", "target C");
  EXPECT_EQ(item.Responses(), "C1") << "at once";
  Place(item, "source 2", "target A");
  item.Delete("target C");
  Place(item, "source 1", "target B");
  EXPECT_EQ(item.Responses(), "A2 B1") << "in the order of the placements";
}

TEST(StateRecorder, RemovesTheFirstResponseThatHasTheText) {
  const struct {
    const char* why;
    const char* responses;
    const char* text;
    std::string want;
  } rows[] = {
      {"the whole response", "A1 B2 C3", "B2", "A1 C3"},
      {"a part of it", "A1 B2", "B", "A1"},
      {"only the first", "A1 A12 B1", "A1", "A12 B1"},
      {"a longer one that comes first", "A12 A1", "A1", "A1"},
      {"in other letters it is none", "A1", "a1", "A1"},
      {"none", "A1 B2", "C3", "A1 B2"},
      {"the empty text names none", "A1 B2", "", "A1 B2"},
      {"no responses", "", "A1", ""},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    item.host.SetState(StateOf(row.responses));
    StateRecorder(item.form()).RemoveStateResponse(row.text);
    EXPECT_EQ(item.Responses(), row.want) << row.why;
  }
}

TEST(StateRecorder, LeavesTheCursorAndWhatIsNotItsBusiness) {
  ItemFixture item(SmallItem());
  DataIO& document = item.form().Document();
  StateRecorder recorder(item.form());
  document.FindNode("Groups");
  document.SetFromRoot(false);
  recorder.WriteStateValue("New", "1");
  recorder.WriteStateValue("New", "2");
  recorder.WriteStateResponse("A1");
  recorder.WriteStateResponse("A1");
  recorder.RemoveStateResponse("B");
  EXPECT_EQ(document.ChildCount(), 2) << "still on the groups";
  EXPECT_TRUE(document.GetFromRoot());
  EXPECT_EQ(ValueOf(item, "New"), "2");
  EXPECT_EQ(item.Responses(), "A1 A1") << "nothing looks for a double";
  item.form().layout.StatePending = true;
  recorder.WriteStateValue("New", "3");
  EXPECT_EQ(ValueOf(item, "New"), "2") << "not while a state waits to be loaded";
  item.form().layout.StatePending = false;

  document.SetFromRoot(true);
  document.RemoveNode("State");
  const std::string before = document.GetXml();
  recorder.WriteStateValue("New", "4");
  recorder.RemoveStateResponse("A1");
  EXPECT_EQ(document.GetXml(), before) << "without a state section";
  recorder.WriteStateResponse("A1");
  EXPECT_EQ(item.host.State(), "<State><Responses><Response>A1</Response></Responses></State>")
      << "a response makes one";
  EXPECT_EQ(document.ChildCount(), 2) << "still on the groups";
  EXPECT_EQ(Reports(item), "");
}

TEST(LoadState, ReplaysWhatItFinds) {
  const struct {
    const char* why;
    std::string state;
    std::string want;
    std::string reports;
  } rows[] = {
      {"in order", StateOf("C1 A2 D12 B2"), "C1 A2 D12 B2", ""},
      {"none", StateOf(""), "", ""},
      {"no responses element", "<State><ItemStemScroll>True</ItemStemScroll></State>", "", ""},
      {"no such source item", StateOf("A9 B2"), "A9 B2", "SetAnswer"},
      {"no such target", StateOf("B2 Z1 A1"), "Z1 B2 A1", "SetAnswer"},
      {"an empty response", "<State><Responses><Response/></Responses></State>", "", "SetAnswer"},
      {"a target alone", StateOf("A"), "A", "SetAnswer"},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    Load(item, row.state);
    EXPECT_EQ(item.Responses(), row.want) << row.why;
    EXPECT_EQ(Reports(item), row.reports) << row.why;
    if (row.reports.empty()) {
      EXPECT_EQ(Faults(item), "") << row.why;
    }
  }
}

// What is wrong with a state is told while the old one still stands, and takes nothing with it.
TEST(LoadState, FindsOutFirstWhatCannotBeRestored) {
  const struct {
    const char* why;
    std::string state;
    std::string reports;
    std::string says;
  } rows[] = {
      {"what was seen of the stem", StateOf("A1 C3", "<ItemStemScroll>x</ItemStemScroll>"),
       "LoadState", R"(LoadState: ItemStemScroll "x" is neither True nor False (13))"},
      {"what was seen of an area", StateOf("A1 C3", "<WorkAreaScroll>all</WorkAreaScroll>"),
       "LoadState", R"(LoadState: WorkAreaScroll "all" is no number (13))"},
      {"a pane's size", StateOf("A1 C3", "<SourceAreaWidth>1e99</SourceAreaWidth>"), "LoadState",
       R"(LoadState: SourceAreaWidth "1e99" is out of range (6))"},
      {"a response that names nothing", StateOf("A1 Z9 C3"), "SetAnswer",
       R"(SetAnswer: Responses, Response 2 "Z9" names no target and source item (9))"},
  };
  for (const auto& row : rows) {
    ItemFixture* shown = nullptr;
    std::string before;
    const auto listen = [&](std::string_view member, std::span<Variant>) -> std::optional<Variant> {
      if (member == "LogError") before = TagOf(*shown, 'B');
      return std::nullopt;
    };
    ItemFixture item(SmallItem(), Intercept(listen));
    shown = &item;
    Place(item, "source 2", "target B");
    Load(item, row.state);
    EXPECT_EQ(before, "2*1*B2") << row.why << ": told before the screen was emptied";
    EXPECT_EQ(TagOf(item, 'A') + " " + TagOf(item, 'B') + " " + TagOf(item, 'C'),
              "1*1*A1 2*1*B 3*1*C3")
        << row.why;
    EXPECT_EQ(Reports(item), row.reports) << row.why;
    EXPECT_EQ(item.Log().at(0), row.says) << row.why;
  }
}

// Whatever a host sets as a state, the candidate can go on working.
TEST(StateSection, TakesResponsesAgainAfterAnyState) {
  const struct {
    const char* state;
    std::string reports;
  } rows[] = {
      {"", ""},
      {"   ", ""},
      {"<State/>", ""},
      {"<State><ItemStemScroll>True</ItemStemScroll></State>", ""},
      {"<Foo/>", ""},
      {"<State><Responses>", "SetExternalStateArray"},
      {"A1, B2", "SetExternalStateArray"},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    item.host.SetState(row.state);
    Place(item, "source 1", "target A");
    Place(item, "source 2", "target B");
    item.Delete("target A");
    EXPECT_EQ(item.Responses(), "B2") << row.state;
    EXPECT_EQ(Faults(item, false), "") << row.state;
    item.host.Show();
    EXPECT_EQ(item.Responses(), "B2") << row.state;
    EXPECT_EQ(Faults(item, false), "") << row.state;
    EXPECT_EQ(Reports(item), row.reports) << row.state;
  }
}

TEST(LoadState, ReplacesWhatIsShown) {
  const struct {
    const char* why;
    std::string first, second, want;
  } rows[] = {
      {"another placement", StateOf("A1"), StateOf("B1"), "B1"},
      {"another item on the same target", StateOf("A1 B2"), StateOf("A2"), "A2"},
      {"the same once more", StateOf("A1 B2 C2"), StateOf("A1 B2 C2"), "A1 B2 C2"},
      {"nothing", StateOf("A1 B2"), StateOf(""), ""},
      {"a blank one: the section is gone, and comes back empty", StateOf("A1 B2"), "  ", ""},
      {"an empty array", StateOf("A1 B2"), "", ""},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    Load(item, row.first);
    Load(item, row.second);
    EXPECT_EQ(item.Responses(), row.want) << row.why;
    EXPECT_EQ(Faults(item), "") << row.why;
    Place(item, "source 3", "target C");
    EXPECT_EQ(Faults(item), "") << row.why;
  }
}

TEST(LoadState, GivesAFreshItemTheSameState) {
  ItemFixture first(SmallItem());
  Place(first, "source 2", "target C");
  Place(first, "source 5", "target D");
  Place(first, "source 2", "target A");
  first.candidate.DragSplitter("ItemStem", 120);
  first.candidate.DragSplitter("SourceArea", 260);
  const std::string state = first.host.State();
  ItemFixture second(SmallItem());
  Load(second, state);
  EXPECT_EQ(second.Responses(), "C2 D12 A2");
  EXPECT_EQ(second.host.State().size(), state.size());
  EXPECT_EQ(ValueOf(second, "ItemStemHeight"), "1800");
  EXPECT_EQ(ValueOf(second, "SourceAreaWidth"), "3900");
  EXPECT_EQ(Faults(second), "");
}

TEST(LoadState, RestoresThePanes) {
  const struct {
    const char* why;
    const char* location;
    std::string values;
    float stem, source;  // the stem's height, and the source area's width or height; twips
  } rows[] = {
      {"at the left its width", "\"Left\"",
       "<ItemStemHeight>2000</ItemStemHeight><SourceAreaWidth>3500.5</SourceAreaWidth>", 2000,
       3500.5},
      {"on top its height", "\"Top\"",
       "<ItemStemHeight>2000</ItemStemHeight><SourceAreaWidth>2700</SourceAreaWidth>", 2000, 2700},
      {"no less than the least", "\"Left\"",
       "<ItemStemHeight>-5</ItemStemHeight><SourceAreaWidth>1</SourceAreaWidth>", 600, 1000},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem({{"\"Left\"", row.location}}));
    Load(item, StateOf("A1", row.values));
    for (const int width : {1024, 900}) {
      item.host.Resize(width, 768);
      const Splitter& splitter = item.form().controls.spSplitter;
      const Rect& source = splitter.Pane("SourceArea").rect;
      EXPECT_EQ(splitter.Pane("ItemStem").rect.height, row.stem) << row.why;
      EXPECT_EQ(item.form().tables.SourceAreaOnLeft ? source.width : source.height, row.source)
          << row.why;
    }
    EXPECT_EQ(Faults(item), "") << row.why;
  }
}

TEST(LoadState, WaitsForThePagesAndForAResize) {
  ItemFixture item(SmallItem());
  Place(item, "source 1", "target A");
  item.host.platform().SetPageDelay(std::chrono::milliseconds(100));
  item.host.item().Redisplay(0, 0, 12000, 9000);
  item.host.SetState(StateOf("B2"));
  item.Wait(99);
  EXPECT_EQ(item.form().controls.form.width(), 15360) << "moved with the last page only";
  EXPECT_EQ(TagOf(item, 'B'), "2*1*B");
  EXPECT_FALSE(item.host.Status().bViewedAll);
  EXPECT_TRUE(item.Messages().empty()) << "nobody is told to scroll what is not there";
  EXPECT_FALSE(item.form().controls.tmFlash.enabled());
  item.Wait(1);
  EXPECT_EQ(item.form().controls.form.width(), 12000);
  EXPECT_EQ(item.Responses(), "B2");
  EXPECT_EQ(Faults(item), "");

  item.host.SetState(StateOf("C3"));
  EXPECT_EQ(TagOf(item, 'B'), "2*1*B2") << "without a resize the old state is still shown";
  EXPECT_TRUE(item.form().layout.StatePending);
  item.host.Resize(1024, 768);
  EXPECT_EQ(item.Responses(), "C3");
  EXPECT_EQ(Faults(item), "");
  item.candidate.DragSplitter("SourceArea", 250);
  EXPECT_EQ(ValueOf(item, "SourceAreaWidth"), "3750") << "view values are written again";
}

TEST(ReadOnlyItem, ShowsItsStateAndTakesNothing) {
  const struct {
    const char* why;
    void (*act)(ItemFixture&);
    std::string want;
  } rows[] = {
      {"a drag from the source area",
       [](ItemFixture& item) { Place(item, "source 3", "target C"); }, "A1 B2"},
      {"a drag from a target", [](ItemFixture& item) { Place(item, "target A", "target C"); },
       "A1 B2"},
      {"Delete", [](ItemFixture& item) { item.Delete("target A"); }, "A1 B2"},
      {"Reset", [](ItemFixture& item) { item.candidate.ClickButton("btnReset"); }, "A1 B2"},
      {"Set Answers is the author's",
       [](ItemFixture& item) { item.candidate.ClickButton("btnSetAnswers"); }, "A1 B2 D12"},
      {"another state", [](ItemFixture& item) { Load(item, StateOf("C3")); }, "C3"},
      {"the item built anew",
       [](ItemFixture& item) { item.host.item().Redisplay(0, 0, 15360, 11520); }, "A1 B2"},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem(), WithOptions(0x11));
    Load(item, StateOf("A1 B2"));
    row.act(item);
    item.Wait(2000);
    EXPECT_EQ(item.Responses(), row.want) << row.why;
    EXPECT_EQ(Faults(item), "") << row.why;
    const FormControls& controls = item.form().controls;
    for (int s = 1; s <= controls.imgSourceCover.UpperBound(); ++s) {
      EXPECT_FALSE(controls.imgSourceCover[s].enabled()) << row.why << ": source " << s;
      EXPECT_FALSE(controls.txtSource[s].enabled()) << row.why << ": source " << s;
    }
    for (int t = 1; t <= controls.imgTargetCover.UpperBound(); ++t) {
      EXPECT_FALSE(controls.imgTargetCover[t].enabled()) << row.why << ": target " << t;
    }
  }
}

TEST(Redisplay, BringsEverythingBack) {
  ItemFixture item(SmallItem(), WithOptions(0x10));
  Place(item, "source 2", "target A");
  Place(item, "source 5", "target D");
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(item.host.item().Redisplay(0, 0, 15360, 11520));
    item.Wait(0);
    EXPECT_EQ(item.form().controls.imgTarget.UpperBound(), 5);
    EXPECT_EQ(item.form().controls.cmdSourceValue.UpperBound(), 6);
    EXPECT_EQ(item.Responses(), "A2 D12");
    EXPECT_EQ(Faults(item), "");
  }
  EXPECT_EQ(item.form().controls.cmdTargetAnswerValue[1].caption(), "A2");
  Place(item, "source 1", "target B");
  EXPECT_EQ(item.Responses(), "A2 D12 B1");
}

TEST(ScrollTracking, AddsWhatHasBeenSeen) {
  const struct {
    const char* why;
    bool work;  // or the source area
    bool horizontal;
    bool loading;
    float fromEnd;  // twips
    std::int32_t before, after;
  } rows[] = {
      {"the work area's right end", true, true, false, 0, 0, 1},
      {"20 pixels before it is not there yet", true, true, false, 300, 0, 0},
      {"a twip further it is", true, true, false, 299, 0, 1},
      {"the full width after the full height", true, true, false, 0, 2, 3},
      {"once more", true, true, false, 0, 3, 3},
      {"the lower end", true, false, false, 299, 0, 2},
      {"20 pixels above it", true, false, false, 300, 0, 0},
      {"the full height after the full width", true, false, false, 0, 1, 3},
      {"the source area has 350 twips", false, true, false, 349, 0, 1},
      {"350 twips before its right end", false, true, false, 350, 0, 0},
      {"its lower end", false, false, false, 349, 1, 3},
      {"350 twips above its lower end", false, false, false, 350, 1, 1},
      {"while the form loads its width does not count", false, true, true, 0, 0, 0},
      {"its height does", false, false, true, 0, 0, 2},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    FormControls& controls = item.form().controls;
    LayoutState& layout = item.form().layout;
    ScrollFrame& frame = row.work ? controls.scrWork : controls.scrSource;
    std::int32_t& seen = row.work ? layout.SavedWorkAreaScroll : layout.SavedSourceAreaScroll;
    frame.SetScrollWidth(frame.width() + 5000);
    frame.SetScrollHeight(frame.height() + 5000);
    seen = row.before;
    layout.Loading = row.loading;
    const float to = 5000 - row.fromEnd;
    frame.ScrollTo(row.horizontal ? to : 0, row.horizontal ? 0 : to);
    EXPECT_EQ(seen, row.after) << row.why;
    if (row.before == row.after) continue;
    EXPECT_EQ(ValueOf(item, row.work ? "WorkAreaScroll" : "SourceAreaScroll"), ToText(row.after))
        << row.why;
  }
}

TEST(ScrollTracking, OnlyGrowsFromAWholeStoredState) {
  const std::string stem = "<ItemStemScroll>True</ItemStemScroll>";
  const std::string work = "<WorkAreaScroll>3</WorkAreaScroll>";
  const std::string source = "<SourceAreaScroll>3</SourceAreaScroll>";
  const struct {
    const char* why;
    std::string values;
    bool viewedAll;
  } rows[] = {
      {"all three: they are taken over", stem + work + source, true},
      {"one is missing: all are found out afresh", stem + work, false},
      {"none", "", false},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem(), OnScreen(600, 420));
    Load(item, StateOf("A1", row.values));
    EXPECT_EQ(item.host.Status().bViewedAll, row.viewedAll) << row.why;
    EXPECT_EQ(item.Responses(), "A1") << row.why;
  }
}

TEST(ViewedAll, AsksToScrollUntilEverythingWasSeen) {
  const struct {
    const char* why;
    const char* attribute;
    std::size_t messages;  // of two calls
  } rows[] = {
      {"the item wants it", R"(DisplayScrollMsg="True")", 2},
      {"in any letters", R"(DisplayScrollMsg="tRUE")", 2},
      {"it does not", R"(DisplayScrollMsg="False")", 0},
      {"another word is no yes", R"(DisplayScrollMsg="Yes")", 0},
      {"nothing said", "", 0},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem({{R"(DisplayScrollMsg="True")", row.attribute}}),
                     OnScreen(600, 420));
    EXPECT_FALSE(item.host.Status().bViewedAll) << row.why;
    EXPECT_FALSE(item.host.Status().bViewedAll) << row.why;
    EXPECT_EQ(item.Messages().size(), row.messages) << row.why;
    EXPECT_TRUE(item.form().controls.tmFlash.enabled()) << row.why;
    for (const Area area : {Area::Stem, Area::Work, Area::Source}) {
      item.candidate.ScrollToEnd(area);
    }
    EXPECT_TRUE(item.host.Status().bViewedAll) << row.why;
    EXPECT_EQ(item.Messages().size(), row.messages) << row.why;
    for (const ShownMessage& message : item.host.parent().messages()) {
      EXPECT_EQ(message.text,
                "Please scroll through the whole question, so that you have seen all of it.");
      EXPECT_EQ(message.style, 0);
    }
  }
}

}  // namespace
}  // namespace zav

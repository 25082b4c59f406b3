// The members of the item interface, one by one, as a host has them.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "form/FormCore.h"
#include "hosting/ScoreEngine.h"
#include "support/Intercepted.h"
#include "support/SmallItem.h"
#include "support/TemporaryFolder.h"

namespace zav {
namespace {

constexpr std::uint8_t kUntouched = 0xEE;

constexpr const char* kTwo =
    "<State><Responses><Response>A1</Response><Response>B2</Response></Responses></State>";

SafeArray Utf16Array(std::string_view text) { return SafeArray(Utf8ToUtf16Le(text)); }

SafeArray Buffer(std::vector<SafeArray::Dimension> dimensions) {
  SafeArray array = SafeArray::WithDimensions(std::move(dimensions));
  std::fill(array.Bytes().begin(), array.Bytes().end(), kUntouched);
  return array;
}

// Its bytes as text, "." for each pair that nobody touched and "0" for each that is zero.
std::string Filled(const SafeArray& array) {
  std::string text;
  for (std::size_t i = 0; i + 1 < array.Bytes().size(); i += 2) {
    const std::uint8_t low = array.Bytes()[i];
    text += low == kUntouched ? '.' : low == 0 ? '0' : static_cast<char>(low);
  }
  return text;
}

// Counts the component's events.
struct Listener : EventSink {
  explicit Listener(clsDragDrop& item) : events(item.Events()) { events.Advise(*this); }
  ~Listener() override { events.Unadvise(*this); }
  void OnEvent(std::int32_t dispatchId, std::span<Variant> arguments) override {
    heard += std::to_string(dispatchId);
    for (const Variant& argument : arguments) heard += "," + ToText(argument);
    heard += " ";
  }
  EventSource& events;
  std::string heard;
};

TEST(Initialise, TakesTheOptionsThatItKnows) {
  const struct {
    std::int32_t lOptions;
    bool readOnly, showAnswers, lorDriver;
  } rows[] = {
      {0, false, false, false},    {0x1, true, false, false}, {0x10, false, true, false},
      {0x100, false, false, true}, {0x111, true, true, true}, {0x7EEEEEEE, false, false, false},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem(), WithOptions(row.lOptions));
    EXPECT_EQ(item.form().options.ReadOnly, row.readOnly) << row.lOptions;
    EXPECT_EQ(item.form().options.ShowAnswers, row.showAnswers) << row.lOptions;
    EXPECT_EQ(item.form().options.LorDriver, row.lorDriver) << row.lOptions;
  }
}

TEST(Initialise, NeedsAPathOfTheStaticStrings) {
  const struct {
    const char* why;
    std::string path;
    std::string says;
  } rows[] = {
      {"none", "", "Missing Static information (-2147221494)"},
      {"0 is none", "0", "Missing Static information (-2147221494)"},
      {"blanks do not count", "   a.x   ", "Missing Static information (-2147221494)"},
      {"four characters of more bytes", "éééé", "Missing Static information (-2147221494)"},
      {"a path to nowhere", "/none/KVStatic.xml", "(53)"},
      {"what is no XML", "items/README.md", "items/README.md"},
  };
  for (const auto& row : rows) {
    const auto answer = [&](std::string_view member, std::span<Variant>) -> std::optional<Variant> {
      if (member != "GetLocalizePath") return std::nullopt;
      return row.path;
    };
    ItemFixture item(SmallItem(), Intercept(answer));
    EXPECT_EQ(item.host.item().form(), nullptr) << row.why;
    ASSERT_EQ(Reports(item), "InitExternalDisplay") << row.why;
    EXPECT_TRUE(Contains(item.Log()[0], row.says)) << row.why << ": " << item.Log()[0];
  }
}

std::string Language(const std::string& attributes, const std::string& title) {
  return "<Language " + attributes +
         "><Static><ButtonText><cmdClearAll>clear</cmdClearAll><cmdShowInstruction>i"
         "</cmdShowInstruction><cmdScroll>scroll " +
         title + "</cmdScroll></ButtonText></Static><ApplicationTitle>" + title +
         "</ApplicationTitle></Language>";
}

TEST(Initialise, TakesTheStringsOfTheItemsLanguage) {
  const std::string en = Language(R"(Id="en" Font="E")", "one");
  const std::string fr = Language(R"(Id="fr" Font="F")", "two");
  const struct {
    const char* why;
    std::string file;
    std::string font, title;
  } rows[] = {
      {"the first", "<Root>" + en + fr + "</Root>", "E", "one"},
      {"the second", "<Root>" + fr + en + "</Root>", "E", "one"},
      {"an Id in other letters is another", "<Root>" + fr + Language("Id=\"EN\"", "x") + "</Root>",
       "F", "two"},
      {"none matches: the first one's", "<Root>" + fr + "</Root>", "F", "two"},
      {"none matches: the root's own font, if it has one", "<Root Font=\"R\">" + fr + "</Root>",
       "R", "two"},
      {"a child without an Id is passed over",
       "<Root>" + Language("Font=\"N\"", "none") + en + "</Root>", "E", "one"},
  };
  for (const auto& row : rows) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("KVStatic.xml");
    std::ofstream(path) << row.file;
    const auto answer = [&](std::string_view member, std::span<Variant>) -> std::optional<Variant> {
      if (member != "GetLocalizePath") return std::nullopt;
      return path;
    };
    ItemFixture item(SmallItem(), Intercept(answer));
    for (const ObjectRef& font : {item.host.item().mFontReg(), item.host.item().mFontBld()}) {
      EXPECT_EQ(ToText(font->Call("Name")), row.font) << row.why;
      EXPECT_EQ(ToSingle(font->Call("Size")), 11) << row.why;
    }
    EXPECT_FALSE(ToBoolean(item.host.item().mFontReg()->Call("Bold")));
    EXPECT_TRUE(ToBoolean(item.host.item().mFontBld()->Call("Bold")));
    EXPECT_EQ(item.form().Owner().Module().gApplicationTitle, row.title) << row.why;
    EXPECT_EQ(item.form().controls.ssWorkScroll.caption(), "scroll " + row.title) << row.why;
    EXPECT_EQ(item.form().controls.ssWorkScroll.font().name, row.font) << row.why;
    EXPECT_EQ(Reports(item), "") << row.why;
  }
}

TEST(Initialise, RunsOnWithoutACaseThatIsMissing) {
  const struct {
    const char* why;
    const char* attribute;
    std::vector<std::string> messages;
  } rows[] = {
      {"no case", R"(CaseCode="NONE")", {}},
      {"a missing file",
       R"(CaseCode="Case 7")",
       {"Can't find case study for this item.  Looking for Case 7"}},
      {"in other letters it is a case",
       R"(CaseCode="none")",
       {"Can't find case study for this item.  Looking for none"}},
      {"none said", "", {"Can't find case study for this item.  Looking for "}},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem({{R"(CaseCode="NONE")", row.attribute}}));
    EXPECT_EQ(item.Messages(), row.messages) << row.why;
    EXPECT_FALSE(item.form().options.CaseStudy) << row.why;
    EXPECT_EQ(item.host.platform().windows().Find(item.host.form().hwnd())->parent,
              item.host.window())
        << row.why;
    EXPECT_EQ(Reports(item), "") << row.why;
  }
}

TEST(Display, IsAsLargeAsTheHostWantsOrAtLeastAsItMustBe) {
  ItemFixture item(SmallItem());
  clsDragDrop& component = item.host.item();
  const Listener listener(component);
  const auto rect = [&] {
    const Rect& form = item.form().controls.form.rect();
    return ToText(form.left) + " " + ToText(form.top) + " " + ToText(form.width) + " " +
           ToText(form.height);
  };
  EXPECT_TRUE(component.ResizeExternalDisplay(5, 6, 100, 100));
  EXPECT_EQ(rect(), "5 6 8000 4500");
  EXPECT_TRUE(component.ResizeExternalDisplay(-5, -6, 8001, 4501));
  EXPECT_EQ(rect(), "-5 -6 8001 4501");
  EXPECT_TRUE(component.ShowExternalDisplay(0, 0, 100, 100));
  EXPECT_EQ(rect(), "0 0 100 100") << "not clamped";
  EXPECT_TRUE(component.ShowExternalDisplay(0, 0, -100, 0));
  EXPECT_TRUE(component.ShowExternalDisplay(0, 0, 2'000'000'000, 2'000'000'000));
  EXPECT_EQ(listener.heard,
            "2,5,6,8000,4500 2,-5,-6,8001,4501 2,0,0,100,100 2,0,0,-100,0 "
            "2,0,0,2000000000,2000000000 ");
  EXPECT_EQ(Reports(item), "");
}

TEST(Display, TellsItsWindowWhileItCanBeSeen) {
  ReferenceHost host(SmallItem());
  EXPECT_EQ(host.item().hwnd(), 0) << "before there is a form";
  host.Init();
  EXPECT_EQ(host.item().hwnd(), 0) << "not shown yet";
  host.Show();
  EXPECT_EQ(host.item().hwnd(), host.form().hwnd());
  Candidate(host).ClickButton("btnInstructions");
  EXPECT_NE(host.item().hwnd(), host.form().hwnd()) << "the last one loaded that is visible";
  host.Hide();
  host.Free();
  EXPECT_EQ(host.item().hwnd(), 0);
  EXPECT_EQ(host.item().SetParentWnd(77), 77);
}

// The old window is gone, and the new one stands in the host's, when the host is asked for a
// picture of the instructions.
TEST(Instructions, OpenBeforeTheirPicturesAreAskedFor) {
  ItemFixture* shown = nullptr;
  std::string forms;
  const auto listen = [&](std::string_view,
                          std::span<Variant> arguments) -> std::optional<Variant> {
    if (arguments.empty() || ToText(arguments[0]) != "help.png") return std::nullopt;
    const WindowTable& windows = shown->host.platform().windows();
    for (const WindowHandle handle : windows.Order()) {
      const Window& window = *windows.Find(handle);
      if (window.owner != Window::Owner::Form) continue;
      forms += window.parent == shown->host.window() ? "inside " : "outside ";
    }
    return std::string();
  };
  ItemFixture item(SmallItem({{"Drag the items.", R"(&lt;img src="help.png"&gt;)"}}),
                   Intercept(listen));
  shown = &item;
  item.candidate.ClickButton("btnInstructions");
  EXPECT_EQ(forms, "inside inside ");
  item.candidate.ClickButton("btnInstructions");
  EXPECT_EQ(forms, "inside inside inside inside ");
}

// A caption may bring a button of any name; what the host did not allow stays without effect.
TEST(Footer, DoesWhatTheOptionsAllowOnly) {
  for (const std::int32_t lOptions : {0, 0x110}) {
    bool calculates = false;
    const auto listen = [&](std::string_view, std::span<Variant> arguments) {
      calculates = calculates || (!arguments.empty() && ToText(arguments[0]) == "dcalc.exe");
      return std::optional<Variant>();
    };
    ItemFixture item(SmallItem(), Intercept(listen, WithOptions(lOptions)));
    for (const char* button : {"btnSetAnswers", "btnCalculator"}) {
      PageEvent event;
      event.type = "click";
      event.sourceId = button;
      item.form().controls.brwButtons.onPageEvent(event);
    }
    EXPECT_EQ(item.Responses(), lOptions == 0 ? "" : "A1 B2 D12");
    EXPECT_EQ(calculates, lOptions != 0);
  }
}

TEST(FormsMembers, GiveWhatTheComponentHas) {
  ItemFixture item(SmallItem());
  clsDragDrop& component = item.host.item();
  EXPECT_TRUE(Contains(component.GetStaticStringsXml(), "KVStatic.xml"));
  EXPECT_EQ(&component.ErrorDisplay(), item.form().Owner().Module().gErrorDisplay);
  const TemporaryFolder folder;
  const std::vector<std::uint8_t> written = {0, 255, 10};
  std::vector<std::uint8_t> read = {1};
  EXPECT_EQ(component.ReadFileBytes("", read), 0);
  EXPECT_EQ(read.size(), 1) << "no file, nothing changed";
  EXPECT_TRUE(component.WriteFileBytes(folder.Path("bytes"), written));
  EXPECT_EQ(component.ReadFileBytes(folder.Path("bytes"), read), 3);
  EXPECT_EQ(read, written);
  const auto engine = std::make_shared<ScoreEngine>();
  component.SetScoreEngine(engine);
  EXPECT_EQ(&component.ScoreEngine(), engine.get());
}

TEST(StateSection, IsMadeWhereThereIsNone) {
  ReferenceHost host(SmallItem());
  host.Init();
  EXPECT_EQ(host.State(), "<State><Responses/></State>");
  host.SetState("");
  EXPECT_EQ(host.State(), "");
  host.Show();
  EXPECT_EQ(host.State().substr(0, 19), "<State><Responses/>");
  EXPECT_EQ(host.Status().lDispState, 2);
  host.SetState(kTwo);
  EXPECT_EQ(host.Status().lDispState, 100);
}

TEST(StateSnapshot, HasItsSizeInUtf16AndRoomForMore) {
  const struct {
    const char* why;
    std::string state;
    std::int32_t bytes;
  } rows[] = {
      {"none", "", 12},
      {"100 characters", "<State>" + std::string(85, 'x') + "</State>", 212},
      {"two units for one character", "<State>𝄞</State>", 46},
      {"more than one byte", "<State>é</State>", 44},
  };
  for (const auto& row : rows) {
    ReferenceHost host(SmallItem());
    host.Init();
    const Listener listener(host.item());
    host.SetState(row.state);
    EXPECT_EQ(host.item().GetExternalStateBytes(), row.bytes) << row.why;
    EXPECT_EQ(host.State(), row.state) << row.why;
    EXPECT_EQ(host.State(), row.state) << "asked again";
    EXPECT_EQ(listener.heard, "4 3 3 3 ") << "LoadState once, SetState for each size";
  }
}

TEST(StateSnapshot, FillsTheHostsArrayAndNoMore) {
  const std::string state = "<State>ab</State>";  // 17 characters
  const struct {
    const char* why;
    std::vector<SafeArray::Dimension> array;
    std::int32_t lBytes;
    std::string want;
    std::string reports;
  } rows[] = {
      {"as large as was asked for", {{0, 46}}, 46, state + "000000", ""},
      {"another lower bound", {{-3, 34}}, 34, state, ""},
      {"fewer bytes wanted: the rest is the host's own", {{1, 34}}, 14, "<State>..........", ""},
      {"more than the snapshot: zeroed as far as wanted", {{0, 44}}, 38, state + "00...", ""},
      {"a smaller array", {{0, 6}}, 46, "<St", ""},
      {"no bytes wanted", {{0, 4}}, 0, "..", ""},
      {"less than none", {{0, 4}}, -8, "..", ""},
      {"two dimensions", {{0, 4}, {0, 2}}, 8, "....", "GetExternalStateArray"},
      {"empty", {{0, 0}}, 8, "", "GetExternalStateArray"},
      {"never sized", {}, 8, "", "GetExternalStateArray"},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    item.host.SetState(state);
    SafeArray array = Buffer(row.array);
    item.host.item().GetExternalStateArray(array, row.lBytes);
    EXPECT_EQ(Filled(array), row.want) << row.why;
    EXPECT_EQ(Reports(item), row.reports) << row.why;
    if (!row.reports.empty()) {
      EXPECT_TRUE(Contains(item.Log()[0], "(9)")) << row.why;
    }
  }
}

TEST(StateSnapshot, ComesInWhateverTheHostMadeOfIt) {
  std::vector<std::uint8_t> odd = Utf8ToUtf16Le(kTwo);
  odd.push_back('x');
  const struct {
    const char* why;
    SafeArray array;
    std::string want;
    std::string reports;
    std::string events;
  } rows[] = {
      {"as it went out", Utf16Array(kTwo), kTwo, "", "4 "},
      {"with zeros after it", Utf16Array(kTwo + std::string(6, '\0')), kTwo, "", "4 "},
      {"blanks round it", Utf16Array("  " + std::string(kTwo) + "  "), kTwo, "", "4 "},
      {"blank", Utf16Array("     "), "", "", "4 "},
      {"two characters are no state", Utf16Array(" ab "), "", "", "4 "},
      {"never sized", SafeArray(), "", "", "4 "},
      {"not well-formed: the old one is gone", Utf16Array("<State>"), "", "SetExternalStateArray",
       ""},
      {"no XML", Utf16Array("A1, B2"), "", "SetExternalStateArray", ""},
      {"half a unit", SafeArray(odd), "<State><Responses/></State>", "SetExternalStateArray", ""},
  };
  for (const auto& row : rows) {
    ReferenceHost host(SmallItem());
    host.Init();
    const Listener listener(host.item());
    host.item().SetExternalStateArray(row.array, 0);
    EXPECT_EQ(listener.heard, row.events) << row.why;
    EXPECT_EQ(host.State(), row.want) << row.why;
    std::string reports;
    for (const LogEntry& entry : host.parent().log()) reports += entry.routine;
    EXPECT_EQ(reports, row.reports) << row.why;
  }
}

}  // namespace
}  // namespace zav

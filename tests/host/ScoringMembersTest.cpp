// Records, scores and messages of the item interface, and the interface by name.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "form/FormCore.h"
#include "host/StaticMessages.h"
#include "support/Intercepted.h"
#include "support/Raised.h"
#include "support/SmallItem.h"

namespace zav {
namespace {

constexpr const char* kResponses =
    "<Responses><Response>A1</Response><Response>B2</Response></Responses>";
constexpr const char* kKey =
    R"(<Answers><Answer Weight="2">A1 AND B2</Answer><Answer Weight="1">D12</Answer></Answers>)";

std::string StateOf(const std::string& responses) { return "<State>" + responses + "</State>"; }

SafeArray Utf16Array(std::string_view text) { return SafeArray(Utf8ToUtf16Le(text)); }

std::string Words(const ScoreCounts& counts) {
  return ToText(counts.nCorrect) + " " + ToText(counts.nIncorrect) + " " +
         ToText(counts.nNotAttempted) + " " + ToText(counts.nNotScored) + " " +
         (std::isnan(counts.fRawScore) ? "NaN" : ToText(counts.fRawScore));
}

TEST(Records, AreInTheItemsFormat) {
  const struct {
    const char* why;
    const char* type;
    std::int32_t kind;
    std::string state;
    std::string want;
  } rows[] = {
      {"responses with commas", "S", 1, StateOf(kResponses), " A1, B2"},
      {"the key with commas", "S", 0, StateOf(kResponses), " A1 AND B2, D12"},
      {"responses as they are", "N", 1, StateOf(kResponses), kResponses},
      {"the key as it is", "N", 0, StateOf(kResponses), kKey},
      {"the host's response record", "H", 1, StateOf(kResponses),
       "<Visited><cmdShowQuestion/></Visited><ItemType><CT/></ItemType>"
       R"(<UserAnswers><Answer Value="A1"/><Answer Value="B2"/></UserAnswers>)"},
      {"the host's key record", "H", 0, "",
       R"(<Answers><Answer Expression="A1 AND B2" Weight="2"/>)"
       R"(<Answer Expression="D12" Weight="1"/></Answers>)"},
      {"a format in other letters is the host's", "n", 0, "",
       R"(<Answers><Answer Expression="A1 AND B2" Weight="2"/>)"
       R"(<Answer Expression="D12" Weight="1"/></Answers>)"},
      {"no responses with commas", "S", 1, StateOf("<Responses/>"), ""},
      {"no responses in the host's record", "", 1, StateOf("<Responses/>"),
       "<Visited><cmdShowQuestion/></Visited><ItemType><CT/></ItemType><UserAnswers/>"},
      {"no state", "N", 1, "", ""},
      {"no such record", "N", 2, StateOf(kResponses), ""},
  };
  for (const auto& row : rows) {
    ItemFixture item(
        SmallItem({{"ResponseType=\"S\"", std::string("ResponseType=\"") + row.type + "\""}}));
    item.host.SetState(row.state);
    const std::string before = item.host.State();
    bool isAscii = false;
    const std::int32_t bytes = item.host.item().GetResponseBytes(row.kind, isAscii);
    EXPECT_TRUE(isAscii) << row.why;
    EXPECT_EQ(bytes, static_cast<std::int32_t>(2 * row.want.size())) << row.why;
    SafeArray array(std::vector<std::uint8_t>(static_cast<std::size_t>(bytes) + 4, 0xEE), 1);
    EXPECT_TRUE(item.host.item().GetResponse(row.kind, array, bytes + 4)) << row.why;
    std::vector<std::uint8_t> want = Utf8ToUtf16Le(row.want);
    want.resize(want.size() + 4, 0xEE);
    EXPECT_EQ(array.Bytes(), want) << row.why << ": and nothing behind the record";
    EXPECT_EQ(item.host.State(), before) << row.why << ": nothing changes";
    EXPECT_EQ(Reports(item), "") << row.why;
  }
}

TEST(Records, AreReportedWhenTheHostsArrayOrTheKeyIsBad) {
  const struct {
    const char* why;
    SafeArray array;
    std::vector<ItemEdit> edits;
    std::string reports;
  } rows[] = {
      {"two dimensions", SafeArray::WithDimensions({{0, 4}, {0, 4}}), {}, "GetResponse"},
      {"never sized", SafeArray(), {}, "GetResponse"},
      {"no key where the host's record wants one",
       SafeArray::WithDimensions({{0, 4}}),
       {{"ResponseType=\"S\"", ""}, {"<Answers>", "<Other>"}, {"</Answers>", "</Other>"}},
       "ConvertKey"},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem(row.edits));
    SafeArray array = row.array;
    EXPECT_EQ(item.host.item().GetResponse(0, array, 4), row.reports == "ConvertKey") << row.why;
    EXPECT_EQ(Reports(item), row.reports) << row.why;
  }
}

// An engine that gives the score it was told to and keeps what it was asked to score.
struct StubEngine : Object, ScoringEngine {
  void SetDocument(DataIORef document) override { document_ = std::move(document); }
  DataIORef Document() override { return document_; }
  Variant CalculateScore() override {
    ++scored;
    xml = document_->GetXml();
    if (fails) throw AutomationError(1000, "cannot score", "engine");
    return raw;
  }
  Variant MaxScore() override { return CalculateScore(); }
  Variant MinScore() override { return Variant(-1.5); }
  Variant Invoke(std::string_view, std::span<Variant>, InvokeKind) override { return {}; }

  Variant raw;
  bool fails = false;
  int scored = 0;
  std::string xml;

 private:
  DataIORef document_;
};

// A host that has an engine of its own.
struct Examiner {
  Examiner() {
    classes.Register(kScoreEngineProgId, [this] { return engine; });
    item = std::make_unique<clsDragDrop>(platform->platform(), classes);
    item->mExtParent = parent;
    item->SetExternalSupport(std::make_shared<SupportObject>(folder, support, calls));
    const SafeArray bytes(folder.ItemBytes());
    item->InitExternalDisplay(bytes, 0, 0);
  }
  void SetState(const std::string& state) { item->SetExternalStateArray(Utf16Array(state), 0); }

  ItemFolder folder = SmallItem();
  SupportFolder support;
  CallRecord calls;
  std::unique_ptr<HeadlessPlatform> platform = MakeHeadlessPlatform();
  std::shared_ptr<StubEngine> engine = std::make_shared<StubEngine>();
  std::shared_ptr<ParentObject> parent = std::make_shared<ParentObject>(folder, calls);
  ClassRegistry classes;
  std::unique_ptr<clsDragDrop> item;
};

TEST(Scores, AreTheEnginesInTheHostsCounts) {
  const struct {
    const char* why;
    std::string state;
    Variant raw;
    bool fails;
    std::string want;  // correct, incorrect, not attempted, not scored, raw
    int scored;
  } rows[] = {
      {"more than 0 is correct", StateOf(kResponses), 0.5, false, "1 0 0 0 0.5", 1},
      {"0 is not", StateOf(kResponses), 0.0, false, "0 1 0 0 0", 1},
      {"nor is less", StateOf(kResponses), std::int32_t{-1}, false, "0 1 0 0 -1", 1},
      {"nor what is no number", StateOf(kResponses), std::nanf(""), false, "0 1 0 0 NaN", 1},
      {"a number as text", StateOf(kResponses), std::string("7"), false, "1 0 0 0 7", 1},
      {"nothing given", StateOf(kResponses), {}, false, "0 1 0 0 0", 1},
      {"no responses yet", StateOf("<Responses/>"), 1.0, false, "0 0 1 1 0", 0},
      {"no state", "", 1.0, false, "0 0 0 0 0", 0},
      {"a state without responses", "<State><X/></State>", 1.0, false, "0 0 0 0 0", 0},
      {"an engine that fails", StateOf(kResponses), 1.0, true, "0 0 0 0 0", 1},
      {"a score that is none", StateOf(kResponses), std::string("x"), false, "0 0 0 0 0", 1},
  };
  for (const auto& row : rows) {
    Examiner examiner;
    examiner.SetState(row.state);
    examiner.engine->raw = row.raw;
    examiner.engine->fails = row.fails;
    ScoreCounts counts{9, 9, 9, 9, 9};
    const bool failed = row.fails || row.why == std::string_view("a score that is none");
    EXPECT_EQ(examiner.item->ScoreExternalDisplay(counts), !failed) << row.why;
    EXPECT_EQ(Words(counts), row.want) << row.why;
    EXPECT_EQ(examiner.engine->scored, row.scored) << row.why;
    ASSERT_EQ(examiner.parent->log().size(), failed ? 1U : 0U) << row.why;
    if (failed) {
      EXPECT_EQ(examiner.parent->log()[0].routine, "DisplayInt_ScoreExternalDisplay");
    }
  }
}

TEST(Scores, AreMadeOfExactlyTheseDocuments) {
  Examiner examiner;
  examiner.SetState(StateOf(kResponses));
  ScoreCounts counts;
  examiner.item->ScoreExternalDisplay(counts);
  EXPECT_EQ(examiner.engine->xml, StateOf(std::string(kResponses) + kKey)) << "the live state";

  examiner.item->RescoreExternalDisplay(Utf16Array("D12"), 6, counts);
  const std::string& whole = examiner.engine->xml;
  const std::string state = StateOf("<Responses><Response>D12</Response></Responses>");
  EXPECT_EQ(whole.substr(0, 16), "<DragAndDropItem") << "a record: with the whole item";
  EXPECT_EQ(whole.substr(whole.size() - state.size() - 18), state + "</DragAndDropItem>");
  EXPECT_TRUE(Contains(whole, kKey));
  EXPECT_TRUE(Contains(whole, "<Static>"));

  std::int16_t items = 0;
  float most = 0;
  float least = 0;
  examiner.engine->raw = 2.5;
  EXPECT_TRUE(examiner.item->GetScoreInfo(items, most, least));
  EXPECT_EQ(examiner.engine->xml, kKey) << "the key alone for the maximum";
  EXPECT_EQ(items, 1);
  EXPECT_EQ(most, 2.5F);
  EXPECT_EQ(least, -1.5F);
  examiner.engine->fails = true;
  EXPECT_EQ(Catch([&] { examiner.item->GetScoreInfo(items, most, least); }).number, 1000)
      << "reaches the host";
  EXPECT_TRUE(examiner.parent->log().empty());
}

// However little of the item has changed since the last time.
TEST(Rescoring, GivesTheEngineTheItemAsItIs) {
  Examiner examiner;
  ScoreCounts counts;
  const struct {
    const char* why;
    std::function<void()> before;
  } rows[] = {
      {"the first time", [] {}},
      {"with another state only", [] {}},
      {"another time", [] {}},
      {"an item that changed", [&] { examiner.item->DataIO().SetAttribute("Extra", "yes"); }},
      {"after the live state was scored", [&] { examiner.item->ScoreExternalDisplay(counts); }},
      {"a document of the engine's that changed",
       [&] { examiner.engine->Document()->RemoveNode("Answers"); }},
      {"another document of the engine's",
       [&] { examiner.engine->SetDocument(std::make_shared<DataIO>()); }},
      {"a document that is searched from elsewhere",
       [&] {
         examiner.engine->Document()->FindNode("Groups");
         examiner.engine->Document()->SetFromRoot(false);
       }},
      {"after a state was set", [&] { examiner.SetState(StateOf(kResponses)); }},
  };
  int number = 0;
  for (const auto& row : rows) {
    row.before();
    const std::string record = "A" + std::to_string(++number);
    examiner.item->RescoreExternalDisplay(Utf16Array(record), 1, counts);
    EXPECT_EQ(examiner.engine->xml, examiner.item->DataIO().GetXml()) << row.why;
    EXPECT_TRUE(Contains(examiner.engine->xml, ">" + record + "<")) << row.why;
  }
}

TEST(Rescoring, MakesTheRecordTheState) {
  const std::string hostRecord =
      "<Visited><cmdShowQuestion/></Visited><ItemType><CT/></ItemType>"
      R"(<UserAnswers><Answer Value="A1"/><Answer Value="B2"/></UserAnswers>)";
  const struct {
    const char* why;
    std::string record;
    bool quick;
    std::int32_t lRespBytes;
    std::string state;
    std::string counts;
    bool result;
    std::string reports;
  } rows[] = {
      {"a list", "A1,B2", false, 1, StateOf(kResponses), "1 0 0 0 2", true, ""},
      {"blanks in it", "  A1 ,  B2 ", false, 1, StateOf(kResponses), "1 0 0 0 2", true, ""},
      {"a comma at its end", "A1,", false, 1,
       StateOf("<Responses><Response>A1</Response></Responses>"), "0 1 0 0 0", true, ""},
      {"nothing between commas", "A1,,B2", false, 1,
       StateOf("<Responses><Response>A1</Response><Response/><Response>B2</Response></Responses>"),
       "1 0 0 0 2", true, ""},
      {"an empty record", "", false, 1, StateOf("<Responses/>"), "0 0 1 1 0", true, ""},
      {"the element itself", kResponses, false, 1, StateOf(kResponses), "1 0 0 0 2", true, ""},
      {"the host's record", hostRecord, false, 1, StateOf(kResponses), "1 0 0 0 2", true, ""},
      {"no bytes: the state stays", "A1,B2", false, 0, StateOf("<Responses/>"), "0 0 0 0 0", true,
       ""},
      {"less than none", "A1,B2", true, -1, StateOf("<Responses/>"), "0 0 0 0 0", true, ""},
      {"an element that is cut", "<Responses>", false, 1, "", "9 9 9 9 9", false,
       "DisplayInt_RescoreExternalDisplay"},
      {"a host's record that is cut", "<UserAnswers", false, 1, StateOf("<Responses/>"),
       "9 9 9 9 9", false, "ConvertResponse"},
      {"a list that is no text of XML", "A&1", false, 1, "", "9 9 9 9 9", false,
       "DisplayInt_RescoreExternalDisplay"},
      {"quick: the element", kResponses, true, 1, StateOf(kResponses), "1 0 0 0 2", true, ""},
      {"quick: anything else is no responses", "A1", true, 1, StateOf("A1"), "0 0 0 0 0", true, ""},
      {"quick: what is cut", "<Responses>", true, 1, "", "9 9 9 9 9", false,
       "DisplayInt_RescoreExternalDisplayQuick"},
  };
  for (const auto& row : rows) {
    ReferenceHost host(SmallItem());
    host.Init();
    ScoreCounts counts{9, 9, 9, 9, 9};
    SafeArray unusedArray;
    std::int32_t unusedLength = 5;
    const SafeArray record = Utf16Array(row.record);
    const bool result = row.quick
                            ? host.item().RescoreExternalDisplayQuick(
                                  record, row.lRespBytes, counts, unusedArray, unusedLength)
                            : host.item().RescoreExternalDisplay(record, row.lRespBytes, counts);
    EXPECT_EQ(result, row.result) << row.why;
    EXPECT_EQ(Words(counts), row.counts) << row.why;
    EXPECT_EQ(host.State(), row.state) << row.why;
    std::string reports;
    for (const LogEntry& entry : host.parent().log()) reports += entry.routine;
    EXPECT_EQ(reports, row.reports) << row.why;
  }
}

TEST(Rescoring, LeavesTheFormAsItIs) {
  ItemFixture item(SmallItem());
  item.Drag("source 3").To("target C").Release();
  EXPECT_EQ(item.host.Rescore("A1").nIncorrect, 1);
  EXPECT_EQ(TagOf(item, 'C'), "3*1*C3");
  EXPECT_EQ(item.Responses(), "A1");
  item.host.SetState(item.host.State());
  item.host.Show();
  EXPECT_EQ(item.Responses(), "A1");
  EXPECT_EQ(Faults(item), "") << "once the host sets a state the form follows";
}

TEST(Messages, SayExactlyWhatFailed) {
  const auto fails = [](std::string_view member, std::span<Variant>) -> std::optional<Variant> {
    if (member == "GetLocalizePath") throw AutomationError(5, "x", "y");
    return std::nullopt;
  };
  ItemFixture item(SmallItem(), Intercept(fails));
  const LogEntry& entry = item.host.parent().log().at(0);
  EXPECT_EQ(entry.number, 5);
  EXPECT_EQ(entry.description, "x");
  EXPECT_EQ(entry.source, "ZavDragDrop");
  EXPECT_EQ(entry.extra, "");
  EXPECT_EQ(entry.routine, "DisplayInt_ExternalSupport_Set");
  EXPECT_EQ(entry.line, 0);
  const ShownMessage& message = item.host.parent().messages().at(0);
  EXPECT_EQ(message.text,
            "Error: Description - x.  Number - 5  Source - y  Routine - "
            "DisplayInt_ExternalSupport_Set  LineNumber - 0");
  EXPECT_EQ(message.style, 16);

  item.host.item().SetExternalSupport(nullptr);
  EXPECT_EQ(item.host.parent().messages().back().text,
            "Error: Description - External Support is nothing.  Number - -2147221504  Source - "
            "Overview  Routine - DisplayInt_ExternalSupport_Set  LineNumber - 0");
}

TEST(Messages, AreLookedUpInTheirSection) {
  ItemFixture item(SmallItem());
  ItemOwner& owner = item.form().Owner();
  DataIO& document = item.form().Document();
  document.SetFromRoot(true);
  document.InsertXml("Static", "<Odd>% of 3%</Odd>");
  document.InsertXml("Static", "<None>nothing</None>");
  document.InsertXml("Versions", "<cmdScroll>elsewhere</cmdScroll>");
  const struct {
    const char* why;
    const char* key;
    const char* section;
    bool replace;
    std::int16_t value;
    std::string want;
    std::string reports;  // so far
  } rows[] = {
      {"in its section", "cmdScroll", "ButtonText", false, 0, "Scroll", ""},
      {"a section that is not there: all of them", "cmdScroll", "Nowhere", false, 0, "Scroll", ""},
      {"no section: all of them", "cmdScroll", "", false, 0, "Scroll", ""},
      {"one digit", "NumSourceUses", "", true, 3, "Number of times that this item may be used: 3.",
       ""},
      {"two digits", "NumSourceUses", "", true, 12,
       "Number of times that this item may be used: 12.", ""},
      {"three overwrite what follows", "Odd", "", true, 123, "123of 3%", ""},
      {"as it stands", "Odd", "", false, 3, "% of 3%", ""},
      {"unknown", "cmdNone", "", false, 0, "", "GetStaticMsg"},
      {"nothing to replace", "None", "", true, 3, "nothing", "GetStaticMsg, String_Replace"},
  };
  for (const auto& row : rows) {
    document.SetFromRoot(false);
    EXPECT_EQ(GetStaticMsg(owner, row.key, row.replace, row.value, row.section), row.want)
        << row.why;
    EXPECT_FALSE(document.GetFromRoot()) << row.why;
    EXPECT_EQ(Reports(item), row.reports) << row.why;
  }
  EXPECT_TRUE(Contains(item.Log()[0], "Static node not found, cmdNone (-2147221494)"));
  document.SetFromRoot(true);
  document.RemoveNode("Static");
  EXPECT_EQ(GetStaticMsg(owner, "cmdScroll"), "");
  EXPECT_TRUE(Contains(item.Log().back(), "Static node not found, Static (-2147221494)"));
}

TEST(DefaultInterface, HasItsMembersInOrder) {
  std::string names;
  for (const auto& member : clsDragDrop::Members()) names.append(member.name) += " ";
  EXPECT_EQ(names,
            "mExtParent mlParenthWnd mFontReg mFontBld mbclosing AppVersion ExternalSupport "
            "SelfNavigation DisplayInt_hwnd DisplayInt_ExternalSupport "
            "DisplayInt_FreeExternalDisplay DisplayInt_GetExternalDisplayStatus "
            "DisplayInt_GetExternalStateBytes DisplayInt_GetExternalStateArray "
            "DisplayInt_GetResponse ConvertKey DisplayInt_GetResponseBytes "
            "DisplayInt_GetScoreInfo DisplayInt_HideExternalDisplay "
            "DisplayInt_InitExternalDisplay DisplayInt_RescoreExternalDisplay "
            "DisplayInt_RescoreExternalDisplayQuick DisplayInt_ResizeExternalDisplay "
            "DisplayInt_ScoreExternalDisplay DisplayInt_SetExternalStateArray "
            "DisplayInt_SetParentWnd DisplayInt_ShowExternalDisplay ");
}

// A variant with its type: 5s for 16 bits, 5 for 32, 5f for single precision.
std::string Words(const Variant& value) {
  if (std::holds_alternative<std::monostate>(value)) return "-";
  if (const auto* array = std::get_if<SafeArray>(&value)) {
    return "[" + Utf16LeToUtf8(array->Bytes()) + "]";
  }
  const std::string text = ToText(value);
  if (std::holds_alternative<std::int16_t>(value)) return text + "s";
  return std::holds_alternative<float>(value) ? text + "f" : text;
}

TEST(DefaultInterface, DrivesAWholeSessionByName) {
  Examiner examiner;
  examiner.engine->raw = 2.0;
  clsDragDrop& item = *examiner.item;
  item.Put("mExtParent", examiner.parent);
  item.Put("mlParenthWnd", std::int16_t{5});
  item.Put("MBCLOSING", std::string("true"));
  item.Put("mFontReg", item.mFontBld());
  EXPECT_TRUE(ToBoolean(item.mFontReg()->Call("bold")));
  item.Put("DisplayInt_ExternalSupport", item.ExternalSupport());
  const SafeArray xml(examiner.folder.ItemBytes());
  const auto room = [](std::size_t bytes) { return SafeArray(std::vector<std::uint8_t>(bytes)); };
  const struct {
    const char* name;
    std::vector<Variant> arguments;
    std::string want;  // the result, then what the arguments are after the call
  } rows[] = {
      {"mlparenthwnd", {}, "5"},
      {"mbclosing", {}, "True"},
      {"SelfNavigation", {}, "False"},
      {"AppVersion", {}, "1.0.0"},
      {"DisplayInt_SetParentWnd", {std::string("7")}, "7 7"},
      {"DisplayInt_hwnd", {}, "0"},
      {"DisplayInt_InitExternalDisplay",
       {xml, 0, 0},
       "True [" + examiner.folder.itemXml() + "] 0 0"},
      {"DisplayInt_ShowExternalDisplay", {0, 0, 15000, std::string("9000")}, "True 0 0 15000 9000"},
      {"DisplayInt_ResizeExternalDisplay", {0, 0, 0, 0}, "True 0 0 0 0"},
      {"DisplayInt_SetExternalStateArray",
       {Utf16Array(StateOf("<A/>")), 0},
       "- [<State><A/></State>] 0"},
      {"displayint_getexternaldisplaystatus",
       {Variant(), Variant(), std::string("kept")},
       "- 2 False kept"},
      {"DisplayInt_GetExternalStateBytes", {}, "50"},
      {"DisplayInt_GetExternalStateArray", {room(14), 14}, "- [<State>] 14"},
      {"DisplayInt_RescoreExternalDisplay",
       {Utf16Array("A1,B2"), 1, 9, 9, 9, 9, 9},
       "True [A1,B2] 1 1s 0s 0s 0s 2f"},
      {"DisplayInt_RescoreExternalDisplayQuick",
       {Utf16Array(kResponses), 1, 9, 9, 9, 9, 9, Variant(), Variant()},
       "True [" + std::string(kResponses) + "] 1 1s 0s 0s 0s 2f - -"},
      {"DisplayInt_ScoreExternalDisplay", {9, 9, 9, 9, 9}, "True 1s 0s 0s 0s 2f"},
      {"DisplayInt_GetScoreInfo", {Variant(), Variant(), Variant()}, "True 1s 2f -1.5f"},
      {"DisplayInt_GetResponseBytes", {1, false}, "14 1 True"},
      {"DisplayInt_GetResponse", {1, room(14), 14}, "True 1 [ A1, B2] 14"},
      {"ConvertKey", {std::string("<Answers/>")}, "<Answers/> <Answers/>"},
      {"DisplayInt_HideExternalDisplay", {}, "True"},
      {"DisplayInt_FreeExternalDisplay", {}, "True"},
  };
  for (const auto& row : rows) {
    std::vector<Variant> arguments = row.arguments;
    std::string words = Words(item.Invoke(row.name, arguments));
    for (const Variant& argument : arguments) words += " " + Words(argument);
    EXPECT_EQ(words, row.want) << row.name;
  }
  EXPECT_TRUE(examiner.parent->log().empty());
}

TEST(DefaultInterface, RefusesWhatItDoesNotHave) {
  Examiner examiner;
  clsDragDrop& item = *examiner.item;
  const struct {
    const char* why;
    const char* name;
    std::vector<Variant> arguments;
    InvokeKind kind;
    std::int32_t number;
  } rows[] = {
      {"no such member", "DisplayInt_Nothing", {}, InvokeKind::Call, 438},
      {"the form's own members are not there", "Redisplay", {0, 0, 0, 0}, InvokeKind::Call, 438},
      {"a property that is only read", "AppVersion", {1}, InvokeKind::Put, 438},
      {"a property that is only stored", "DisplayInt_ExternalSupport", {}, InvokeKind::Call, 438},
      {"too few arguments", "DisplayInt_SetParentWnd", {}, InvokeKind::Call, 450},
      {"too many", "DisplayInt_hwnd", {1}, InvokeKind::Call, 450},
      {"text for a number", "DisplayInt_SetParentWnd", {std::string("x")}, InvokeKind::Call, 13},
      {"a number for an array", "DisplayInt_SetExternalStateArray", {1, 1}, InvokeKind::Call, 13},
      {"a text for an object", "mExtParent", {std::string("x")}, InvokeKind::Put, 13},
      {"another object for a font", "mFontReg", {ObjectRef()}, InvokeKind::Put, 13},
  };
  for (const auto& row : rows) {
    std::vector<Variant> arguments = row.arguments;
    const Raised raised = Catch([&] { item.Invoke(row.name, arguments, row.kind); });
    EXPECT_EQ(raised.number, row.number) << row.why;
  }
}

}  // namespace
}  // namespace zav

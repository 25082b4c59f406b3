// The reference case study, driven by name as an item drives it.
#include "hosting/CaseStudy.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "controls/Form.h"
#include "platform/headless/HeadlessPlatform.h"
#include "support/Raised.h"

namespace zav {
namespace {

constexpr std::string_view kProgId = "ZavCaseStudy.clsCaseStudy";

using Bytes = std::vector<std::uint8_t>;

Bytes Utf8(std::string_view text) { return {text.begin(), text.end()}; }

Bytes Utf16WithMark(std::string_view text) {
  Bytes bytes = Utf8ToUtf16Le(text);
  bytes.insert(bytes.begin(), {0xFF, 0xFE});
  return bytes;
}

std::string Case(const std::string& text) {
  return "<Case><Heading>Caf\u00e9</Heading><Text>&lt;html&gt;" + text + "</Text></Case>";
}

// Finds pictures in a folder of its own.
class Support : public Object {
 public:
  Variant Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind) override {
    EXPECT_EQ(name, "GetGraphicsPath");
    return "/items/" + ToText(arguments[0]);
  }
};

// A case study in a host's window of 1024 x 768 pixels, 15 twips each.
struct Stage {
  Stage() {
    ClassRegistry registry;
    RegisterCaseStudy(registry, platform->platform());
    object = registry.Create(kProgId);
  }

  CaseStudy& Study() { return static_cast<CaseStudy&>(*object); }

  void Init(const Bytes& file, const std::string& heading = "Question") {
    object->Call("DisplayInt_SetParentWnd", hostWindow);
    object->Call("InitCaseStudy", SafeArray(file), static_cast<std::int32_t>(file.size()), 0,
                 ObjectRef(support), heading);
    platform->RunPosted();
  }

  void Show() { object->Call("DisplayInt_ShowExternalDisplay", 0, 0, 15360, 11520); }

  bool SeenAll() {
    Variant status[] = {std::int32_t{7}, false, std::string("kept")};
    object->Invoke("DisplayInt_GetExternalDisplayStatus", status);
    EXPECT_EQ(ToInt32(status[0]), 7);
    EXPECT_EQ(ToText(status[2]), "kept");
    return ToBoolean(status[1]);
  }

  std::unique_ptr<HeadlessPlatform> platform = MakeHeadlessPlatform();
  WindowHandle hostWindow = platform->CreateHostWindow("Test driver");
  std::shared_ptr<Support> support = std::make_shared<Support>();
  ObjectRef object;
};

TEST(CaseStudy, LeavesTheQuestionItsPartOfTheRectangle) {
  Stage stage;
  stage.Init(Utf8(Case("text")));
  const struct {
    const char* why;
    std::int32_t whole[4];
    std::int32_t question[4];
  } rows[] = {
      {"three edges of 120 leave 15000, two fifths of it to the text; 405 on top, 120 below",
       {0, 0, 15360, 11520},
       {6240, 405, 9000, 10995}},
      {"the corner counts from the case study's window, wherever that stands",
       {300, 150, 15360, 11520},
       {6240, 405, 9000, 10995}},
      {"the smallest that a host may ask for", {0, 0, 8000, 4500}, {3296, 405, 4584, 3975}},
      {"too narrow and too low for anything", {0, 0, 200, 100}, {240, 405, 0, 0}},
  };
  for (const auto& row : rows) {
    Variant rect[] = {row.whole[0], row.whole[1], row.whole[2], row.whole[3]};
    stage.object->Invoke("QuestionSize", rect);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(ToInt32(rect[i]), row.question[i]) << row.why << i;
  }
}

TEST(CaseStudy, PutsItsTextBesideTheQuestion) {
  Stage stage;
  stage.Init(Utf8(Case("text")));
  stage.object->Call("DisplayInt_ShowExternalDisplay", 300, 150, 15360, 11520);
  EXPECT_TRUE(stage.Study().form().visible());
  EXPECT_EQ(stage.Study().form().rect(), (Rect{300, 150, 15360, 11520}));
  EXPECT_EQ(stage.Study().text().rect(), (Rect{120, 405, 6000, 10995}));
  stage.object->Call("DisplayInt_ResizeExternalDisplay", 0, 0, 8000, 4500);
  EXPECT_EQ(stage.Study().text().rect(), (Rect{120, 405, 3056, 3975}));
  stage.object->Call("DisplayInt_HideExternalDisplay");
  EXPECT_FALSE(stage.Study().form().visible());
  stage.object->Call("DisplayInt_ResizeExternalDisplay", 0, 0, 15360, 11520);
  EXPECT_FALSE(stage.Study().form().visible()) << "only showing shows";
}

TEST(CaseStudy, ReadsItsFile) {
  const struct {
    const char* why;
    Bytes file;
    const char* page;
  } rows[] = {
      {"UTF-8", Utf8(Case("\u00e9")), "<html>\u00e9"},
      {"UTF-16 with a byte-order mark", Utf16WithMark(Case("\u00e9")), "<html>\u00e9"},
      {"pictures stand where the support object says", Utf8(Case("&lt;img src=\"a.png\"&gt;")),
       "<html><img src=\"/items/a.png\">"},
      {"other order, other elements",
       Utf8("<?xml version=\"1.0\"?><Case><Author/><Text>&lt;html&gt;x</Text><Heading/></Case>"),
       "<html>x"},
  };
  for (const auto& row : rows) {
    Stage stage;
    stage.Init(row.file);
    EXPECT_EQ(stage.Study().text().page(), row.page) << row.why;
  }
}

TEST(CaseStudy, RefusesAFileThatIsNoCase) {
  const Variant good = SafeArray(Utf8(Case("first")));
  const struct {
    const char* why;
    Variant file;
    std::int32_t count;
    std::int32_t error;
    const char* says;
  } rows[] = {
      {"cut in the middle", SafeArray(Utf8(Case("x"))), 20, error_number::kComponent, "line 1"},
      {"no XML at all", SafeArray(Utf8("case")), 4, error_number::kComponent, "line 1"},
      {"no heading", SafeArray(Utf8("<Case><Text/></Case>")), 20, error_number::kInvalidArgument,
       "Heading"},
      {"no text", SafeArray(Utf8("<Case><Heading/></Case>")), 23, error_number::kInvalidArgument,
       "Text"},
      {"fewer bytes than were promised", SafeArray(Utf8("<Case/>")), 8,
       error_number::kIndexOutOfRange, "7 bytes, not 8"},
      {"a count below 0", SafeArray(Utf8("<Case/>")), -1, error_number::kIndexOutOfRange, "-1"},
      {"no array", std::string("<Case/>"), 7, error_number::kTypeMismatch, "byte array"},
  };
  Stage stage;
  stage.Init(Utf8(Case("first")));
  for (const auto& row : rows) {
    const Raised raised = Catch([&] {
      stage.object->Call("InitCaseStudy", row.file, row.count, 0, ObjectRef(stage.support),
                         std::string("Question"));
    });
    EXPECT_EQ(raised.number, row.error) << row.why;
    EXPECT_TRUE(Contains(raised.description, row.says)) << row.why << ": " << raised.description;
    EXPECT_EQ(stage.Study().text().page(), "<html>first") << row.why;
  }
}

TEST(CaseStudy, TellsWhetherItsTextWasSeenToTheEnd) {
  const auto paragraphs = [](int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "&lt;p&gt;One more paragraph.&lt;/p&gt;";
    return text;
  };
  const struct {
    const char* why;
    int paragraphs;
    std::vector<int> scrolledTo;
    bool want;
  } rows[] = {
      {"short enough to be seen at once", 2, {}, true},
      {"longer than its pane", 100, {}, false},
      {"scrolled, but not to the end", 100, {200}, false},
      {"scrolled to the end", 100, {100000}, true},
      {"and back again: it was seen", 100, {100000, 0}, true},
  };
  for (const auto& row : rows) {
    Stage stage;
    stage.Init(Utf8(Case(paragraphs(row.paragraphs))));
    EXPECT_FALSE(stage.SeenAll()) << row.why << ", not shown yet";
    stage.Show();
    for (const int top : row.scrolledTo) {
      stage.platform->ScrollPageTo(stage.Study().text(), top);
    }
    EXPECT_EQ(stage.SeenAll(), row.want) << row.why;
  }
}

TEST(CaseStudy, HoldsTheQuestionInFrontOfItself) {
  Stage stage;
  ControlHost questionHost(stage.platform->platform());
  Form question(questionHost, "question");  // older than the case study's window
  stage.Init(Utf8(Case("text")));
  const WindowHandle parent = ToInt32(stage.object->Call("getCaseParent"));
  EXPECT_EQ(stage.platform->windows().Find(parent)->parent, stage.hostWindow);
  stage.platform->SetParent(question.hwnd(), parent);
  stage.Show();
  int presses = 0;
  question.onMouseDown = [&](const MouseEvent&) { ++presses; };
  questionHost.RunHostCall([&] {
    question.Move({6240, 405, 9000, 10995});
    question.Show();
  });
  stage.platform->Press({7000, 1000});
  EXPECT_EQ(presses, 1);
}

TEST(CaseStudy, NeedsACaseForMostOfItsMembers) {
  const struct {
    const char* member;
    std::vector<Variant> arguments;
    bool needsCase;
  } rows[] = {
      {"getCaseParent", {}, true},
      {"QuestionSize", {0, 0, 8000, 4500}, true},
      {"DisplayInt_ShowExternalDisplay", {0, 0, 8000, 4500}, true},
      {"DisplayInt_ResizeExternalDisplay", {0, 0, 8000, 4500}, true},
      {"DisplayInt_HideExternalDisplay", {}, true},
      {"DisplayInt_GetExternalDisplayStatus", {0, false, std::string()}, true},
      {"DisplayInt_FreeExternalDisplay", {}, false},
      {"DisplayInt_SetParentWnd", {1}, false},
  };
  for (const bool freed : {false, true}) {
    Stage stage;
    if (freed) {
      stage.Init(Utf8(Case("text")));
      const WindowHandle window = stage.Study().form().hwnd();
      EXPECT_TRUE(ToBoolean(stage.object->Call("DisplayInt_FreeExternalDisplay")));
      EXPECT_FALSE(stage.platform->IsWindow(window));
    }
    for (const auto& row : rows) {
      std::vector<Variant> arguments = row.arguments;
      const Raised raised = Catch([&] { stage.object->Invoke(row.member, arguments); });
      EXPECT_EQ(raised.number, row.needsCase ? error_number::kObjectNotSet : 0)
          << row.member << (freed ? " after the end" : " before the start");
    }
  }
}

}  // namespace
}  // namespace zav

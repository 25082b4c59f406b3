// The browser's platform without a browser: what it hands to the page, and what it makes of what
// the page tells.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "controls/ControlHost.h"
#include "controls/Form.h"
#include "controls/HtmlPane.h"
#include "controls/Label.h"
#include "controls/PictureBox.h"
#include "controls/PictureButton.h"
#include "controls/ScrollFrame.h"
#include "platform/web/PageObjects.h"
#include "platform/web/PointerInput.h"
#include "platform/web/WebPlatform.h"
#include "support/Raised.h"

namespace zav {
namespace {

// The page's side: takes changes apart, remembers what it was asked, calls no DOM.
class FakeBrowser : public Browser {
 public:
  std::vector<std::string> changes;  // of the last call, such as "create frmTest"
  std::vector<ShownWindow> windows;
  std::vector<std::int32_t> tickets;
  std::set<ControlId> timers;
  std::vector<std::int32_t> dropped;
  std::function<std::vector<std::uint8_t>(std::string_view, std::span<const std::uint8_t>)> answer;

  void Present(ComponentNumber, std::span<const std::int32_t> words,
               std::string_view texts) override {
    changes.clear();
    for (std::size_t at = 0; at < words.size();) at = Read(words, at, texts);
  }
  void ArrangeWindows(ComponentNumber, std::span<const ShownWindow> shown) override {
    windows.assign(shown.begin(), shown.end());
  }
  int RichTextHeight(ComponentNumber, const RichContent&, int) override { return 20; }
  void LoadPage(ComponentNumber, ControlId, std::string_view, std::int32_t ticket) override {
    tickets.push_back(ticket);
  }
  void DropPage(ComponentNumber, ControlId) override {}
  int PageContentHeight(ComponentNumber, ControlId, int, int) override { return 100; }
  int PageScrollTop(ComponentNumber, ControlId) override { return 0; }
  void StartTimer(ComponentNumber, ControlId timer, int) override { timers.insert(timer); }
  void StopTimer(ComponentNumber, ControlId timer) override { timers.erase(timer); }
  void NamePicture(ComponentNumber, std::string_view, std::int32_t) override {}
  std::vector<std::uint8_t> Invoke(std::int32_t, std::string_view member,
                                   std::span<const std::uint8_t> arguments, bool) override {
    return answer(member, arguments);
  }
  void ReleaseObject(std::int32_t) override {}
  void DropQuestion(std::int32_t question) override { dropped.push_back(question); }

 private:
  // How many words follow kind and id where that is fixed, the text's two included.
  std::size_t Read(std::span<const std::int32_t> words, std::size_t at, std::string_view texts) {
    const auto change = static_cast<Change>(words[at]);
    const auto id = static_cast<ControlId>(words[at + 1]);
    const std::span<const std::int32_t> values = words.subspan(at + 2);
    const auto text = [&](std::size_t i) {
      return std::string(texts.substr(static_cast<std::size_t>(values[i]),
                                      static_cast<std::size_t>(values[i + 1])));
    };
    const auto numbers = [&](std::size_t count) {
      std::string all;
      for (std::size_t i = 0; i < count; ++i) all += " " + std::to_string(values[i]);
      return all;
    };
    switch (change) {
      case Change::Create:
        names_[id] = text(5);
        return Add("create " + names_[id], at, 7);
      case Change::Remove:
        return Add("remove " + names_[id], at, 0);
      case Change::Place:
        return Add("place " + names_[id] + numbers(4), at, 4);
      case Change::Visible:
        return Add("visible " + names_[id] + numbers(1), at, 1);
      case Change::Order:
        return Add("order " + names_[id], at, 1);
      case Change::Look:
        return Add("look " + names_[id], at, 5);
      case Change::Font:
      case Change::Button:
        return at + 2 + (change == Change::Font ? 4 : 5);
      case Change::Label:
        return Add("label " + names_[id] + " " + text(1), at, 3);
      case Change::Pane:
      case Change::RichText:
        return at + 2 + 3;
      case Change::Scroll:
        return Add("scroll " + names_[id] + numbers(4), at, 4);
      case Change::Bars:
        return at + 3 + 5 * static_cast<std::size_t>(values[0]);
      case Change::Surface:
        return Add("surface " + names_[id] + numbers(3), at,
                   3 + 8 * static_cast<std::size_t>(values[2]));
      case Change::Form:
        return at + 2 + 2;
    }
    ADD_FAILURE() << "unknown change " << words[at];
    return words.size();
  }
  std::size_t Add(std::string change, std::size_t at, std::size_t values) {
    changes.push_back(std::move(change));
    return at + 2 + values;
  }

  std::map<ControlId, std::string> names_;
};

struct WebForm {
  FakeBrowser browser;
  WebPlatform platform{browser, 1};
  ControlHost host{platform.platform()};
  Form form{host, "frm"};
  ScrollFrame frame{host, &form, "scr"};
  PictureBox surface{host, &frame, "pc"};
  Label label{host, &surface, "lbl"};
  PictureButton hidden{host, &form, "img"};

  // Names of what was created, in order.
  [[nodiscard]] std::string Created() const {
    std::string names;
    for (const std::string& change : browser.changes) {
      if (change.rfind("create ", 0) == 0) names += (names.empty() ? "" : " ") + change.substr(7);
    }
    return names;
  }
  [[nodiscard]] bool Has(const std::string& change) const {
    return std::count(browser.changes.begin(), browser.changes.end(), change) == 1;
  }
};

TEST(ChangeBuffer, DescribesWhatComesIntoSightAndNothingElse) {
  WebForm test;
  test.host.RunHostCall([&] { test.hidden.Hide(); });
  EXPECT_EQ(test.Created(), "") << "the form is hidden";

  test.host.RunHostCall([&] {
    test.form.Move({0, 0, 6000, 3000});
    test.frame.Move({150, 300, 3000, 1500});
    test.surface.SetScaleMode(ScaleMode::Pixels);
    test.label.Move({10, 20, 30, 40});
    test.label.SetCaption("caption");
    test.form.Show();
  });
  EXPECT_EQ(test.Created(), "frm scr pc lbl") << "containers first, hidden ones not at all";
  EXPECT_TRUE(test.Has("place scr 10 20 200 100")) << "twips become pixels";
  EXPECT_TRUE(test.Has("place lbl 10 20 30 40")) << "in a container that counts pixels they are";
  EXPECT_TRUE(test.Has("label lbl caption"));

  test.host.RunHostCall([&] {
    test.surface.Hide();
    test.hidden.Show();
  });
  EXPECT_EQ(test.Created(), "img") << "what came into sight now";
  EXPECT_TRUE(test.Has("visible pc 0")) << "what is known is only hidden";

  test.host.RunHostCall([&] { test.frame.MoveTo(0, 0); });
  EXPECT_EQ(test.browser.changes, std::vector<std::string>{"place scr 0 0 200 100"})
      << "a move is a move and nothing else";
}

TEST(ChangeBuffer, RoundsEdgesSoThatNeighboursGoOnTouching) {
  WebForm test;
  test.host.RunHostCall([&] {
    test.form.Move({0, 0, 6000, 3000});
    test.form.Show();
    test.frame.Move({7, 8, 100, 100});     // 0.47 .. 7.13 pixels, 0.53 .. 7.2
    test.hidden.Move({107, 0, 100, 100});  // 7.13 .. 13.8
  });
  EXPECT_TRUE(test.Has("place scr 0 1 7 6"));
  EXPECT_TRUE(test.Has("place img 7 0 7 7"));
}

TEST(ChangeBuffer, SendsWhatIsDrawnOverTheRest) {
  WebForm test;
  PictureBox& box = test.surface;
  const auto line = [&](float y, std::int32_t color) { box.DrawLine({0, y}, {9, y}, 1, color); };
  struct Row {
    const char* why;
    std::function<void()> draw;
    const char* change;  // whether it begins anew, picture, count
  };
  const Row rows[] = {
      {"what comes into sight is sent in full",
       [&] {
         line(1, 0);
         line(2, 0);
         test.form.Show();
       },
       "surface pc 1 0 2"},
      {"then only what is new", [&] { line(3, 0); }, "surface pc 0 0 1"},
      {"a line over an equal one is new", [&] { line(1, 0xFF); }, "surface pc 0 0 1"},
      {"what is stale is painted once, whatever else was drawn",
       [&] {
         box.onPaint = [&box] { box.DrawLine({0, 1}, {9, 1}, 1, 0); };
         box.Invalidate();
         line(2, 0xFF);
         box.Invalidate();
       },
       "surface pc 1 0 1"},
      {"what is drawn then is sent by itself", [&] { line(2, 0); }, "surface pc 0 0 1"},
      {"until there is much of it",
       [&] {
         for (int i = 0; i < 200; ++i) line(3, 0);
       },
       "surface pc 1 0 1"},
      {"a cleared box begins anew",
       [&] {
         box.Clear();
         line(1, 0);
       },
       "surface pc 1 0 1"},
      {"also when nothing is drawn then", [&] { box.Clear(); }, "surface pc 1 0 0"},
      {"another picture begins anew",
       [&] {
         line(1, 0);
         box.SetPicture(std::make_shared<NumberedPicture>(3, 8, 8));
       },
       "surface pc 1 3 1"},
  };
  for (const Row& row : rows) {
    test.host.RunHostCall(row.draw);
    EXPECT_TRUE(test.Has(row.change)) << row.why;
  }
}

TEST(ChangeBuffer, ForgetsWhatHasGone) {
  WebForm test;
  auto extra = std::make_unique<PictureButton>(test.host, &test.form, "extra");
  test.host.RunHostCall([&] { test.form.Show(); });
  const ControlId id = extra->id();
  EXPECT_EQ(test.platform.Find(id), extra.get());
  test.host.RunHostCall([&] { extra.reset(); });
  EXPECT_TRUE(test.Has("remove extra"));
  EXPECT_EQ(test.platform.Find(id), nullptr);
}

TEST(WebPlatform, KnowsWhatThePageBroughtAndNothingElse) {
  FakeBrowser browser;
  WebPlatform platform(browser, 1);
  platform.AddPicture("items/heart.png", 4, 560, 430);
  platform.AddPicture("items/text.png", 0, 0, 0);
  platform.AddFile("items/KVStatic.xml", {'x'});
  const PictureRef picture = platform.LoadPicture("items/heart.png");
  EXPECT_EQ(picture->WidthPixels(), 560);
  EXPECT_EQ(platform.LoadPicture(""), nullptr);
  EXPECT_EQ(Catch([&] { platform.LoadPicture("items/other.png"); }).number, 53);
  EXPECT_EQ(Catch([&] { platform.LoadPicture("items/text.png"); }).number, 481);
  EXPECT_EQ(Catch([&] { platform.LoadPicture("items/KVStatic.xml"); }).number, 481);
  EXPECT_EQ(Catch([&] { platform.LoadPicture("items/Heart.png"); }).number, 53) << "exact case";
  EXPECT_EQ(Catch([&] { platform.ReadFile("items/kvstatic.xml"); }).number, 53) << "exact case";
  EXPECT_FALSE(platform.FileExists("items/HEART.png")) << "exact case";
  EXPECT_EQ(Catch([&] { platform.ReadFile("items/heart.xml"); }).number, 53);
  EXPECT_EQ(platform.ReadFile("items/KVStatic.xml").size(), 1U);

  platform.SavePicture(*picture, "support/Akvt.bmp");
  EXPECT_TRUE(platform.FileExists("support/akvt.bmp")) << "pages write its own names as they like";
  platform.DeleteFiles("support/*kvt.bmp");
  EXPECT_FALSE(platform.FileExists("support/akvt.bmp"));
  EXPECT_TRUE(platform.FileExists("items/heart.png")) << "of another pattern";
}

TEST(WebPlatform, TellsOnlyTheLoadOfThePageThatIsWanted) {
  WebForm test;
  HtmlPane pane(test.host, &test.form, "brw");
  int loaded = 0;
  pane.onPageLoaded = [&] { ++loaded; };
  pane.LoadHtml("<html>first</html>");
  pane.LoadHtml("<html>second</html>");
  ASSERT_EQ(test.browser.tickets.size(), 2U);
  test.platform.PageLoaded(test.browser.tickets[0]);
  EXPECT_EQ(loaded, 0);
  EXPECT_FALSE(pane.IsReady());
  test.platform.PageLoaded(test.browser.tickets[1]);
  test.platform.PageLoaded(test.browser.tickets[1]);
  EXPECT_EQ(loaded, 1);
  EXPECT_TRUE(pane.IsReady());
}

TEST(WebPlatform, ShowsTheCalculatorOnceItIsRestored) {
  FakeBrowser browser;
  WebPlatform platform(browser, 1);
  EXPECT_EQ(Catch([&] { platform.Shell("other.exe"); }).number, 53);
  platform.Shell("http://host/graphics/DCalc.exe");
  const WindowHandle calculator = platform.FindWindow("scicalc", "calculator");
  ASSERT_NE(calculator, 0);
  EXPECT_EQ(platform.SetParent(calculator, platform.hostWindow()), 0);
  EXPECT_FALSE(browser.windows.back().visible);
  platform.RestoreWindow(calculator);
  EXPECT_TRUE(browser.windows.back().visible);
  platform.CloseWindow(calculator);
  EXPECT_FALSE(platform.IsWindow(calculator));
  EXPECT_TRUE(browser.windows.empty());
}

TEST(PointerInput, StaysWithThePressedControl) {
  WebForm test;
  PointerInput pointer(test.platform);
  std::string heard;
  const auto listen = [&](Control& control, const char* name) {
    control.onMouseDown = [&heard, name](const MouseEvent& e) {
      heard += std::string(name) + " down " + std::to_string(static_cast<int>(e.x)) + "; ";
    };
    control.onMouseMove = [&heard, name](const MouseEvent& e) {
      heard += std::string(name) + (e.button == MouseButton::Left ? " drag; " : " move; ");
    };
    control.onMouseUp = [&heard, name](const MouseEvent&) { heard += std::string(name) + " up; "; };
    control.onMouseCancel = [&heard, name] { heard += std::string(name) + " cancel; "; };
    control.onHover = [&heard, name] { heard += std::string(name) + " hover; "; };
  };
  listen(test.hidden, "img");
  listen(test.frame, "scr");
  test.host.RunHostCall([&] {
    test.form.Show();
    test.hidden.MoveTo(300, 0);
  });
  const ControlId img = test.hidden.id();
  const ControlId scr = test.frame.id();
  struct Row {
    const char* why;
    std::function<void()> act;
    const char* heard;
  };
  const Row rows[] = {
      {"a press tells the place in twips of the control",
       [&] {
         pointer.Press(img, {30, 0});
       },
       "img hover; img down 150; "},
      {"elsewhere it still is the pressed one",
       [&] {
         pointer.Move(scr, {0, 0});
       },
       "img drag; "},
      {"so is the release",
       [&] {
         pointer.Release({0, 0});
       },
       "img up; "},
      {"then it is the one under it",
       [&] {
         pointer.Move(scr, {0, 0});
       },
       "scr hover; scr move; "},
      {"a cancelled pointer has no release",
       [&] {
         pointer.Press(img, {30, 0});
         pointer.Cancel();
         pointer.Release({0, 0});
       },
       "img hover; img down 150; img cancel; "},
      {"a lost release leaves no capture",
       [&] {
         pointer.Press(img, {30, 0});
         pointer.LoseRelease();
         pointer.Move(scr, {0, 0});
       },
       "img down 150; scr hover; scr move; "},
      {"a disabled control is not pressed",
       [&] {
         test.hidden.SetEnabled(false);
         pointer.Press(img, {30, 0});
         pointer.Release({30, 0});
       },
       ""},
      {"nothing is under it",
       [&] {
         pointer.Move(0, {-1, -1});
       },
       ""},
  };
  for (const Row& row : rows) {
    heard.clear();
    row.act();
    EXPECT_EQ(heard, row.heard) << row.why;
  }
}

TEST(PageObjects, CarryValuesThereAndBack) {
  FakeBrowser browser;
  PageObjects objects(browser);
  browser.answer = [&](std::string_view, std::span<const std::uint8_t> arguments) {
    // Gives back what came, the first value as the result, all of them as arguments.
    VariantReader reader(objects, arguments);
    VariantWriter writer(objects);
    writer.WriteNumber(0);
    std::vector<Variant> values;
    while (!reader.AtEnd()) values.push_back(reader.Read());
    writer.Write(values.front());
    for (const Variant& value : values) writer.Write(value);
    return writer.Bytes();
  };
  const ObjectRef page = objects.PageObject(7);
  const Variant values[] = {Variant(),
                            true,
                            std::int16_t{-3},
                            std::int32_t{-70000},
                            0.5F,
                            -1e300,
                            std::string("Zürich\0!", 9),
                            ObjectRef(),
                            page,
                            SafeArray(std::vector<std::uint8_t>{0, 255})};
  for (const Variant& value : values) {
    Variant argument = value;
    const Variant result = page->Invoke("Echo", {&argument, 1});
    EXPECT_EQ(result.index(), value.index());
    EXPECT_EQ(argument.index(), value.index());
    if (const auto* text = std::get_if<std::string>(&value)) {
      EXPECT_EQ(std::get<std::string>(result), *text);
    }
    if (const auto* number = std::get_if<double>(&value)) {
      EXPECT_EQ(std::get<double>(result), *number);
    }
    if (const auto* object = std::get_if<ObjectRef>(&value); object != nullptr && *object) {
      EXPECT_EQ(objects.PageNumberOf(*std::get<ObjectRef>(result)), 7);
    }
  }
}

TEST(PageObjects, RaiseWhatTheOtherSideThrew) {
  FakeBrowser browser;
  PageObjects objects(browser);
  browser.answer = [&](std::string_view, std::span<const std::uint8_t>) {
    VariantWriter writer(objects);
    writer.WriteNumber(438);
    writer.WriteText("host");
    writer.WriteText("No such member");
    return writer.Bytes();
  };
  const ObjectRef page = objects.PageObject(1);
  EXPECT_EQ(Catch([&] { page->Call("Any"); }).number, 438);
  browser.answer = [](std::string_view, std::span<const std::uint8_t>) {
    return std::vector<std::uint8_t>{1, 2};
  };
  EXPECT_EQ(Catch([&] { page->Call("Any"); }).number, 51) << "bytes that end too soon";
  const auto answer = objects.InvokeNative(99, "Any", {}, InvokeKind::Call);
  VariantReader reader(objects, answer);
  EXPECT_EQ(reader.ReadNumber(), 91) << "an object that has gone";
}

TEST(PageObjects, DropAQuestionOnce) {
  FakeBrowser browser;
  PageObjects objects(browser);
  const auto question = std::dynamic_pointer_cast<PendingAnswer>(objects.Question(5));
  int given = 0;
  question->Await([&](std::int16_t answer) { given = answer; });
  question->Drop();
  objects.Answer(5, 1);
  EXPECT_EQ(given, 0);
  EXPECT_EQ(browser.dropped, std::vector<std::int32_t>{5});
}

}  // namespace
}  // namespace zav

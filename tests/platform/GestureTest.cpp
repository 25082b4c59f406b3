// What reaches which control when a candidate points, presses, drags and types.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "controls/HtmlPane.h"
#include "controls/Label.h"
#include "controls/PictureBox.h"
#include "controls/PictureButton.h"
#include "controls/ScrollFrame.h"
#include "controls/Splitter.h"
#include "platform/headless/HeadlessPlatform.h"

namespace zav {
namespace {

std::string Whole(float value) { return std::to_string(static_cast<int>(value)); }

// A form at 1000, 500 of the window whose controls write down what they hear. Twips.
struct Stage {
  Stage() {
    form.Move({1000, 500, 6000, 4000});
    form.Show();
    low.Move({0, 0, 1000, 1000});
    high.Move({500, 0, 1000, 1000});
    caption.Move({400, 800, 600, 600});
    unseen.Move({0, 0, 1000, 1000});
    unseen.Hide();
    below.Move({2000, 0, 500, 500});
    disabled.Move({2000, 0, 500, 500});
    disabled.SetEnabled(false);
    box.Move({0, 2000, 1500, 1500});
    box.SetScaleMode(ScaleMode::Pixels);
    inner.Move({50, 50, 200, 200});  // cut by the box
    frame.Move({3000, 0, 1000, 1000});
    frame.SetScrollY(500);
    item.Move({0, 600, 500, 500});
    prompt.Move({0, 800, 1000, 200});
    frame.KeepInFrame(prompt);
    for (Control* each : {static_cast<Control*>(&low), static_cast<Control*>(&high),
                          static_cast<Control*>(&caption), static_cast<Control*>(&unseen),
                          static_cast<Control*>(&below), static_cast<Control*>(&disabled),
                          static_cast<Control*>(&inner), static_cast<Control*>(&item),
                          static_cast<Control*>(&prompt), static_cast<Control*>(gone.get())}) {
      Listen(*each);
    }
    host.RunHostCall([] {});
  }

  void Listen(Control& control) {
    const auto mouse = [this, &control](const char* what) {
      return [this, &control, what](const MouseEvent& event) {
        Note(control, std::string(what) + (event.button == MouseButton::None ? " free" : "") + " " +
                          Whole(event.x) + "," + Whole(event.y));
      };
    };
    const auto plain = [this, &control](const char* what) {
      return [this, &control, what] { Note(control, what); };
    };
    control.onMouseDown = mouse("down");
    control.onMouseMove = mouse("move");
    control.onMouseUp = mouse("up");
    control.onMouseCancel = plain("cancel");
    control.onHover = plain("hover");
    control.onClick = plain("click");
    control.onFocus = plain("focus");
    control.onKeyDown = [this, &control](const KeyEvent& event) {
      Note(control, "key " + std::to_string(event.keyCode));
    };
  }

  void Note(const Control& control, const std::string& what) {
    log += (log.empty() ? "" : "; ") + control.name() + " " + what;
  }

  // Words: press X Y, move X Y (in the window), release, cancel, lose, hide, disable, destroy.
  std::string Play(const std::string& script) {
    std::istringstream words(script);
    for (std::string word; words >> word;) Step(word, words);
    return log;
  }

  void Step(const std::string& word, std::istringstream& words) {
    Point at;
    if (word == "press" || word == "move") words >> at.x >> at.y;
    if (word == "press") platform->Press(at);
    if (word == "move") platform->MoveTo(at);
    if (word == "release") platform->Release();
    if (word == "cancel") platform->Cancel();
    if (word == "lose") platform->LoseRelease();
    if (word == "hide") low.Hide();
    if (word == "disable") low.SetEnabled(false);
    if (word == "destroy") gone.reset();
  }

  std::unique_ptr<HeadlessPlatform> platform = MakeHeadlessPlatform();
  ControlHost host{platform->platform()};
  std::string log;
  Form form{host, "form"};
  PictureButton low{host, &form, "low"};
  PictureButton high{host, &form, "high"};
  Label caption{host, &form, "caption"};
  PictureButton unseen{host, &form, "unseen"};
  PictureButton below{host, &form, "below"};
  PictureButton disabled{host, &form, "disabled"};
  PictureBox box{host, &form, "box"};
  PictureButton inner{host, &box, "inner"};
  ScrollFrame frame{host, &form, "frame"};
  PictureButton item{host, &frame, "item"};
  PictureButton prompt{host, &frame, "prompt"};
  std::unique_ptr<PictureButton> gone = [this] {
    auto button = std::make_unique<PictureButton>(host, &form, "gone");
    button->Move({5000, 0, 500, 500});
    return button;
  }();
};

struct Row {
  const char* why;
  const char* script;
  const char* want;
};

template <std::size_t count>
void Check(const Row (&rows)[count]) {
  for (const Row& row : rows) EXPECT_EQ(Stage().Play(row.script), row.want) << row.why;
}

TEST(Gesture, GoesToTheControlThatIsSeenAtThatPlace) {
  const Row rows[] = {
      {"places count from the control's corner", "move 1100 600",
       "low hover; low move free 100,100"},
      {"the younger sibling lies over", "move 1700 600", "high hover; high move free 200,100"},
      {"a label lies under older siblings too", "move 1450 1400",
       "low hover; low move free 450,900"},
      {"a label is seen where it lies alone", "move 1450 1600",
       "caption hover; caption move free 50,300"},
      {"a disabled control keeps the pointer from what is below it", "press 3100 600 release", ""},
      {"places in a container that counts pixels", "move 1900 3400",
       "inner hover; inner move free 150,150"},
      {"nothing shows outside its container", "move 2600 4100", ""},
      {"a scrolled container moves what it holds", "move 4100 700",
       "item hover; item move free 100,100"},
      {"but not what belongs to its frame", "move 4100 1350",
       "prompt hover; prompt move free 100,50"},
      {"right and bottom edges lie outside", "move 2500 1500", ""},
      {"beside the form", "move 900 600", ""},
  };
  Check(rows);
}

TEST(Gesture, StaysWithThePressedControlUntilItEnds) {
  const Row rows[] = {
      {"pressed and released on a control clicks it", "press 1100 600 release",
       "low hover; low down 100,100; low up 100,100; low click"},
      {"captured beyond control and form, no click elsewhere, hover once it is over",
       "press 1100 600 move 1700 600 move 0 0 move 1700 600 release",
       "low hover; low down 100,100; low move 700,100; low move -1000,-500; low move 700,100; "
       "low up 700,100; high hover"},
      {"back on the control before the release", "press 1100 600 move 0 0 move 1200 600 release",
       "low hover; low down 100,100; low move -1000,-500; low move 200,100; low up 200,100; "
       "low click"},
      {"a press beside every form keeps the pointer from the form",
       "press 0 0 move 1100 600 release move 1100 600", "low hover; low move free 100,100"},
      {"lost release: moves without a button tell", "press 1100 600 lose move 1200 600 release",
       "low hover; low down 100,100; low move free 200,100"},
      {"lost release, then a press elsewhere", "press 1100 600 lose press 1700 600",
       "low hover; low down 100,100; high hover; high down 200,100"},
      {"second press while pressed", "press 1100 600 press 1700 600 release",
       "low hover; low down 100,100; low down 700,100; low up 700,100; high hover"},
      {"cancelled: no release, no click", "press 1100 600 cancel release move 1200 600",
       "low hover; low down 100,100; low cancel; low move free 200,100"},
      {"a release without a press", "move 1100 600 release", "low hover; low move free 100,100"},
      {"a control that is disabled by its press still hears how it ends",
       "press 1100 600 disable move 1200 600 release",
       "low hover; low down 100,100; low move 200,100; low up 200,100"},
      {"hidden while pressed: heard to the end, but not clicked",
       "press 1100 600 hide move 1200 600 release",
       "low hover; low down 100,100; low move 200,100; low up 200,100"},
      {"destroyed while pressed: nobody hears the rest",
       "press 6100 600 destroy move 1200 600 release move 1200 600",
       "gone hover; gone down 100,100; low hover; low move free 200,100"},
      {"destroyed, then cancelled", "press 6100 600 destroy cancel press 1100 600",
       "gone hover; gone down 100,100; low hover; low down 100,100"},
  };
  Check(rows);
}

TEST(Gesture, HoversOnceForEachTimeThatThePointerComes) {
  EXPECT_EQ(Stage().Play("move 1100 600 move 1700 600 move 1100 600 move 1100 600"),
            "low hover; low move free 100,100; high hover; high move free 200,100; "
            "low hover; low move free 100,100; low move free 100,100");
}

TEST(Gesture, MeetsTheFormInFront) {
  Stage stage;
  Form front(stage.host, "front");
  front.Move({1000, 500, 300, 300});
  front.Show();
  stage.Listen(front);
  stage.host.RunHostCall([] {});
  EXPECT_EQ(stage.Play("move 1100 600"), "front hover; front move free 100,100");
  stage.log.clear();
  stage.platform->BringWindowToTop(stage.form.hwnd());
  EXPECT_EQ(stage.Play("move 1100 600"), "low hover; low move free 100,100");
  stage.log.clear();
  stage.form.Hide();
  EXPECT_EQ(stage.Play("move 1100 600"), "front hover; front move free 100,100");
}

TEST(Gesture, EndsWhenItsFormGoes) {
  Stage stage;
  auto front = std::make_unique<Form>(stage.host, "front");
  front->Move({1000, 500, 300, 300});
  front->Show();
  stage.host.RunHostCall([] {});
  stage.Play("press 1100 600");
  front.reset();
  EXPECT_EQ(stage.Play("move 1100 600 release move 1100 600"), "low hover; low move free 100,100");
  EXPECT_EQ(stage.platform->Forms().size(), 1U);
}

TEST(Gesture, DragsTheBarsOfASplitter) {
  Stage stage;
  Splitter splitter(stage.host, &stage.form, "splitter");
  splitter.Move({0, 1000, 4000, 2000});
  splitter.AddPane({"stem", 500, 300, {}});
  splitter.AddPane({"work", 500, 300, {}});
  splitter.AddPane({"source", 500, 0, {}}, "work", PanePlacement::LeftOf);
  splitter.SetPaneHeight("stem", 600);
  splitter.SetPaneWidth("source", 1000);
  int drags = 0;
  splitter.onSplitterEndDrag = [&] { ++drags; };
  const auto sizes = [&] {
    return Whole(splitter.Pane("stem").rect.height) + " " +
           Whole(splitter.Pane("source").rect.width) + " " + std::to_string(drags);
  };
  const Row rows[] = {
      {"a level bar", "press 1500 2150 move 1500 2250 release", "700 1000 1"},
      {"nothing moves before the release", "press 1500 2260 move 1500 2460", "700 1000 1"},
      {"a cancelled drag", "cancel", "700 1000 1"},
      {"a lost one", "press 1500 2260 move 1500 2460 lose release", "700 1000 1"},
      {"an upright bar", "press 2050 2700 move 2350 2700 release", "700 1300 2"},
      {"kept at the least size", "press 2350 2700 move 0 2700 release", "700 500 3"},
      {"a press on a bar without a move", "press 1500 2260 release", "700 500 3"},
      {"beside the bars", "press 1500 3000 move 1500 3200 release", "700 500 3"},
  };
  for (const Row& row : rows) {
    stage.Play(row.script);
    EXPECT_EQ(sizes(), row.want) << row.why;
  }
  stage.Play("press 1500 2260 move 1500 2360");
  splitter.RemovePane("stem");
  stage.Play("release");
  EXPECT_EQ(drags, 3) << "a bar that went while it was dragged";
}

TEST(Gesture, GivesKeysToTheControlWithTheFocus) {
  Stage stage;
  stage.platform->Key({46});
  EXPECT_EQ(stage.log, "") << "nothing has the focus";
  stage.low.SetTakesFocus(true);
  stage.gone->SetTakesFocus(true);
  stage.Play("press 1100 600 release press 1700 600 release");
  stage.log.clear();
  stage.platform->Key({46});
  EXPECT_EQ(stage.log, "low key 46") << "a press gives it, but not to one that does not take it";
  stage.log.clear();
  stage.platform->Focus(stage.disabled);
  stage.platform->Focus(stage.unseen);
  stage.platform->Focus(stage.low);
  EXPECT_EQ(stage.log, "") << "disabled, hidden, or there already";
  stage.platform->Focus(*stage.gone);
  stage.gone.reset();
  stage.platform->Key({46});
  EXPECT_EQ(stage.log, "gone focus") << "it went with the focus";
  EXPECT_EQ(stage.platform->Focused(), nullptr);
}

// A pane at 0, 3000 of the form that writes down its page's events.
struct PageStage : Stage {
  explicit PageStage(const char* html) {
    pane.Move({0, 3000, 3000, 600});
    pane.onPageEvent = [this](PageEvent& event) {
      Note(pane, event.type + " " + event.sourceId +
                     (event.keyCode == 0 ? "" : std::to_string(event.keyCode)) +
                     (event.altKey ? " alt" : ""));
    };
    pane.LoadHtml(html);
    platform->RunPosted();
  }
  HtmlPane pane{host, &form, "pane"};
};

constexpr const char* kButtons =
    "<html><body style=\"margin:0\"><table cellspacing=0 cellpadding=0><tr>"
    "<td id=\"one\" style=\"width:50px;height:30px\"></td>"
    "<td id=\"two\" style=\"width:50px;height:30px\"></td></tr></table></body></html>";

TEST(Gesture, ClicksOnTheElementOfAPage) {
  const Row rows[] = {
      {"the element under the pointer", "press 1150 3650 release", "pane click one"},
      {"another element", "press 1900 3650 release", "pane click two"},
      {"pressed on one and released on another", "press 1150 3650 move 1900 3650 release",
       "pane selectstart one; pane click "},
      {"released beside the pane", "press 1150 3650 move 1150 600 release",
       "pane selectstart one; low hover"},
      {"text is selected once for each press", "press 1150 3650 move 1160 3650 move 1170 3650 lose",
       "pane selectstart one"},
  };
  for (const Row& row : rows) EXPECT_EQ(PageStage(kButtons).Play(row.script), row.want) << row.why;
}

TEST(Gesture, FindsAnElementToClickById) {
  PageStage stage(kButtons);
  EXPECT_TRUE(stage.platform->Click(stage.pane, "two"));
  EXPECT_EQ(stage.log, "pane click two");
  EXPECT_FALSE(stage.platform->Click(stage.pane, "three")) << "not on the page";
  PictureButton cover(stage.host, &stage.form, "cover");
  cover.Move(stage.pane.rect());
  EXPECT_FALSE(stage.platform->Click(stage.pane, "two")) << "something lies over it";
  cover.Hide();
  stage.form.Hide();
  EXPECT_FALSE(stage.platform->Click(stage.pane, "two")) << "on a hidden form";
  EXPECT_EQ(stage.log, "pane click two");
}

TEST(Gesture, ScrollsAPageAsFarAsItGoes) {
  PageStage stage(
      "<html><body style=\"margin:0\"><div style=\"height:100px\"></div></body></html>");
  stage.platform->ScrollPageTo(stage.pane, 10);
  EXPECT_EQ(stage.log, "") << "a pane that does not scroll itself";
  stage.pane.SetScrollsItself(true);
  const struct {
    const char* why;
    int to;
    int want;
    const char* told;
  } rows[] = {
      {"part of the way", 10, 10, "pane scroll "},
      {"to where it is", 10, 10, ""},
      {"beyond the end: 100 pixels less the pane's 40", 500, 60, "pane scroll "},
      {"beyond the beginning", -5, 0, "pane scroll "},
  };
  for (const auto& row : rows) {
    stage.log.clear();
    stage.platform->ScrollPageTo(stage.pane, row.to);
    EXPECT_EQ(stage.pane.ScrollTopPixels(), row.want) << row.why;
    EXPECT_EQ(stage.log, row.told) << row.why;
  }
  stage.platform->ScrollPageTo(stage.pane, 60);
  stage.pane.LoadHtml(kButtons);
  stage.platform->RunPosted();
  EXPECT_EQ(stage.pane.ScrollTopPixels(), 0) << "a new page starts at its top";
}

TEST(Gesture, TellsAPageOfItsKeys) {
  PageStage stage(kButtons);
  stage.platform->Focus(stage.pane);
  stage.platform->Key({65, true});
  EXPECT_EQ(stage.log, "pane keydown 65 alt");
}

}  // namespace
}  // namespace zav

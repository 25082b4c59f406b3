// Timers, pages and programs on the clock that is moved by hand.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <map>
#include <string>

#include "controls/HtmlPane.h"
#include "controls/Timer.h"
#include "platform/headless/HeadlessPlatform.h"
#include "support/Raised.h"

namespace zav {
namespace {

using std::chrono::milliseconds;

struct Stage {
  std::unique_ptr<HeadlessPlatform> platform = MakeHeadlessPlatform();
  ControlHost host{platform->platform()};
  std::string log;

  std::map<ControlId, std::function<void()>> actions;  // what a timer does besides

  // Ticks as id@time.
  void Start(
      ControlId id, int interval, std::function<void()> then = [] {}) {
    actions[id] = std::move(then);
    platform->StartTimer(id, interval, [this, id] {
      log += std::to_string(id) + "@" + std::to_string(platform->Now().count()) + " ";
      actions[id]();
    });
  }
};

TEST(VirtualClock, RunsTimersByTimeThenByAge) {
  const struct {
    const char* why;
    std::function<void(Stage&)> start;
    int advance;
    const char* want;
  } rows[] = {
      {"nothing before its time", [](Stage& s) { s.Start(1, 25); }, 24, ""},
      {"again and again", [](Stage& s) { s.Start(1, 25); }, 80, "1@25 1@50 1@75 "},
      {"by time, whoever was first", [](Stage& s) { s.Start(1, 30), s.Start(2, 20); }, 45,
       "2@20 1@30 2@40 "},
      {"at one time, the first made first", [](Stage& s) { s.Start(2, 20), s.Start(1, 20); }, 20,
       "2@20 1@20 "},
      {"stopped by an earlier one of the same time",
       [](Stage& s) { s.Start(1, 20, [&s] { s.platform->StopTimer(2); }), s.Start(2, 20); }, 40,
       "1@20 1@40 "},
      {"stopped by itself", [](Stage& s) { s.Start(1, 20, [&s] { s.platform->StopTimer(1); }); },
       60, "1@20 "},
      {"restarted: counts from there",
       [](Stage& s) { s.Start(1, 20), s.platform->Advance(milliseconds(15)), s.Start(1, 20); }, 25,
       "1@35 "},
      {"no interval ticks each millisecond", [](Stage& s) { s.Start(1, 0); }, 2, "1@1 1@2 "},
      {"time does not run backwards", [](Stage& s) { s.Start(1, 5); }, -10, ""},
  };
  for (const auto& row : rows) {
    Stage stage;
    row.start(stage);
    stage.platform->Advance(milliseconds(row.advance));
    EXPECT_EQ(stage.log, row.want) << row.why;
  }
}

TEST(VirtualClock, LetsATickMoveTheClock) {
  Stage stage;
  stage.Start(1, 10, [&] {
    if (stage.platform->Now() < milliseconds(20)) stage.platform->Advance(milliseconds(30));
  });
  stage.platform->Advance(milliseconds(15));
  EXPECT_EQ(stage.log, "1@10 1@20 1@30 1@40 ");
  EXPECT_EQ(stage.platform->Now(), milliseconds(40));
}

TEST(VirtualClock, LoadsPagesFromTheEventLoop) {
  Stage stage;
  Form form(stage.host, "form");
  HtmlPane pane(stage.host, &form, "pane");
  int loads = 0;
  pane.onPageLoaded = [&] { ++loads; };
  pane.LoadHtml("<html><div style=\"height:20px\"></div></html>");
  EXPECT_FALSE(pane.IsReady());
  EXPECT_EQ(pane.ContentHeightPixels(), 0) << "nothing to measure before it is loaded";
  pane.LoadHtml("<html><body style=\"margin:0\"><div style=\"height:30px\"></div></body></html>");
  stage.platform->RunPosted();
  EXPECT_TRUE(pane.IsReady());
  EXPECT_EQ(loads, 1) << "the page that was replaced is never reported";
  EXPECT_EQ(stage.platform->Now(), milliseconds(0));
  pane.Resize(1500, 1500);
  EXPECT_EQ(pane.ContentHeightPixels(), 30);

  stage.platform->SetPageDelay(milliseconds(50));
  pane.LoadHtml("<html><body style=\"margin:0\"><div style=\"height:40px\"></div></body></html>");
  stage.platform->Advance(milliseconds(49));
  EXPECT_EQ(pane.ContentHeightPixels(), 30) << "the old page is shown until then";
  stage.platform->Advance(milliseconds(1));
  EXPECT_EQ(pane.ContentHeightPixels(), 40);
}

TEST(VirtualClock, ReportsOnlyThePageThatWasStartedLast) {
  Stage stage;
  std::string loaded;
  const auto load = [&](ControlId pane, const char* name) {
    stage.platform->LoadPage(pane, "<html>", [&loaded, name] { loaded += name; });
  };
  load(1, "a");
  load(2, "b");
  load(1, "c");
  load(3, "d");
  stage.platform->DropPage(3);
  stage.platform->RunPosted();
  EXPECT_EQ(loaded, "bc");
}

TEST(VirtualClock, EndsWhatWouldGoOnForever) {
  Stage stage;
  Form form(stage.host, "form");
  std::function<void()> again = [&] { stage.platform->LoadPage(1, "<html>", [&] { again(); }); };
  again();
  EXPECT_EQ(Catch([&] { stage.platform->RunPosted(); }).number, error_number::kInternal);
}

}  // namespace
}  // namespace zav

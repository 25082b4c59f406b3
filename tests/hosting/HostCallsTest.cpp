// Who the component calls, with what, and in which order; and what it does when such a call fails.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/clsErrorDisplay.h"
#include "support/FaultyObject.h"
#include "support/ItemFixture.h"

namespace zav {
namespace {

using Texts = std::vector<std::string>;

Texts TakeCalls(ReferenceHost& host) {
  Texts texts = host.calls().Texts();
  host.calls().Clear();
  return texts;
}

TEST(HostCalls, FollowTheLifeOfAnItem) {
  ReferenceHost host(ItemFolder("items/circuit"));
  Candidate candidate(host);
  const auto at = [](const char* words) { return *ReadSpot(words); };
  ASSERT_TRUE(host.Init());
  EXPECT_EQ(TakeCalls(host),
            (Texts{"support.GetLocalizePath(KVStatic.xml)", "support.GetSupportFileDir()",
                   "support.GetGraphicsPath(bulb.png)", "support.GetGraphicsPath(switch.png)",
                   "support.GetGraphicsPath(lamp.png)", "support.GetGraphicsPath(ammeter.png)",
                   "support.GetGraphicsPath(voltmeter.png)", "support.GetGraphicsPath(diode.png)",
                   "parent.GetGraphicsPath(diagram.png)", "support.GetGraphicsPath(bulb.png)",
                   "parent.GetGraphicsPath(component-slot.png)",
                   "parent.GetGraphicsPath(reading-slot.png)"}));
  ASSERT_TRUE(host.Show());
  candidate.Drag(at("source 3"), at("target 1"));
  host.State();
  EXPECT_EQ(TakeCalls(host), Texts{}) << "pictures are kept";
  candidate.Delete(at("target 1"));
  EXPECT_EQ(TakeCalls(host), Texts{"parent.GetGraphicsPath(component-slot.png)"})
      << "an empty target's picture is loaded anew";
  candidate.ClickButton("btnInstructions");
  EXPECT_EQ(TakeCalls(host), Texts{});
  ASSERT_TRUE(host.Hide());
  ASSERT_TRUE(host.Free());
  EXPECT_EQ(TakeCalls(host), Texts{});
}

TEST(HostCalls, SayWhatWentWrongAndShowItUnderTheApplicationsTitle) {
  ReferenceHost host(
      EditedItem("items/heart", {{"ImagePath=\"heart.png\"", "ImagePath=\"no.png\""}}));
  host.Init();
  const Texts calls = TakeCalls(host);
  ASSERT_EQ(calls.size(), 5U);
  const std::string path = host.parent().log().at(0).description.substr(16);
  EXPECT_EQ(calls[3],
            "parent.LogError(53, File not found: " + path + ", ZavDragDrop, , LoadWorkArea, 0)");
  EXPECT_EQ(calls[4], "parent.ShowMessage(Error: Description - File not found: " + path +
                          ".  Number - 53  Source -   Routine - LoadWorkArea  LineNumber - 0, 16, "
                          "Drag and drop question)");
}

TEST(HostCalls, AnswersGoToQuestionsAndNotToNotices) {
  HostOptions small;
  small.screen.widthPixels = 640;
  small.screen.heightPixels = 480;
  ItemFixture item("items/heart", small);
  item.Drag("source 1").To("target A").Release();
  item.host.parent().WillAnswer(message_answer::kCancel);
  EXPECT_FALSE(item.host.Status().bViewedAll);
  item.candidate.ClickButton("btnReset");
  EXPECT_EQ(item.Messages().size(), 2U) << "the request to scroll, then the question";
  EXPECT_EQ(item.Responses(), "A4") << "the question was answered Cancel";
  item.candidate.ClickButton("btnReset");
  EXPECT_EQ(item.Responses(), "") << "without further orders the answer is OK";
}

// The life of an item, whatever fails on the way.
void Live(ReferenceHost& host) {
  if (!host.Init() || !host.Show()) return;
  Candidate candidate(host);
  candidate.Drag({Spot::Kind::Pixel, {}, {80, 180}}, {Spot::Kind::Pixel, {}, {300, 210}});
  candidate.ClickButton("btnReset");
  host.Status();
  host.Score();
}

TEST(HostCalls, MayFailAtAnyTime) {
  int failing = 1;
  for (bool reached = true; reached; ++failing) {
    const auto fault = std::make_shared<CallFault>(CallFault{failing, 0});
    HostOptions options;
    options.wrapHostObject = [&](std::string_view, ObjectRef object) -> ObjectRef {
      return std::make_shared<FaultyObject>(std::move(object), fault);
    };
    ReferenceHost host(ItemFolder("items/heart"), options);
    try {
      Live(host);
    } catch (const AutomationError& error) {
      ADD_FAILURE() << "call " << failing << ": " << error.Description();
    }
    reached = fault->callCount >= failing;
    const std::vector<LogEntry>& log = host.parent().log();
    if (reached) {
      ASSERT_FALSE(log.empty()) << "call " << failing;
      EXPECT_TRUE(log[0].description == "The host cannot do this" ||
                  log[0].description == "Message Function not available")
          << log[0].description;
    } else {
      EXPECT_TRUE(log.empty());
    }
    EXPECT_TRUE(host.Free()) << "call " << failing;
  }
  EXPECT_GE(failing, 6);
}

}  // namespace
}  // namespace zav

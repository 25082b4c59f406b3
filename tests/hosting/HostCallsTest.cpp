// Who the component calls, with what, and in which order.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/clsErrorDisplay.h"
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

}  // namespace
}  // namespace zav

// Hosts that act in the middle of a call that is made to them. Whatever they do, and at whichever
// call of a whole session, it comes out as if they had done it right after what they were called
// from.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "automation/Text.h"
#include "form/FormCore.h"
#include "hosting/InputError.h"
#include "support/Intercepted.h"
#include "support/SmallItem.h"
#include "support/WholeSession.h"

namespace zav {
namespace {

constexpr const char* kOtherState = "<State><Responses><Response>C2</Response></Responses></State>";

SafeArray ArrayOf(std::string_view text) { return SafeArray(Utf8ToUtf16Le(text)); }

struct Act {
  const char* name;
  std::function<void(ReferenceHost&)> run;
};

// An item of which one empty picture is missing, so that the host hears of errors often.
ItemFolder FaultyItem() {
  return SmallItem({{"EmptyImage=\"reading-slot.png\"", "EmptyImage=\"no-slot.png\""}});
}

class Session {
 public:
  // Acts at that call of the host's objects, counted from 1, or after that step, counted from 0.
  struct When {
    int call = 0;
    int afterStep = -1;
  };

  Session(const Act& act, When when)
      : act_(act),
        when_(when),
        host_(FaultyItem(), Intercept([this](std::string_view member, std::span<Variant>) {
                if (member != "GetLocalizePath") Hear();  // asked before there is an item
                return std::nullopt;
              })) {}

  // What there is to see of it at the end.
  std::string Play() {
    for (const auto& step : WholeSession(host_, candidate_)) {
      Do(step);
      if (step_ == when_.afterStep) act_.run(host_);
      host_.platform().RunPosted();
      ++step_;
    }
    return Outcome();
  }

  [[nodiscard]] std::optional<int> StepOfAct() const { return stepOfAct_; }

 private:
  void Hear() {
    if (++calls_ != when_.call) return;
    stepOfAct_ = step_;
    act_.run(host_);
  }

  void Do(const std::function<void()>& step) {
    if (!host_.HasItem()) return;
    try {
      step();
    } catch (const InputError&) {  // what is hidden or freed cannot be pointed at
    } catch (const AutomationError& error) {
      EXPECT_EQ(host_.item().form(), nullptr) << error.Description();
    }
  }

  std::string Outcome() {
    std::string outcome = Reports(host_);
    if (!host_.HasItem()) return outcome + "; released";
    if (host_.item().form() == nullptr) return outcome + "; freed";
    const Form& form = host_.form();
    return outcome + "; " + Faults(host_, false) + host_.State() +
           (form.visible() ? "; shown " : "; hidden ") + std::to_string(form.width());
  }

  const Act& act_;
  const When when_;
  int calls_ = 0;
  int step_ = 0;
  std::optional<int> stepOfAct_;
  ReferenceHost host_;
  Candidate candidate_{host_};
};

const Act kActs[] = {
    {"frees the item", [](ReferenceHost& host) { host.item().FreeExternalDisplay(); }},
    {"lets the component go", [](ReferenceHost& host) { host.Release(); }},
    {"initialises anew",
     [](ReferenceHost& host) {
       const SafeArray xml(FaultyItem().ItemBytes());
       host.item().InitExternalDisplay(xml, 0, 0);
       host.item().ShowExternalDisplay(0, 0, 15000, 10000);
     }},
    {"sets a state",
     [](ReferenceHost& host) {
       host.item().SetExternalStateArray(ArrayOf(kOtherState), 0);
       host.item().ResizeExternalDisplay(0, 0, 15360, 11520);
     }},
    {"resizes", [](ReferenceHost& host) { host.item().ResizeExternalDisplay(0, 0, 12000, 9000); }},
    {"builds it anew", [](ReferenceHost& host) { host.item().Redisplay(0, 0, 12000, 9000); }},
    {"hides", [](ReferenceHost& host) { host.item().HideExternalDisplay(); }},
    {"lets time pass", [](ReferenceHost& host) { host.Wait(std::chrono::milliseconds(1000)); }},
};

TEST(BusyHost, IsServedWhenTheCallEnds) {
  for (const Act& act : kActs) {
    std::map<int, std::string> afterStep;
    for (int call = 1;; ++call) {
      Session session(act, {.call = call});
      const std::string outcome = session.Play();
      const std::optional<int> step = session.StepOfAct();
      if (!step) break;
      auto& expected = afterStep[*step];
      if (expected.empty()) expected = Session(act, {.afterStep = *step}).Play();
      EXPECT_EQ(outcome, expected) << "the host " << act.name << " at call " << call;
    }
    EXPECT_GT(afterStep.size(), 5U) << "hosts are called in most steps";
  }
}

TEST(BusyHost, GetsAnswersAtOnceWhereNothingChanges) {
  int asked = 0;
  std::function<void(std::string_view)> hear = [](std::string_view) {};
  ItemFixture item(FaultyItem(), Intercept([&](std::string_view member, std::span<Variant>) {
                     hear(member);
                     return std::nullopt;
                   }));
  hear = [&](std::string_view member) {
    if (member != "LogError") return;
    ++asked;
    EXPECT_EQ(item.host.Responses(), std::vector<std::string>{});
    EXPECT_EQ(item.host.GetRecord(ReferenceHost::Record::Responses), "");
    EXPECT_EQ(item.host.Score().nNotAttempted, 1);
    try {
      item.host.Rescore("A1");
      ADD_FAILURE() << "a member that changes and answers cannot do both";
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Number(), error_number::kComponent);
    }
  };
  item.host.Init();
  EXPECT_GT(asked, 0);
}

// A host that calls back whenever it is called never comes to an end by itself.
TEST(BusyHost, IsStoppedWhenItGoesOnForEver) {
  const struct {
    const char* why;
    std::function<void(clsDragDrop&)> callBack;
  } rows[] = {
      {"asking", [](clsDragDrop& item) { item.ConvertKey("<"); }},
      {"changing", [](clsDragDrop& item) { item.SetExternalStateArray(ArrayOf("<State>"), 0); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.why);
    std::function<void()> hear = [] {};
    ItemFixture item(SmallItem(), Intercept([&](std::string_view member, std::span<Variant>) {
                       if (member == "LogError") hear();
                       return std::nullopt;
                     }));
    hear = [&] {
      try {
        row.callBack(item.host.item());
      } catch (const AutomationError&) {
      }
    };
    item.host.item().ConvertKey("<");
    hear = [] {};
    EXPECT_LT(item.Log().size(), 500U);
    item.host.SetState("<State><Responses/></State>");
    item.host.Show();
    item.Drag("source 1").To("target A").Release();
    EXPECT_EQ(item.Responses(), "A1");
  }
}

}  // namespace
}  // namespace zav

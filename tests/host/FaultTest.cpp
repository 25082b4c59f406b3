// Host objects that fail. In each run one call of a whole session fails, then the next one, up to
// the first that is never made; in some runs the host cannot even be told. Whatever fails, no
// placement is lost or doubled, nothing but an automation error reaches the host, and then only
// when telling it failed, and the same component goes on to serve a session without faults.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "form/FormCore.h"
#include "hosting/InputError.h"
#include "support/Intercepted.h"
#include "support/SmallItem.h"
#include "support/WholeSession.h"

namespace zav {
namespace {

enum class Kind { Automation, Standard, Other };

struct Fault {
  Kind kind = Kind::Automation;
  std::string alsoFails;  // this member, from the failing call on
  int failingCall = 0;
  int calls = 0;
  bool on = true;

  std::optional<Variant> Hear(std::string_view member) {
    if (!on) return std::nullopt;
    ++calls;
    const bool fails = calls == failingCall || (calls > failingCall && member == alsoFails);
    if (fails && kind == Kind::Automation) throw AutomationError(1000, "cannot", "host");
    if (fails && kind == Kind::Standard) throw std::runtime_error("cannot");
    if (fails) throw 7;
    return std::nullopt;
  }
  [[nodiscard]] bool Reached() const { return calls >= failingCall; }
};

class Session {
 public:
  Session(Kind kind, const std::string& alsoFails, int failingCall)
      : name_("call " + std::to_string(failingCall) + " fails, then " + alsoFails + ": "),
        fault_{kind, alsoFails, failingCall, 0, true},
        host_(SmallItem(), Intercept([this](std::string_view member, std::span<Variant>) {
                return fault_.Hear(member);
              })) {}

  void Play() {
    for (const auto& step : WholeSession(host_, candidate_)) Do(step);
  }

  void Check() {
    const std::vector<LogEntry>& log = host_.parent().log();
    const auto injected = std::count_if(log.begin(), log.end(), [](const LogEntry& entry) {
      return entry.number == 1000 || entry.description == "Message Function not available";
    });
    if (fault_.alsoFails.empty() && fault_.kind == Kind::Automation) {
      EXPECT_EQ(injected, fault_.Reached() ? 1 : 0) << name_ << "once, " << Reports(host_);
    }
    const std::size_t reports = log.size();
    fault_.on = false;
    EXPECT_TRUE(host_.Init() && host_.Show()) << name_;
    candidate_.Drag(*ReadSpot("source 2"), *ReadSpot("target A"));
    candidate_.Drag(*ReadSpot("target A"), *ReadSpot("target B"));
    EXPECT_EQ(host_.Responses(), std::vector<std::string>{"B2"}) << name_;
    EXPECT_EQ(Faults(host_, false), "") << name_;
    EXPECT_TRUE(host_.Free()) << name_;
    EXPECT_EQ(log.size(), reports) << name_ << Reports(host_);
  }

  [[nodiscard]] bool Reached() const { return fault_.Reached(); }

 private:
  void Do(const std::function<void()>& step) {
    try {
      step();
    } catch (const InputError&) {  // what was not built cannot be pointed at
    } catch (const AutomationError& error) {
      const bool noForm = host_.item().form() == nullptr;
      EXPECT_TRUE(noForm || !fault_.alsoFails.empty()) << name_ << error.Description();
    }
    if (IsBuilt()) {
      EXPECT_EQ(Faults(host_, false), "") << name_;
    }
  }

  // All of it: of what was not built a state may tell more than is shown.
  [[nodiscard]] bool IsBuilt() {
    if (host_.item().form() == nullptr) return false;
    FormCore& core = host_.form().core();
    if (core.layout.StatePending) return false;
    return core.controls.imgSource.UpperBound() == 6 && core.tables.TargetList.Count() == 5 &&
           core.tables.TargetList.Item(5).SnapTop > 0;
  }

  std::string name_;
  Fault fault_;
  ReferenceHost host_;
  Candidate candidate_{host_};
};

TEST(HostFaults, LoseAndDoubleNothing) {
  const struct {
    Kind kind;
    const char* alsoFails;
  } rows[] = {
      {Kind::Automation, ""},         {Kind::Standard, ""},      {Kind::Other, ""},
      {Kind::Automation, "LogError"}, {Kind::Other, "LogError"}, {Kind::Automation, "ShowMessage"},
  };
  for (const auto& row : rows) {
    int failing = 1;
    for (bool reached = true; reached && failing < 500; ++failing) {
      Session session(row.kind, row.alsoFails, failing);
      session.Play();
      reached = session.Reached();
      session.Check();
    }
    EXPECT_GT(failing, 15) << "the session calls its host often";
    EXPECT_LT(failing, 500);
  }
}

}  // namespace
}  // namespace zav

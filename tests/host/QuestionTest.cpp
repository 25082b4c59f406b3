// A question that the host answers later than it was asked.
#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "host/PendingAnswer.h"
#include "support/Intercepted.h"
#include "support/SmallItem.h"

namespace zav {
namespace {

constexpr std::int16_t kOk = 1;
constexpr std::int16_t kCancel = 2;

// An item with two placements, whose host answers when the test does.
struct LaterAnswered {
  std::shared_ptr<PendingAnswer> pending;
  int asked = 0;
  int dropped = 0;
  std::optional<std::int16_t> early;  // answered before the question is awaited
  ItemFixture item;

  LaterAnswered()
      : item(SmallItem(), Intercept([this](std::string_view name, std::span<Variant>) {
               return Answer(name);
             })) {
    item.Drag("source 1").To("target A").Release();
    item.Drag("source 2").To("target B").Release();
  }

  std::optional<Variant> Answer(std::string_view name) {
    if (name != "ShowMessage") return std::nullopt;
    ++asked;
    pending = std::make_shared<PendingAnswer>();
    pending->onDropped = [this] { ++dropped; };
    if (early) pending->Answer(*early);
    return ObjectRef(pending);
  }
};

TEST(Question, WaitsForAnAnswerThatComesLater) {
  struct Row {
    const char* why;
    std::function<void(LaterAnswered&)> then;
    const char* responses;
    int asked;
    int dropped;
  };
  const auto reset = [](LaterAnswered& test) { test.item.candidate.ClickButton("btnReset"); };
  const Row rows[] = {
      {"nothing happens before the answer", [](LaterAnswered&) {}, "A1 B2", 1, 0},
      {"OK", [](LaterAnswered& test) { test.pending->Answer(kOk); }, "", 1, 0},
      {"Cancel", [](LaterAnswered& test) { test.pending->Answer(kCancel); }, "A1 B2", 1, 0},
      {"the first answer counts",
       [](LaterAnswered& test) {
         test.pending->Answer(kCancel);
         test.pending->Answer(kOk);
       },
       "A1 B2", 1, 0},
      {"the form takes no input while the question is open",
       [](LaterAnswered& test) { test.item.Drag("source 1").To("target C").Release(); }, "A1 B2", 1,
       0},
      {"it takes input again after the answer",
       [](LaterAnswered& test) {
         test.pending->Answer(kCancel);
         test.item.Drag("target A").To("target C").Release();
       },
       "B2 C1", 1, 0},
      {"the button asks no second question", reset, "A1 B2", 1, 0},
      {"it asks again once it was answered",
       [&](LaterAnswered& test) {
         test.pending->Answer(kCancel);
         reset(test);
         test.pending->Answer(kOk);
       },
       "", 2, 0},
      {"hiding the item drops it",
       [](LaterAnswered& test) {
         test.item.host.Hide();
         test.item.host.Show();
         test.pending->Answer(kOk);
       },
       "A1 B2", 1, 1},
      {"another state drops it",
       [](LaterAnswered& test) {
         test.item.host.SetState("<State><Responses><Response>C1</Response></Responses></State>");
         test.pending->Answer(kOk);
       },
       "C1", 1, 1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    LaterAnswered test;
    reset(test);
    row.then(test);
    EXPECT_EQ(test.item.Responses(), row.responses);
    EXPECT_EQ(test.asked, row.asked);
    EXPECT_EQ(test.dropped, row.dropped);
  }
}

TEST(Question, TakesAnAnswerThatComesEarly) {
  LaterAnswered test;
  test.early = kCancel;
  test.item.candidate.ClickButton("btnReset");
  EXPECT_EQ(test.item.Responses(), "A1 B2");
  test.early = kOk;
  test.item.candidate.ClickButton("btnReset");
  EXPECT_EQ(test.item.Responses(), "");
  test.item.Drag("source 1").To("target C").Release();
  EXPECT_EQ(test.item.Responses(), "C1") << "the form takes input again";
}

TEST(Question, IsDroppedWhenTheItemIsFreed) {
  LaterAnswered test;
  test.item.candidate.ClickButton("btnReset");
  const std::shared_ptr<PendingAnswer> pending = test.pending;
  test.item.host.Free();
  EXPECT_EQ(test.dropped, 1);
  pending->Answer(kOk);
}

TEST(Question, NoticesNeedNoAnswer) {
  LaterAnswered test;
  test.item.host.parent().WillAnswer(kOk);
  // Source 2 may be used twice; a third time is told.
  test.item.Drag("source 2").To("target C").Release();
  test.item.Drag("source 2").To("target A").Release();
  EXPECT_EQ(Faults(test.item, false), "");
}

}  // namespace
}  // namespace zav

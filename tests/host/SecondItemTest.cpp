// A second item in the same component, after one that has a case study of the host's.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "automation/Text.h"
#include "support/ItemFixture.h"
#include "support/SmallItem.h"

namespace zav {
namespace {

// Takes the left half of the rectangle for itself.
class HalfCase : public Object {
 public:
  explicit HalfCase(std::vector<std::string>& calls) : calls_(calls) {}

  Variant Invoke(std::string_view name, std::span<Variant> arguments,
                 InvokeKind /*kind*/) override {
    calls_.emplace_back(name);
    if (name == "QuestionSize") arguments[2] = ToInt32(arguments[2]) / 2;
    if (name == "DisplayInt_FreeExternalDisplay") {
      throw AutomationError(1000, "cannot free", "case");
    }
    return name == "getCaseParent" ? Variant(0) : Variant(true);
  }

 private:
  std::vector<std::string>& calls_;
};

struct CaseItem {
  std::vector<std::string> calls;
  ItemFixture item;

  CaseItem() : item("items/ledger", Options()) {}

  HostOptions Options() {
    HostOptions options;
    options.registerClasses = [this](ClassRegistry& classes) {
      classes.Register(kCaseStudyProgId, [this] { return std::make_shared<HalfCase>(calls); });
    };
    return options;
  }

  bool Init(std::string_view xml) {
    return item.host.item().InitExternalDisplay(SafeArray(Utf8ToUtf16Le(xml)), 0, 0);
  }
};

// The same question without a case.
std::string SecondXml() {
  std::string xml = Utf16LeToUtf8(ItemFolder("items/ledger").ItemBytes());
  const std::string_view code = "CASE01";
  return xml.replace(xml.find(code), code.size(), "NONE");
}

TEST(SecondItem, HasNothingOfTheFirstOnesCaseStudy) {
  CaseItem test;
  const float half = test.item.form().controls.form.width();
  test.calls.clear();
  EXPECT_TRUE(test.Init(SecondXml()));
  EXPECT_EQ(Reports(test.item), "InitExternalDisplay") << "the case study cannot be freed";
  EXPECT_EQ(test.calls, std::vector<std::string>{"DisplayInt_FreeExternalDisplay"});
  EXPECT_TRUE(test.item.host.Show());
  test.item.host.Status();
  EXPECT_EQ(test.calls.size(), 1U);
  EXPECT_EQ(test.item.form().controls.form.width(), 2 * half);
  EXPECT_TRUE(test.item.host.Free());
}

TEST(SecondItem, LeavesTheFirstAsItWasWhenItIsBroken) {
  const struct {
    const char* why;
    const char* xml;
  } rows[] = {
      {"no XML", "<DragAndDropItem><Targets></DragAndDropItem>"},
      {"no item", "<Item/>"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.why);
    ItemFixture item(SmallItem());
    item.Drag("source 1").To("target A").Release();
    EXPECT_FALSE(item.host.item().InitExternalDisplay(SafeArray(Utf8ToUtf16Le(row.xml)), 0, 0x1));
    EXPECT_EQ(Reports(item), "InitExternalDisplay");
    item.Drag("source 2").To("target B").Release();
    EXPECT_EQ(item.Responses(), "A1 B2");
    EXPECT_TRUE(item.host.Resize(900, 700));
    EXPECT_EQ(Faults(item, false), "");
  }
}

TEST(SecondItem, IsScoredByItsOwnKey) {
  ItemFixture item(SmallItem());
  const SafeArray responses(Utf8ToUtf16Le("<Responses><Response>D12</Response></Responses>"));
  const auto rescored = [&] {
    ScoreCounts counts;
    SafeArray unused;
    std::int32_t length = 0;
    item.host.item().RescoreExternalDisplayQuick(responses, 1, counts, unused, length);
    return counts.fRawScore;
  };
  EXPECT_EQ(rescored(), 1);
  const ItemFolder second = SmallItem({{R"(<Answer Weight="1">D12)", R"(<Answer Weight="5">D12)"}});
  EXPECT_TRUE(item.host.item().InitExternalDisplay(SafeArray(second.ItemBytes()), 0, 0));
  item.host.Show();
  item.host.SetState("<State><Responses/></State>");  // as many changes as the first item had
  EXPECT_EQ(rescored(), 5);
}

TEST(SecondItem, IsFreedThoughTheFirstOnesCaseStudyFails) {
  CaseItem test;
  EXPECT_THROW(test.item.host.item().FreeExternalDisplay(), AutomationError);
  EXPECT_EQ(test.item.host.item().form(), nullptr);
  EXPECT_EQ(std::count(test.calls.begin(), test.calls.end(), "DisplayInt_FreeExternalDisplay"), 1);
  EXPECT_TRUE(test.item.host.item().FreeExternalDisplay());
}

}  // namespace
}  // namespace zav

// What an operation does to an item of two sizes. Counted, not timed: calls to the host, changes of
// the document, controls that are presented, and how often an area is painted.
#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <string>

#include "form/FormCore.h"
#include "support/GrownItem.h"
#include "support/ItemFixture.h"

namespace zav {
namespace {

constexpr int kSmall = 120;
constexpr int kLarge = 240;
constexpr int kDeleteKey = 46;

struct Counts {
  int calls = 0;
  int documentChanges = 0;
  int presented = 0;
  int painted = 0;
};

class CountedItem {
 public:
  explicit CountedItem(int targets) : item_(GrownItem(targets), Options()), targets_(targets) {
    for (PictureBox* area : {&controls().pcWork, &controls().pcSource}) Watch(*area);
  }

  FormControls& controls() { return item_.form().controls; }
  ReferenceHost& host() { return item_.host; }

  void Fill() { Show(GrownState(targets_)); }
  void Show(const std::string& state) {
    host().SetState(state);
    host().Show();
  }
  void DragTo(int target) {
    PictureButton& cover = controls().imgSourceCover[1];
    const Point from = cover.OriginInForm();
    const Point to = controls().imgTargetCover[target].OriginInForm();
    cover.RaiseMouseMove({MouseButton::Left, to.x - from.x + 90, to.y - from.y + 90});
  }
  void PickUp() {
    controls().imgSourceCover[1].RaiseMouseDown({MouseButton::Left, 1, 1});
    DragTo(9);
  }
  void Release() { controls().imgSourceCover[1].RaiseMouseUp({MouseButton::Left, 0, 0}); }
  void Delete(int target) { controls().imgTargetCover[target].RaiseKeyDown({kDeleteKey, false}); }
  void Click(const char* button) {
    PageEvent event{"click", button};
    controls().brwButtons.RaisePageEvent(event);
  }

  Counts Count(const std::function<void()>& operation) {
    host().calls().Clear();
    painted_ = 0;
    const HeadlessPlatform& platform = host().platform();
    const int batches = platform.PresentedBatches();
    const std::uint64_t revision = host().item().DataIO().Revision();
    operation();
    const bool isPresented = platform.PresentedBatches() > batches;
    return {static_cast<int>(host().calls().Calls().size()),
            static_cast<int>(host().item().DataIO().Revision() - revision),
            isPresented ? static_cast<int>(platform.LastBatch().changed.size()) : 0, painted_};
  }

 private:
  struct Watched {
    Handler<void()> paint;
    int* painted;
  };

  static HostOptions Options() {
    HostOptions options;
    options.lOptions = 0x10;
    return options;
  }

  void Watch(PictureBox& area) {
    Watched& watched = watched_.emplace_back(Watched{area.onPaint, &painted_});
    area.onPaint = [&watched] {
      ++*watched.painted;
      watched.paint();
    };
  }

  ItemFixture item_;
  int targets_;
  int painted_ = 0;
  std::deque<Watched> watched_;
};

TEST(Growth, IsWithTheItemAtMost) {
  using Item = CountedItem;
  const struct {
    const char* why;
    std::function<void(Item&)> before;
    std::function<void(Item&)> operation;
    bool grows;  // or does the same to an item of any size
    int painted;
  } rows[] = {
      {"a move into a target", [](Item& item) { item.PickUp(); },
       [](Item& item) { item.DragTo(1); }, false, 0},
      {"a move inside a target",
       [](Item& item) {
         item.PickUp();
         item.DragTo(1);
         item.DragTo(1);
       },
       [](Item& item) { item.DragTo(1); }, false, 0},
      {"a drop",
       [](Item& item) {
         item.Fill();
         item.Delete(1);
         item.PickUp();
         item.DragTo(1);
       },
       [](Item& item) { item.Release(); }, false, 2},
      {"an item that is taken off", [](Item& item) { item.Fill(); },
       [](Item& item) { item.Delete(1); }, false, 0},
      {"a state", [](Item& item) { item.Show("<State><Responses/></State>"); },
       [](Item& item) { item.Fill(); }, true, 2},
      {"Reset", [](Item& item) { item.Fill(); }, [](Item& item) { item.Click("btnReset"); }, true,
       2},
      {"Set Answers", [](Item& item) { item.Fill(); },
       [](Item& item) { item.Click("btnSetAnswers"); }, true, 2},
      {"a resize", [](Item& item) { item.Fill(); },
       [](Item& item) { item.host().Resize(800, 600); }, true, 2},
      {"a score", [](Item& item) { item.Fill(); }, [](Item& item) { item.host().Score(); }, false,
       0},
      {"another score", [](Item& item) { item.Fill(); },
       [](Item& item) { item.host().Rescore("A1"); }, false, 0},
  };
  for (const auto& row : rows) {
    Counts counts[2];
    for (const int size : {kSmall, kLarge}) {
      CountedItem item(size);
      row.before(item);
      counts[size == kLarge ? 1 : 0] = item.Count([&] { row.operation(item); });
    }
    const auto check = [&](const char* what, int Counts::*count) {
      const int small = counts[0].*count;
      EXPECT_LE(counts[1].*count, row.grows ? 2 * small + small / 10 : small)
          << row.why << ": " << what;
    };
    check("calls to the host", &Counts::calls);
    check("changes of the document", &Counts::documentChanges);
    check("controls presented", &Counts::presented);
    for (const Counts& each : counts) EXPECT_EQ(each.painted, row.painted) << row.why;
  }
}

}  // namespace
}  // namespace zav

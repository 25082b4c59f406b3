// What an item costs the component, by its size: 40, 400 and 4,000 targets with as many source
// items, on the headless platform. Events are raised at the controls, as finding the control under
// the pointer is the platform's business. Pictures of samples are read, so it runs in the project's
// root.
#include <benchmark/benchmark.h>

#include <chrono>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "automation/FunctionRef.h"
#include "automation/Text.h"
#include "form/FormCore.h"
#include "form/frmMain.h"
#include "hosting/ReferenceHost.h"
#include "support/GrownItem.h"

namespace zav {
namespace {

constexpr int kSource = 1;  // the item that is dragged
constexpr int kTarget = 1;  // its own target
constexpr int kOther = 9;   // the next one of its group
constexpr int kDeleteKey = 46;
constexpr float kFarTwips = 90;  // moves farther than this start a drag

// An item in the hands of a candidate who can see all of it.
class LoadedItem {
 public:
  explicit LoadedItem(int targets) : targets_(targets), host_(GrownItem(targets), Options()) {
    if (!host_.Init() || !host_.Show()) throw std::runtime_error("the item was not shown");
  }

  static HostOptions Options() {
    static const SupportFolder kept;  // so that its pictures are there but for the first item
    HostOptions options;
    options.lOptions = 0x10;  // Set Answers is offered
    options.supportFolder = kept.path();
    return options;
  }

  [[nodiscard]] int Targets() const { return targets_; }
  ReferenceHost& host() { return host_; }
  FormControls& controls() { return host_.form().core().controls; }

  // Every target holds its own item, or none does.
  void Fill() {
    host_.SetState(GrownState(targets_));
    host_.Show();
  }
  void Empty() {
    host_.SetState("<State><Responses/></State>");
    host_.Show();
  }

  PictureButton& SourceCover() { return controls().imgSourceCover[kSource]; }
  PictureButton& TargetCover(int target) { return controls().imgTargetCover[target]; }

  void Press(Control& cover) {
    cover.RaiseMouseDown({MouseButton::Left, 1, 1});
    cover.RaiseMouseMove({MouseButton::Left, kFarTwips, kFarTwips});
  }
  // To the middle of a target, or beside it by so many twips.
  void MoveTo(Control& cover, int target, float beside = 0) {
    const Point from = cover.OriginInForm();
    const Point to = TargetCover(target).OriginInForm();
    const Size size = TargetCover(target).SizeInTwips();
    cover.RaiseMouseMove({MouseButton::Left, to.x - from.x + size.width / 2 + beside,
                          to.y - from.y + size.height / 2});
  }
  static void Release(Control& cover) { cover.RaiseMouseUp({MouseButton::Left, 0, 0}); }
  void Delete(int target) { TargetCover(target).RaiseKeyDown({kDeleteKey, false}); }
  void Click(const char* button) {
    PageEvent event{"click", button};
    controls().brwButtons.RaisePageEvent(event);
  }

  // Says so when a target does not hold what it should: a benchmark of nothing is quick.
  void Require(int target, int source) {
    const std::int16_t held = host_.form().core().tables.TargetList.Item(target).SourceID;
    if (held != source) throw std::runtime_error("target " + std::to_string(target));
  }

 private:
  int targets_;
  ReferenceHost host_;
};

// Loading takes longer than most of what is measured, so one item of each size is kept.
LoadedItem& Item(benchmark::State& state) {
  static std::map<std::int64_t, std::unique_ptr<LoadedItem>> items;
  std::unique_ptr<LoadedItem>& item = items[state.range(0)];
  if (!item) item = std::make_unique<LoadedItem>(static_cast<int>(state.range(0)));
  return *item;
}

// Measures what it is given, and not what goes on around it.
void Time(benchmark::State& state, Procedure measured) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point start = Clock::now();
  measured();
  state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(40)->Arg(400)->Arg(4000)->Unit(benchmark::kMicrosecond);
}
void SizesByHand(benchmark::internal::Benchmark* benchmark) {
  Sizes(benchmark);
  benchmark->UseManualTime()->MinTime(0.1);
}

void LoadToLaidOut(benchmark::State& state) {
  const int targets = static_cast<int>(state.range(0));
  const ItemFolder folder = GrownItem(targets);
  LoadedItem::Options();
  while (state.KeepRunning()) {
    ReferenceHost host(folder, LoadedItem::Options());
    Time(state, [&] {
      if (!host.Init() || !host.Show()) state.SkipWithError("not shown");
    });
  }
}
BENCHMARK(LoadToLaidOut)->Apply(SizesByHand);

void MoveInsideTarget(benchmark::State& state) {
  LoadedItem& item = Item(state);
  item.Empty();
  item.Press(item.SourceCover());
  float beside = 0;
  while (state.KeepRunning()) item.MoveTo(item.SourceCover(), kTarget, beside = 15 - beside);
  item.MoveTo(item.SourceCover(), kTarget);
  LoadedItem::Release(item.SourceCover());
  item.Require(kTarget, kSource);
}
BENCHMARK(MoveInsideTarget)->Apply(Sizes);

void MoveIntoTarget(benchmark::State& state) {
  LoadedItem& item = Item(state);
  item.Empty();
  item.Press(item.SourceCover());
  int target = kOther;
  while (state.KeepRunning()) {
    item.MoveTo(item.SourceCover(), target = kTarget + kOther - target);
  }
  item.MoveTo(item.SourceCover(), kTarget);
  LoadedItem::Release(item.SourceCover());
  item.Require(kTarget, kSource);
}
BENCHMARK(MoveIntoTarget)->Apply(Sizes);

// All other targets are answered.
void Drop(benchmark::State& state) {
  LoadedItem& item = Item(state);
  item.Fill();
  while (state.KeepRunning()) {
    item.Delete(kTarget);
    item.Press(item.SourceCover());
    item.MoveTo(item.SourceCover(), kTarget);
    Time(state, [&] { LoadedItem::Release(item.SourceCover()); });
  }
  item.Require(kTarget, kSource);
}
BENCHMARK(Drop)->Apply(SizesByHand);

// From one target to another that is empty.
void Move(benchmark::State& state) {
  LoadedItem& item = Item(state);
  item.Fill();
  item.Delete(kOther);
  int from = kTarget;
  while (state.KeepRunning()) {
    const int to = kTarget + kOther - from;
    PictureButton& cover = item.TargetCover(from);
    item.Press(cover);
    item.MoveTo(cover, to);
    Time(state, [&] { LoadedItem::Release(cover); });
    item.Require(to, kSource);
    from = to;
  }
}
BENCHMARK(Move)->Apply(SizesByHand);

void StateOut(benchmark::State& state) {
  LoadedItem& item = Item(state);
  item.Fill();
  while (state.KeepRunning()) benchmark::DoNotOptimize(item.host().State());
}
BENCHMARK(StateOut)->Apply(Sizes);

// A state is taken over when the item is shown the next time.
void StateIn(benchmark::State& state) {
  LoadedItem& item = Item(state);
  const std::string full = GrownState(item.Targets());
  while (state.KeepRunning()) {
    item.Empty();
    Time(state, [&] {
      item.host().SetState(full);
      item.host().Show();
    });
  }
  item.Require(item.Targets(), item.Targets());
}
BENCHMARK(StateIn)->Apply(SizesByHand);

void Reset(benchmark::State& state) {
  LoadedItem& item = Item(state);
  while (state.KeepRunning()) {
    item.Fill();
    Time(state, [&] { item.Click("btnReset"); });
  }
  item.Require(item.Targets(), 0);
}
BENCHMARK(Reset)->Apply(SizesByHand);

// Every key places an item; as keys name 26 targets only, later ones replace what earlier ones
// placed.
void SetAnswers(benchmark::State& state) {
  LoadedItem& item = Item(state);
  while (state.KeepRunning()) {
    item.Fill();
    Time(state, [&] { item.Click("btnSetAnswers"); });
  }
  item.Require(item.Targets(), 0);
}
BENCHMARK(SetAnswers)->Apply(SizesByHand);

void Score(benchmark::State& state) {
  LoadedItem& item = Item(state);
  item.Fill();
  while (state.KeepRunning()) benchmark::DoNotOptimize(item.host().Score());
}
BENCHMARK(Score)->Apply(Sizes);

void Rescore(benchmark::State& state) {
  LoadedItem& item = Item(state);
  const SafeArray record(Utf8ToUtf16Le(GrownRecord(item.Targets())));
  ScoreCounts counts;
  while (state.KeepRunning()) {
    item.host().item().RescoreExternalDisplay(record, 1, counts);
  }
  if (counts.nCorrect != 1) state.SkipWithError("not scored");
}
BENCHMARK(Rescore)->Apply(Sizes);

void RescoreQuick(benchmark::State& state) {
  LoadedItem& item = Item(state);
  const std::string section = GrownState(item.Targets());
  const SafeArray record(Utf8ToUtf16Le(section.substr(
      std::string("<State>").size(), section.size() - std::string("<State></State>").size())));
  ScoreCounts counts;
  SafeArray unused;
  std::int32_t length = 0;
  while (state.KeepRunning()) {
    item.host().item().RescoreExternalDisplayQuick(record, 1, counts, unused, length);
  }
  if (counts.nCorrect != 1) state.SkipWithError("not scored");
}
BENCHMARK(RescoreQuick)->Apply(Sizes);

void Free(benchmark::State& state) {
  const ItemFolder folder = GrownItem(static_cast<int>(state.range(0)));
  while (state.KeepRunning()) {
    ReferenceHost host(folder, LoadedItem::Options());
    host.Init();
    host.Show();
    Time(state, [&] { host.Free(); });
  }
}
BENCHMARK(Free)->Apply(Sizes)->UseManualTime()->Iterations(3);

}  // namespace
}  // namespace zav

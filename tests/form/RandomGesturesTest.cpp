// Whatever a candidate and a host do, in whatever order, the item stays sound: see Faults. The same
// seed gives the same gestures. ZAV_GESTURES in the environment asks for more of them on each item.
#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <random>
#include <string>
#include <vector>

#include "form/FormCore.h"
#include "hosting/InputError.h"
#include "support/SmallItem.h"

namespace zav {
namespace {

constexpr int kGestures = 600;
constexpr float kPixel = 15;

int GesturesWanted() {
  const char* wanted = std::getenv("ZAV_GESTURES");
  return wanted == nullptr ? kGestures : std::atoi(wanted);
}

class RestlessCandidate {
 public:
  RestlessCandidate(ItemFolder folder, unsigned seed)
      : item_(std::move(folder), WithOptions(0x10)), random_(seed) {}

  // What went wrong with what was done last; nothing when the item is sound.
  std::string DoSomething() {
    switch (Below(45)) {
      case 0:
        Note("resize");
        item_.host.Resize(Between(560, 1400), Between(320, 900));
        break;
      case 1:
        Scroll();
        break;
      case 2:
        DragSplitter();
        break;
      case 3:
        Note("save");
        saved_ = item_.host.State();
        break;
      case 4:
        Load();
        break;
      case 5:
        Note("set the same state");
        item_.host.SetState(item_.host.State());
        break;
      case 6:
        Note("hide and show");
        item_.host.Hide();
        item_.host.Show();
        break;
      case 7:
        Note("status");
        item_.host.Status();
        break;
      case 8:
        Note("wait");
        item_.Wait(Between(0, 1500));
        break;
      case 9:
        PressButton();
        break;
      default:
        UseItems();
    }
    return Faults(item_) + Growth();
  }

  [[nodiscard]] std::string Trail() const {
    std::string text;
    for (const std::string& note : trail_) text += note + "; ";
    return text;
  }

 private:
  unsigned Below(unsigned limit) { return static_cast<unsigned>(random_()) % limit; }
  int Between(int least, int most) {
    return least + static_cast<int>(Below(static_cast<unsigned>(most - least + 1)));
  }
  void Note(const std::string& what) {
    trail_.push_back(what);
    if (trail_.size() > 25) trail_.pop_front();
  }

  void UseItems() {
    switch (Below(4)) {
      case 0:
        Gesture("click", 0);
        break;
      case 1:
        Key();
        break;
      default:
        Gesture("drag", Between(1, 3));
    }
  }

  PictureButton& AnyCover() {
    FormControls& controls = item_.form().controls;
    auto& covers = Below(3) == 0 ? controls.imgSourceCover : controls.imgTargetCover;
    return covers[Between(1, covers.UpperBound())];
  }

  // Mostly a place on a cover, as far as it is in sight.
  Point AnyPlace() {
    if (Below(10) == 0) {
      return {static_cast<float>(Between(0, 1400)) * kPixel,
              static_cast<float>(Between(0, 900)) * kPixel};
    }
    const PictureButton& cover = AnyCover();
    const Point origin = cover.OriginInForm();
    Note(cover.tag());
    return {origin.x + static_cast<float>(Between(1, 40)) * kPixel,
            origin.y + static_cast<float>(Between(1, 25)) * kPixel};
  }

  void Gesture(const std::string& name, int moves) {
    HeadlessPlatform& platform = item_.host.platform();
    Note(name);
    const Point pressed = AnyPlace();
    platform.Press(pressed);
    for (int i = 0; i < moves; ++i) platform.MoveTo(AnyPlace());
    switch (Below(20)) {
      case 0:
        Note("cancel");
        platform.Cancel();
        break;
      case 1:
        Note("lose the release");
        platform.LoseRelease();
        platform.MoveTo(pressed);
        platform.Press(pressed);
        platform.Release();
        break;
      case 2:
        Note("press again");
        platform.Press(AnyPlace());
        platform.Release();
        break;
      case 3:
        Note("hide meanwhile");
        item_.host.Hide();
        platform.Release();
        item_.host.Show();
        break;
      default:
        platform.Release();
    }
    platform.RunPosted();
  }

  void Key() {
    static constexpr int kKeys[] = {13, 27, 32, 37, 38, 39, 40, 46, 46, 65};
    const int key = kKeys[Below(10)];
    PictureButton& cover = AnyCover();
    Note("key " + std::to_string(key) + " at " + cover.tag());
    item_.host.platform().Focus(cover);
    item_.host.platform().Key({key, false});
  }

  void PressButton() {
    static constexpr const char* kButtons[] = {"btnReset", "btnInstructions", "btnSetAnswers"};
    const char* button = kButtons[Below(3)];
    Note(button);
    if (button == kButtons[0] && Below(2) == 0) {
      item_.host.parent().WillAnswer(message_answer::kCancel);
    }
    try {
      item_.candidate.ClickButton(button);
      item_.candidate.CloseWindow();
    } catch (const InputError&) {  // out of sight, or nothing to close
    }
  }

  void Scroll() {
    Note("scroll");
    const Area area = static_cast<Area>(Below(3));
    item_.candidate.ScrollBy(area, Between(-400, 400), Between(-400, 400));
  }

  void DragSplitter() {
    Note("splitter");
    try {
      item_.candidate.DragSplitter(Below(2) == 0 ? "ItemStem" : "SourceArea", Between(20, 500));
    } catch (const InputError&) {
    }
  }

  void Load() {
    if (saved_.empty()) return;
    Note("load");
    item_.host.SetState(saved_);
    item_.host.Show();
  }

  // What is drawn again and again must not pile up.
  std::string Growth() {
    const FormControls& controls = item_.form().controls;
    const int drawn = static_cast<int>(controls.pcWork.drawn().size());
    const int cards = static_cast<int>(controls.pcSource.drawn().size());
    const int segments = static_cast<int>(item_.form().tables.ShapeSegments.size());
    const bool flat = drawn <= 1 + segments + 14 * controls.imgTarget.UpperBound() &&
                      cards <= 14 * controls.imgSource.UpperBound();
    return flat ? "" : "drawn: " + std::to_string(drawn) + ", cards: " + std::to_string(cards);
  }

  ItemFixture item_;
  std::mt19937 random_;
  std::string saved_;
  std::deque<std::string> trail_;
};

TEST(RandomGestures, LeaveAnItemSound) {
  for (const char* name : {"small", "items/circuit", "items/elements"}) {
    const bool small = name == std::string("small");
    RestlessCandidate candidate(small ? SmallItem() : ItemFolder(name), 20);
    for (int i = 0; i < GesturesWanted(); ++i) {
      const std::string wrong = candidate.DoSomething();
      ASSERT_EQ(wrong, "") << name << ", gesture " << i << ": " << candidate.Trail();
    }
  }
}

}  // namespace
}  // namespace zav

#include "form/interaction/FlashTimer.h"

#include <algorithm>

namespace zav {
namespace {

constexpr int kFlashTicks = 50;
constexpr float kSourceMarginTwips = 350;
constexpr float kStemHeightShare = 6;

void ShowAt(PictureButton& prompt, float left, float top) {
  prompt.MoveTo(left, top);
  prompt.BringToFront();
  prompt.Show();
}

}  // namespace

void FlashTimer::tmFlash_Timer() {
  form_.Trap("tmFlash_Timer", [&] {
    if (FlashCount_ >= kFlashTicks) {
      Stop();
      return;
    }
    ShowPrompts();
    ++FlashCount_;
  });
}

void FlashTimer::ShowPrompts() {
  FormControls& controls = form_.controls;
  const float margin = 2 * static_cast<float>(form_.layout.MarginX);
  if (form_.layout.SavedWorkAreaScroll < kViewedWhole) {
    PictureButton& prompt = controls.ssWorkScroll;
    ShowAt(prompt, controls.scrWork.width() - prompt.width() - margin,
           std::max(0.0F, controls.scrWork.height() - prompt.height() - margin));
  }
  if (form_.layout.SavedSourceAreaScroll < kViewedWhole) {
    PictureButton& prompt = controls.ssSourceScroll;
    ShowAt(prompt, controls.scrSource.width() - prompt.width() - kSourceMarginTwips,
           controls.scrSource.height() - prompt.height() - kSourceMarginTwips);
  }
  if (!form_.layout.SavedItemStemScroll) {
    PictureButton& prompt = controls.ssScrollItemStem;
    const HtmlPane& stem = controls.txtItemStem;
    const float stemPane = controls.spSplitter.Pane("ItemStem").rect.height;
    ShowAt(prompt, stem.width() - prompt.width() - margin,
           stem.height() - prompt.height() - stemPane / kStemHeightShare);
  }
}

void FlashTimer::Stop() {
  FormControls& controls = form_.controls;
  controls.tmFlash.SetEnabled(false);
  FlashCount_ = 0;
  controls.ssSourceScroll.Hide();
  controls.ssScrollItemStem.Hide();
  controls.ssWorkScroll.Hide();
}

}  // namespace zav

#include "form/commands/frmInstructions.h"

#include <utility>

namespace zav {
namespace {

constexpr float kWidthTwips = 6750;
constexpr float kHeightTwips = 4800;
constexpr float kLeastTwips = 75;
constexpr int kMarginPixels = 5;

}  // namespace

frmInstructions::frmInstructions(ControlHost& controlHost)
    : Form(controlHost, "frmInstructions"), txtInstructions(controlHost, this, "txtInstructions") {
  SetCaption("Question Instructions");
  txtInstructions.onPageLoaded = [this] { PlacePane(); };
  Resize(kWidthTwips, kHeightTwips);
}

void frmInstructions::SetInstText(std::string text) {
  txtInstructions.LoadHtml(std::move(text));
  txtInstructions.SetMargin(kMarginPixels);
}

void frmInstructions::PlacePane() {
  const TwipsPerPixel twips = host().twipsPerPixel();
  const float leastHeight = static_cast<float>(2 * twips.y) + kLeastTwips;
  const float leastWidth = static_cast<float>(2 * twips.x) + kLeastTwips;
  if (scaleHeight() <= leastHeight || scaleWidth() <= leastWidth) return;
  txtInstructions.Move({0, 0, scaleWidth(), scaleHeight()});
  const float content =
      static_cast<float>(txtInstructions.ContentHeightPixels()) * static_cast<float>(twips.y);
  if (content > txtInstructions.height()) txtInstructions.SetScrollsItself(true);
}

}  // namespace zav

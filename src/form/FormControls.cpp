#include "form/FormControls.h"

namespace zav {
namespace {

constexpr int kGlideInterval = 25;
constexpr int kFadeInterval = 750;
constexpr int kFlashInterval = 25;

constexpr float kPromptWidthTwips = 1350;
constexpr float kPromptHeightTwips = 360;
constexpr float kHintWidthPixels = 150;
constexpr float kHintHeightPixels = 24;
constexpr std::int32_t kHintColor = 0x00E1FFFF;

void LoadElements(ControlArray<HtmlPane>& panes, int count) {
  for (int i = 1; i <= count; ++i) panes.Load(i);
}

void MakePrompt(PictureButton& prompt) {
  prompt.Resize(kPromptWidthTwips, kPromptHeightTwips);
  prompt.SetHasFace(true);
  prompt.Hide();
}

}  // namespace

FormControls::FormControls(ControlHost& host, Form& theForm)
    : form(theForm),
      brwTitle(host, &form, "brwTitle"),
      brwLeftEdge(host, &form, "brwLeftEdge"),
      brwRightEdge(host, &form, "brwRightEdge"),
      brwBottom(host, &form, "brwBottom"),
      brwButtons(host, &form, "brwButtons"),
      spSplitter(host, &form, "spSplitter"),
      scrItemStem(host, &spSplitter, "scrItemStem"),
      txtItemStem(host, &scrItemStem, "txtItemStem"),
      ssScrollItemStem(host, &scrItemStem, "ssScrollItemStem"),
      scrSource(host, &spSplitter, "scrSource"),
      pcSource(host, &scrSource, "pcSource"),
      txtSourceHeading(host, &pcSource, "txtSourceHeading"),
      imgSource(host, &pcSource, "imgSource"),
      txtSource(host, &pcSource, "txtSource"),
      cmdSourceValue(host, &pcSource, "cmdSourceValue"),
      imgSourceCover(host, &pcSource, "imgSourceCover"),
      ssSourceScroll(host, &scrSource, "ssSourceScroll"),
      pcWorkContainer(host, &spSplitter, "pcWorkContainer"),
      txtWorkHeading(host, &pcWorkContainer, "txtWorkHeading"),
      scrWork(host, &pcWorkContainer, "scrWork"),
      pcWork(host, &scrWork, "pcWork"),
      lblCaption(host, &pcWork, "lblCaption"),
      txtCallout(host, &pcWork, "txtCallout"),
      imgTarget(host, &pcWork, "imgTarget"),
      txtTarget(host, &pcWork, "txtTarget"),
      lblTargetCaption(host, &pcWork, "lblTargetCaption"),
      cmdTargetAnswerValue(host, &pcWork, "cmdTargetAnswerValue"),
      imgTargetCover(host, &pcWork, "imgTargetCover"),
      pcdroptext(host, &pcWork, "pcdroptext"),
      lblDropText(host, &pcdroptext, "lblDropText"),
      ssWorkScroll(host, &scrWork, "ssWorkScroll"),
      pcWorkLoad(host, &form, "pcWorkLoad"),
      picGrab(host, &form, "picGrab"),
      picHand(host, &form, "picHand"),
      pcDrag(host, &form, "pcDrag"),
      imgDrag(host, &pcDrag, "imgDrag"),
      txtDrag(host, &pcDrag, "txtDrag"),
      tmTimer(host, kGlideInterval),
      tmFade(host, kFadeInterval),
      tmFlash(host, kFlashInterval) {
  pcWork.SetScaleMode(ScaleMode::Pixels);
  pcdroptext.SetScaleMode(ScaleMode::Pixels);
  LoadElements(txtSourceHeading, kMostGroups);
  LoadElements(txtCallout, kMostCallouts);
  for (ScrollFrame* frame : {&scrItemStem, &scrSource, &scrWork})
    frame->SetBackColor(color::kWhite);
  for (PictureBox* surface : {&pcSource, &pcWork, &pcWorkContainer}) {
    surface->SetBackColor(color::kWhite);
  }
  for (PictureBox* unseen : {&pcWorkLoad, &picGrab, &picHand, &pcDrag, &pcdroptext}) unseen->Hide();
  scrItemStem.KeepInFrame(ssScrollItemStem);
  scrSource.KeepInFrame(ssSourceScroll);
  scrWork.KeepInFrame(ssWorkScroll);
  for (PictureButton* prompt : {&ssScrollItemStem, &ssSourceScroll, &ssWorkScroll}) {
    MakePrompt(*prompt);
  }
  cmdSourceValue[0].SetHasFace(true);
  cmdTargetAnswerValue[0].SetHasFace(true);
  imgSourceCover[0].SetTakesFocus(true);
  imgTargetCover[0].SetTakesFocus(true);
  txtSource[0].SetBackColor(color::kWhite);
  txtTarget[0].SetBackColor(color::kWhite);
  txtDrag.SetBackColor(color::kWhite);
  pcDrag.SetBackColor(color::kWhite);
  pcdroptext.SetBackColor(kHintColor);
  pcdroptext.Resize(kHintWidthPixels, kHintHeightPixels);
  lblDropText.Move({2, 3, kHintWidthPixels - 4, kHintHeightPixels - 6});
  lblDropText.SetAlignment(static_cast<int>(LabelAlignment::Centred));
  picGrab.SetPicture(host.services().ResourcePicture("picGrab"));
  picHand.SetPicture(host.services().ResourcePicture("picHand"));
  // The stem scrolls as a whole page, not as a surface in its frame.
  txtItemStem.SetScrollsItself(false);
}

bool FormControls::PagesLoaded(int groupCount) const {
  if (!txtItemStem.IsReady() || !txtWorkHeading.IsReady()) return false;
  for (int k = 1; k <= groupCount; ++k) {
    if (!txtSourceHeading[k].IsReady()) return false;
  }
  for (int k = 1; k <= kMostCallouts; ++k) {
    if (!txtCallout[k].tag().empty() && !txtCallout[k].IsReady()) return false;
  }
  return brwTitle.IsReady() && brwLeftEdge.IsReady() && brwRightEdge.IsReady() &&
         brwButtons.IsReady();
}

std::vector<HtmlPane*> FormControls::HtmlPanes() {
  std::vector<HtmlPane*> panes = {&brwTitle,   &brwLeftEdge, &brwRightEdge,
                                  &brwButtons, &txtItemStem, &txtWorkHeading};
  for (int k = 1; k <= kMostGroups; ++k) panes.push_back(&txtSourceHeading[k]);
  for (int k = 1; k <= kMostCallouts; ++k) panes.push_back(&txtCallout[k]);
  return panes;
}

}  // namespace zav

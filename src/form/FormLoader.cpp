#include "form/FormLoader.h"

#include <vector>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "form/ChromePages.h"
#include "host/StaticMessages.h"

namespace zav {
namespace {

constexpr int kMarginPixels = 10;
constexpr int kStemMarginPixels = 5;
// The picture that is written last of those that every item needs stands for all of them.
constexpr const char* kWitnessPicture = "Lt_Lower_Cornerkvt.bmp";

}  // namespace

void FormLoader::Form_Load() {
  form_.layout.Loading = true;
  form_.layout.MarginX = RoundToInt16(form_.TwipsX() * kMarginPixels);
  form_.layout.MarginY = form_.layout.MarginX;
}

void FormLoader::SetParentClass(ItemOwner* owner) {
  form_.Trap("SetParentClass_Set", [&] {
    Services& services = form_.host.services();
    std::string& supportDir = rooms_.pages.SupportDir;
    if (owner == nullptr) {
      form_.SetOwner(nullptr);
      if (!supportDir.empty()) services.DeleteFiles(Concatenate({supportDir, "*kvt.htm"}));
      return;
    }
    form_.SetOwner(owner);
    supportDir = ToText(Require(owner->ExternalSupport()).Call("GetSupportFileDir", std::string()));
    if (!services.FileExists(supportDir + kWitnessPicture)) SaveSupportPictures();
  });
}

void FormLoader::SaveSupportPictures() {
  Services& services = form_.host.services();
  for (const std::string_view tag : kSupportPictures) {
    const std::string path = Concatenate({rooms_.pages.SupportDir, tag, "kvt.bmp"});
    if (services.FileExists(path)) continue;
    const PictureRef picture = services.ResourcePicture(tag);
    if (picture) services.SavePicture(*picture, path);
  }
}

void FormLoader::moParent_RefreshDisplay() {
  if (form_.tables.GroupList.Count() > 0 || form_.controls.imgTarget.UpperBound() > 0) {
    Unload();
    form_.layout.StatePending = true;
  }
  LoadControls();
  form_.layout.Loading = false;
  LoadChromePages();
}

void FormLoader::LoadControls() {
  form_.Trap("LoadControls", [&] {
    const CursorScope keep(form_.Document());
    BuildControls();
  });
}

void FormLoader::BuildControls() {
  ReadDisplayMetrics();
  rooms_.panes.Fill();
  form_.controls.lblDropText.SetFont(form_.Owner().FontReg());
  SetPromptCaptions();
  LoadStem();
  rooms_.sourceArea.LoadSourceArea();
  rooms_.workArea.LoadWorkArea();
}

void FormLoader::ReadDisplayMetrics() {
  DataIO& document = form_.Document();
  ItemTables& tables = form_.tables;
  document.SetFromRoot(true);
  document.FindNode("DragAndDropItem");
  tables.ItemTwipsPerPixelY = ToInt16(document.GetAttribute("TwipsPerPixelY"));
  tables.ItemTwipsPerPixelX = ToInt16(document.GetAttribute("TwipsPerPixelX"));
  document.SetFromRoot(true);
  document.FindNode("SourceArea");
  tables.SourceAreaOnLeft = document.GetAttribute("Location").View() != "Top";
}

void FormLoader::SetPromptCaptions() {
  FormControls& controls = form_.controls;
  const std::string caption = ButtonText(form_.Owner(), "cmdScroll");
  for (PictureButton* prompt :
       {&controls.ssScrollItemStem, &controls.ssWorkScroll, &controls.ssSourceScroll}) {
    prompt->SetCaption(caption);
    prompt->SetFont(form_.Owner().FontReg());
  }
}

void FormLoader::LoadStem() {
  DataIO& document = form_.Document();
  document.SetFromRoot(true);
  document.FindNode("ItemStem");
  document.SetFromRoot(false);
  document.FindNode("Text");
  const std::string text = ToText(document.GetText());
  if (!IsHtml(text)) return;
  rooms_.pages.Load(form_.controls.txtItemStem, text);
  form_.controls.txtItemStem.SetMargin(kStemMarginPixels);
}

void FormLoader::LoadChromePages() {
  FormControls& controls = form_.controls;
  const PageLoading& pages = rooms_.pages;
  pages.Load(controls.brwLeftEdge, createLeftEdge());
  pages.Load(controls.brwTitle, createTitle(HeadingOf("ItemStem")));
  pages.Load(controls.brwRightEdge, createRightEdge());
  pages.Load(controls.brwButtons, ButtonsPage());
  pages.Load(controls.brwBottom, createBottom());
  pages.Load(controls.txtWorkHeading, createWorkHeading(HeadingOf("WorkArea")));
}

std::string FormLoader::HeadingOf(std::string_view section) {
  DataIO& document = form_.Document();
  const CursorScope keep(document);
  document.SetFromRoot(true);
  document.FindNode(section);
  document.SetFromRoot(false);
  return document.FindNode("Heading") ? ToText(document.GetText()) : std::string();
}

std::string FormLoader::ButtonsPage() {
  ItemOwner& owner = form_.Owner();
  std::vector<FooterButton> buttons = {
      {"btnReset", ButtonText(owner, "cmdClearAll")},
      {"btnInstructions", ButtonText(owner, "cmdShowInstruction")}};
  if (form_.options.LorDriver) {
    buttons.push_back({"btnCalculator", ButtonText(owner, "cmdCalculator")});
  }
  if (form_.options.ShowAnswers) buttons.push_back({"btnSetAnswers", "Set Answers"});
  return createButtons(buttons);
}

void FormLoader::Unload() {
  FormControls& controls = form_.controls;
  controls.pcWork.Clear();
  controls.pcSource.Clear();
  controls.lblCaption.UnloadAll();
  controls.txtSource.UnloadAll();
  controls.txtTarget.UnloadAll();
  controls.imgSource.UnloadAll();
  controls.imgSourceCover.UnloadAll();
  controls.cmdSourceValue.UnloadAll();
  controls.imgTarget.UnloadAll();
  controls.imgTargetCover.UnloadAll();
  controls.lblTargetCaption.UnloadAll();
  controls.cmdTargetAnswerValue.UnloadAll();
  for (int k = 1; k <= kMostCallouts; ++k) {
    controls.txtCallout[k].SetTag("");
    controls.txtCallout[k].Hide();
  }
  for (int k = 1; k <= kMostGroups; ++k) controls.txtSourceHeading[k].Hide();
  form_.tables.Clear();
  form_.layout.ItemStemHeightRestored = false;
  rooms_.panes.Empty();
}

}  // namespace zav

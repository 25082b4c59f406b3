#include "hosting/ReferenceHost.h"

#include <algorithm>
#include <utility>

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "automation/Text.h"
#include "document/DataIO.h"
#include "hosting/CaseStudy.h"
#include "hosting/ScoreEngine.h"
#include "platform/headless/Canvas.h"
#include "platform/headless/PictureFile.h"
#include "platform/headless/Rasteriser.h"

namespace zav {
namespace {

constexpr const char* kCalculatorFile = "dcalc.exe";

// Without the NULs that a host's array may end in.
std::string TextOf(const SafeArray& array) {
  std::string text = Utf16LeToUtf8(array.Bytes());
  text.erase(std::min(text.find('\0'), text.size()));
  return text;
}

// Around a window of its own, outside of its form.
void DrawWindowFrame(Canvas& canvas, const PixelRect& form, const std::string& caption) {
  constexpr Argb kFrame = 0xFF184E67U;
  constexpr Argb kCaption = 0xFFFFFFFFU;
  constexpr int kBorder = 2;
  constexpr int kBar = 24;
  constexpr int kInset = 4;
  canvas.OutlineRect({form.left - kBorder, form.top - kBorder, form.width + 2 * kBorder,
                      form.height + 2 * kBorder},
                     kBorder, kFrame);
  const PixelRect bar{form.left - kBorder, form.top - kBar, form.width + 2 * kBorder, kBar};
  canvas.FillRect(bar, kFrame);
  canvas.DrawText(caption, static_cast<float>(form.left + kInset), bar.top + kInset, TextStyle{},
                  kCaption);
}

LogEntry ScoringEntry(const std::string& message) {
  return {error_number::kInvalidArgument, message, "ScoreEngine", "", "CalculateScore", 0};
}

}  // namespace

ReferenceHost::ReferenceHost(ItemFolder folder, HostOptions options)
    : folder_(std::move(folder)),
      options_(std::move(options)),
      widthPixels_(options_.screen.widthPixels),
      heightPixels_(options_.screen.heightPixels),
      supportFolder_(options_.supportFolder),
      platform_(MakeHeadlessPlatform(options_.screen)),
      window_(platform_->CreateHostWindow("Reference host")),
      support_(std::make_shared<SupportObject>(folder_, supportFolder_, calls_)),
      parent_(std::make_shared<ParentObject>(folder_, calls_)) {
  RegisterClasses();
  platform_->RegisterProgram(kCalculatorFile, {"SciCalc", "Calculator"});
  item_ = std::make_shared<clsDragDrop>(platform_->platform(), classes_);
}

ReferenceHost::~ReferenceHost() {
  try {
    Free();
  } catch (...) {  // whoever wants to know frees the item before
  }
}

void ReferenceHost::RegisterClasses() {
  RegisterScoreEngine(classes_,
                      [this](const std::string& message) { parent_->Log(ScoringEntry(message)); });
  RegisterCaseStudy(classes_, platform_->platform());
  if (options_.registerClasses) options_.registerClasses(classes_);
}

ObjectRef ReferenceHost::Wrap(std::string_view name, ObjectRef object) const {
  return options_.wrapHostObject ? options_.wrapHostObject(name, std::move(object)) : object;
}

std::int32_t ReferenceHost::Twips(int pixels) const {
  return pixels * options_.screen.twipsPerPixel;
}

template <typename Call>
auto ReferenceHost::AndLoadPages(Call call) {
  auto result = call();
  platform_->RunPosted();
  return result;
}

bool ReferenceHost::Init() {
  item_->mExtParent = Wrap("parent", parent_);
  item_->SetExternalSupport(Wrap("support", support_));
  item_->SetParentWnd(window_);
  const SafeArray bytes(folder_.ItemBytes());
  isInitialised_ = true;
  return AndLoadPages([&] {
    return item_->InitExternalDisplay(bytes, static_cast<std::int32_t>(bytes.Bytes().size()),
                                      options_.lOptions);
  });
}

bool ReferenceHost::Show() {
  return AndLoadPages(
      [&] { return item_->ShowExternalDisplay(0, 0, Twips(widthPixels_), Twips(heightPixels_)); });
}

bool ReferenceHost::Resize(int widthPixels, int heightPixels) {
  widthPixels_ = widthPixels;
  heightPixels_ = heightPixels;
  return AndLoadPages(
      [&] { return item_->ResizeExternalDisplay(0, 0, Twips(widthPixels), Twips(heightPixels)); });
}

bool ReferenceHost::Hide() {
  return AndLoadPages([&] { return item_->HideExternalDisplay(); });
}

bool ReferenceHost::Free() {
  if (!item_ || !std::exchange(isInitialised_, false)) return true;
  return AndLoadPages([&] { return item_->FreeExternalDisplay(); });
}

DisplayStatus ReferenceHost::Status() {
  return AndLoadPages([&] {
    DisplayStatus status;
    item_->GetExternalDisplayStatus(status.lDispState, status.bViewedAll, status.sStateMsg);
    return status;
  });
}

std::string ReferenceHost::State() {
  const std::int32_t size = item_->GetExternalStateBytes();
  if (size <= 0) return {};
  SafeArray array(std::vector<std::uint8_t>(static_cast<std::size_t>(size)));
  item_->GetExternalStateArray(array, size);
  return TextOf(array);
}

void ReferenceHost::SetState(std::string_view xml) {
  const SafeArray array(Utf8ToUtf16Le(xml));
  item_->SetExternalStateArray(array, static_cast<std::int32_t>(array.Bytes().size()));
  platform_->RunPosted();
}

std::vector<std::string> ReferenceHost::Responses() {
  const std::string state = State();
  if (state.empty()) return {};
  DataIO document;
  document.LoadXml(state);
  if (!document.FindNode("Responses")) return {};
  std::vector<std::string> responses;
  const std::int32_t count = document.ChildCount();
  responses.reserve(static_cast<std::size_t>(count));
  for (std::int32_t i = 0; i < count; ++i) responses.push_back(ToText(document.GetChildText(i)));
  return responses;
}

std::string ReferenceHost::GetRecord(Record record) {
  bool isAscii = false;
  const auto kind = static_cast<std::int32_t>(record);
  const std::int32_t size = item_->GetResponseBytes(kind, isAscii);
  if (size <= 0) return {};
  SafeArray array(std::vector<std::uint8_t>(static_cast<std::size_t>(size)));
  item_->GetResponse(kind, array, size);
  return TextOf(array);
}

ScoreCounts ReferenceHost::Score() {
  ScoreCounts counts;
  item_->ScoreExternalDisplay(counts);
  return counts;
}

ScoreCounts ReferenceHost::Rescore(std::string_view record) {
  const SafeArray array(Utf8ToUtf16Le(record));
  ScoreCounts counts;
  item_->RescoreExternalDisplay(array, static_cast<std::int32_t>(array.Bytes().size()), counts);
  return counts;
}

ScoreInfo ReferenceHost::GetScoreInfo() {
  ScoreInfo info;
  item_->GetScoreInfo(info.nItems, info.fMaxScore, info.fMinScore);
  return info;
}

void ReferenceHost::Wait(std::chrono::milliseconds time) { platform_->Advance(time); }

std::vector<std::uint8_t> ReferenceHost::Picture() {
  Canvas canvas(widthPixels_, heightPixels_);
  const auto pixels = [&](float twips) {
    return static_cast<int>(twips / static_cast<float>(options_.screen.twipsPerPixel));
  };
  for (const Form* form : platform_->Forms()) {
    if (!form->visible() || form->width() <= 0 || form->height() <= 0) continue;
    const auto picture = DecodePicture(FormAsPng(*form), form->name());
    const PixelRect place{pixels(form->left()), pixels(form->top()), picture->WidthPixels(),
                          picture->HeightPixels()};
    canvas.DrawPicture(*picture, place);
    if (!form->caption().empty()) DrawWindowFrame(canvas, place, form->caption());
  }
  return canvas.Png();
}

frmMain& ReferenceHost::form() {
  frmMain* form = item_->form();
  if (form == nullptr) RaiseError(error_number::kObjectNotSet, "The item has no form");
  return *form;
}

}  // namespace zav

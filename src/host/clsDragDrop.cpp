#include "host/clsDragDrop.h"

#include <algorithm>
#include <utility>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "document/ItemText.h"
#include "document/Records.h"
#include "form/frmMain.h"

namespace zav {
namespace {

constexpr const char* kVersion = "1.0.0";

constexpr std::int32_t kOptionReadOnly = 0x1;
constexpr std::int32_t kOptionShowAnswers = 0x10;
constexpr std::int32_t kOptionLorDriver = 0x100;

constexpr float kFontSize = 11;
constexpr std::size_t kLeastPathLength = 5;
constexpr std::int32_t kLeastWidth = 8000;
constexpr std::int32_t kLeastHeight = 4500;

Font ItemFont(bool bold) {
  Font font;
  font.size = kFontSize;
  font.bold = bold;
  return font;
}

// Puts the cursor on the language's node below Root, where there is one.
bool FindLanguage(DataIO& strings, const std::string& language) {
  const std::int32_t count = strings.ChildCount();
  for (std::int32_t i = 0; i < count; ++i) {
    strings.MoveToChild(i);
    if (strings.HasAttribute("Id") && strings.GetAttribute("Id").View() == language) return true;
    strings.MoveToParent();
  }
  return false;
}

std::string FontName(const DataIO& strings) {
  const std::string name = ToText(strings.GetAttribute("Font"));
  return name.empty() ? ToText(strings.GetChildAttribute(0, "Font")) : name;
}

}  // namespace

clsDragDrop::clsDragDrop(Platform platform, const ClassRegistry& classes)
    : controlHost_(platform, [this] { return Keeper(); }),
      classes_(classes),
      fontReg_(std::make_shared<FontObject>(ItemFont(false))),
      fontBld_(std::make_shared<FontObject>(ItemFont(true))),
      moStatus_(std::make_unique<clsStatus>()),
      moErrorDisplay_(std::make_unique<clsErrorDisplay>()) {
  moErrorDisplay_->SetOwner(this);
  SetDocument(NewDocument());
  moStatus_->Owner = this;
  module_.gErrorDisplay = moErrorDisplay_.get();
}

clsDragDrop::~clsDragDrop() {
  moErrorDisplay_->SetOwner(nullptr);
  module_.loadedForms.clear();
}

std::shared_ptr<void> clsDragDrop::Keeper() {
  std::shared_ptr<void> keeper = keeper_.lock();
  return keeper ? keeper : weak_from_this().lock();
}

void clsDragDrop::SetDocument(DataIORef document) {
  moDataIO_ = std::move(document);
  moDataIO_->SetOwner(this);
  moStatus_->DataIO = moDataIO_.get();
  rescored_ = {};
}

DataIORef clsDragDrop::NewDocument() const {
  Services& services = controlHost_.services();
  return std::make_shared<zav::DataIO>(
      [&services](const std::string& path) { return services.ReadFile(path); });
}

std::string clsDragDrop::AppVersion() const { return kVersion; }

zav::DataIO& clsDragDrop::DataIO() {
  if (!moDataIO_) RaiseError(error_number::kObjectNotSet, "Object variable not set");
  return *moDataIO_;
}

frmMain& clsDragDrop::RequireForm() const {
  if (!moForm_) RaiseError(error_number::kObjectNotSet, "Object variable not set");
  return *moForm_;
}

bool clsDragDrop::Member(const char* routine, Procedure procedure) {
  bool done = false;
  controlHost_.RunHostCall([&] {
    Trap(*moErrorDisplay_, routine, [&] {
      procedure();
      done = true;
    });
  });
  return done;
}

bool clsDragDrop::PutsOff(std::string_view member, std::initializer_list<Variant> arguments,
                          InvokeKind kind) {
  if (!controlHost_.busy()) return false;
  controlHost_.PutOff([this, member, values = std::vector<Variant>(arguments), kind]() mutable {
    Invoke(member, values, kind);
  });
  return true;
}

void clsDragDrop::SetExternalSupport(const ObjectRef& support) {
  if (PutsOff("DisplayInt_ExternalSupport", {support}, InvokeKind::Put)) return;
  Member("DisplayInt_ExternalSupport_Set", [&] {
    if (!support) {
      RaiseError(error_number::kNoExternalSupport, "External Support is nothing", "Overview");
    }
    moExternalSupport_ = support;
    msStaticPath_ = ToText(support->Call("GetLocalizePath", std::string("KVStatic.xml")));
  });
}

WindowHandle clsDragDrop::SetParentWnd(WindowHandle hParentWnd) {
  if (PutsOff("DisplayInt_SetParentWnd", {hParentWnd})) return hParentWnd;
  mlParenthWnd = hParentWnd;
  return mlParenthWnd;
}

WindowHandle clsDragDrop::hwnd() {
  WindowHandle last = 0;
  for (const Form* form : module_.loadedForms) {
    const bool counts = form->name() != "frmViewInfo" && form->name() != "frmConnections";
    if (form->visible() && counts) last = form->hwnd();
  }
  return last;
}

bool clsDragDrop::InitExternalDisplay(const SafeArray& arInit, std::int32_t lInitBytes,
                                      std::int32_t lOptions) {
  if (PutsOff("DisplayInt_InitExternalDisplay", {arInit, lInitBytes, lOptions})) return true;
  return Member("InitExternalDisplay", [&] { Initialise(arInit, lOptions); });
}

// The item that was there goes when the next one is read: one that is broken leaves it as it was.
void clsDragDrop::Initialise(const SafeArray& arInit, std::int32_t lOptions) {
  static_cast<void>(DataIO());
  const DataIORef document = NewDocument();
  const std::string language = LoadItem(*document, arInit);
  MergeStaticStrings(*document, language);
  ReleaseForm();
  Trap(*moErrorDisplay_, "InitExternalDisplay", [&] { ReleaseCaseStudy(); });
  SetDocument(document);
  mlOptions_ = lOptions;
  CreateForm();
  EnsureStateSection(DataIO());
  AttachForm();
  Raise(item_event::kRefreshDisplay);
}

std::string clsDragDrop::LoadItem(zav::DataIO& document, const SafeArray& arInit) {
  document.LoadText(ItemText(arInit.Bytes()));
  document.SetFromRoot(true);
  if (!document.FindNode("DragAndDropItem")) {
    RaiseError(error_number::kComponent, "The item has no element DragAndDropItem",
               "InitExternalDisplay");
  }
  return ToText(document.GetAttribute("Language"));
}

void clsDragDrop::MergeStaticStrings(zav::DataIO& document, const std::string& language) {
  const std::string_view path = TrimBlanks(msStaticPath_);
  if (CharacterCount(path) < kLeastPathLength || path == "0") {
    RaiseError(error_number::kComponent, "Missing Static information", "InitExternalDisplay");
  }
  const DataIORef strings = NewDocument();
  strings->LoadXml(msStaticPath_);
  strings->FindNode("Root");
  const bool hasLanguages = strings->ChildCount() > 0;
  if (hasLanguages) FindLanguage(*strings, language);
  const std::string fontName = hasLanguages ? FontName(*strings) : fontReg_->font.name;
  strings->SetFromRoot(false);
  document.SetFromRoot(true);
  document.InsertXml("DragAndDropItem", strings->GetNodeXml("Static"));
  const bool hasTitle = strings->FindNode("ApplicationTitle");
  module_.gApplicationTitle = hasTitle ? ToText(strings->GetText()) : std::string();
  fontReg_->font.name = fontName;
  fontBld_->font.name = fontName;
}

void clsDragDrop::CreateForm() {
  moForm_ = std::make_unique<frmMain>(controlHost_, *moErrorDisplay_);
  module_.loadedForms.push_back(moForm_.get());
  moForm_->SetReadOnly((mlOptions_ & kOptionReadOnly) != 0);
  moForm_->SetShowAnswers((mlOptions_ & kOptionShowAnswers) != 0);
  if ((mlOptions_ & kOptionLorDriver) != 0) moForm_->SetLorDriver(true);
  moForm_->SetParentClass(this, &events_);
}

void clsDragDrop::AttachForm() {
  zav::DataIO& document = DataIO();
  document.MoveToTop();
  const std::string caseCode = ToText(document.GetAttribute("CaseCode"));
  if (caseCode == "NONE") {
    AttachForm(mlParenthWnd);
    return;
  }
  std::vector<std::uint8_t> bytes = ReadCaseFile(caseCode);
  if (bytes.empty()) {
    ShowMessage(*this,
                Concatenate({"Can't find case study for this item.  Looking for ", caseCode}),
                message_style::kNotice);
    AttachForm(mlParenthWnd);
    return;
  }
  CreateCaseStudy(std::move(bytes));
  moForm_->SetCaseStudy(mbCaseStudy_);
  AttachForm(ToInt32(Require(moCaseStudy_).Call("getCaseParent")));
}

void clsDragDrop::AttachForm(WindowHandle parent) {
  moForm_->SetPreviousParent(controlHost_.services().SetParent(moForm_->hwnd(), parent));
}

std::string clsDragDrop::GetStaticStringsXml() {
  std::string path;
  Member("GetStaticStringsXml", [&] { path = msStaticPath_; });
  return path;
}

std::int32_t clsDragDrop::ReadFileBytes(const std::string& path, std::vector<std::uint8_t>& bytes) {
  if (path.empty()) return 0;
  bytes = controlHost_.services().ReadFile(path);
  return static_cast<std::int32_t>(bytes.size());
}

bool clsDragDrop::WriteFileBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  controlHost_.services().WriteFile(path, bytes);
  return true;
}

// A file that is missing or that cannot be read is one without bytes.
std::vector<std::uint8_t> clsDragDrop::ReadCaseFile(const std::string& caseCode) {
  const std::string path = GetGraphicsPath(moExternalSupport_, Concatenate({caseCode, ".xml"}));
  std::vector<std::uint8_t> bytes;
  try {
    ReadFileBytes(path, bytes);
  } catch (const AutomationError&) {
    return {};
  }
  return bytes;
}

void clsDragDrop::CreateCaseStudy(std::vector<std::uint8_t> bytes) {
  moCaseStudy_ = classes_.Create(kCaseStudyProgId);
  mbCaseStudy_ = true;
  const auto count = static_cast<std::int32_t>(bytes.size());
  Require(moCaseStudy_).Call("DisplayInt_SetParentWnd", mlParenthWnd);
  moCaseStudy_->Call("InitCaseStudy", SafeArray(std::move(bytes)), count, mlOptions_,
                     moExternalSupport_, std::string("Question"));
}

bool clsDragDrop::ShowExternalDisplay(std::int32_t lLeft, std::int32_t lTop, std::int32_t lWidth,
                                      std::int32_t lHeight) {
  if (PutsOff("DisplayInt_ShowExternalDisplay", {lLeft, lTop, lWidth, lHeight})) return true;
  return Member("DisplayInt_ShowExternalDisplay", [&] {
    mlLeft_ = lLeft;
    mlTop_ = lTop;
    mlWidth_ = lWidth;
    mlHeight_ = lHeight;
    EnsureStateSection(DataIO());
    if (mbCaseStudy_) {
      Require(moCaseStudy_).Call("DisplayInt_ShowExternalDisplay", lLeft, lTop, lWidth, lHeight);
      AskQuestionSize();
    }
    RaiseResizeDisplay();
  });
}

bool clsDragDrop::ResizeExternalDisplay(std::int32_t lLeft, std::int32_t lTop, std::int32_t lWidth,
                                        std::int32_t lHeight) {
  if (PutsOff("DisplayInt_ResizeExternalDisplay", {lLeft, lTop, lWidth, lHeight})) return true;
  return Member("DisplayInt_ResizeExternalDisplay", [&] {
    mlLeft_ = lLeft;
    mlTop_ = lTop;
    mlWidth_ = std::max(lWidth, kLeastWidth);
    mlHeight_ = std::max(lHeight, kLeastHeight);
    if (mbCaseStudy_) {
      Require(moCaseStudy_)
          .Call("DisplayInt_ResizeExternalDisplay", mlLeft_, mlTop_, mlWidth_, mlHeight_);
      AskQuestionSize();
    }
    RaiseResizeDisplay();
  });
}

// The case study keeps a part of the rectangle for itself.
void clsDragDrop::AskQuestionSize() {
  Variant rect[] = {mlLeft_, mlTop_, mlWidth_, mlHeight_};
  Require(moCaseStudy_).Invoke("QuestionSize", rect);
  mlLeft_ = ToInt32(rect[0]);
  mlTop_ = ToInt32(rect[1]);
  mlWidth_ = ToInt32(rect[2]);
  mlHeight_ = ToInt32(rect[3]);
}

void clsDragDrop::RaiseResizeDisplay() {
  static_cast<void>(RequireForm());
  Variant rect[] = {mlLeft_, mlTop_, mlWidth_, mlHeight_};
  events_.Raise(item_event::kResizeDisplay, rect);
}

void clsDragDrop::Raise(std::int32_t event) { events_.Raise(event, {}); }

bool clsDragDrop::Redisplay(std::int32_t lLeft, std::int32_t lTop, std::int32_t lWidth,
                            std::int32_t lHeight) {
  if (controlHost_.busy()) {
    controlHost_.PutOff([=, this] { Redisplay(lLeft, lTop, lWidth, lHeight); });
    return true;
  }
  controlHost_.RunHostCall([&] {
    Raise(item_event::kRefreshDisplay);
    Variant rect[] = {lLeft, lTop, lWidth, lHeight};
    events_.Raise(item_event::kResizeDisplay, rect);
  });
  return true;
}

bool clsDragDrop::HideExternalDisplay() {
  if (PutsOff("DisplayInt_HideExternalDisplay")) return true;
  return Member("DisplayInt_HideExternalDisplay", [&] {
    if (mbCaseStudy_) Require(moCaseStudy_).Call("DisplayInt_HideExternalDisplay");
    RequireForm().EndGesture();
    RequireForm().Hide();
  });
}

// Everything is let go, also when the host fails in the middle.
bool clsDragDrop::FreeExternalDisplay() {
  if (PutsOff("DisplayInt_FreeExternalDisplay")) return true;
  controlHost_.RunHostCall([&] {
    RunBoth([&] { RunBoth([&] { ReleaseForm(); }, [&] { ReleaseCaseStudy(); }); },
            [&] { ReleaseItem(); });
  });
  return true;
}

void clsDragDrop::ReleaseForm() {
  const std::unique_ptr<frmMain> form = std::move(moForm_);
  if (!form) return;
  module_.loadedForms.clear();
  RunBoth(
      [&] {
        form->EndGesture();
        form->Hide();
        controlHost_.services().SetParent(form->hwnd(), form->PreviousParent());
      },
      [&] {
        RunBoth([&] { form->SetParentClass(nullptr, nullptr); }, [&] { form->Form_Unload(); });
      });
}

void clsDragDrop::ReleaseCaseStudy() {
  const ObjectRef caseStudy = std::exchange(moCaseStudy_, nullptr);
  if (std::exchange(mbCaseStudy_, false)) {
    Require(caseStudy).Call("DisplayInt_FreeExternalDisplay");
  }
}

void clsDragDrop::ReleaseItem() {
  if (moDataIO_) moDataIO_->Clear();
  moScoreEngine_.reset();
  moStatus_->Owner = nullptr;
  moStatus_->DataIO = nullptr;
  moDataIO_.reset();
  moExternalSupport_.reset();
  moErrorDisplay_->SetOwner(nullptr);
}

void clsDragDrop::GetExternalDisplayStatus(std::int32_t& lDispState, bool& bViewedAll,
                                           std::string& sStateMsg) {
  controlHost_.RunHostCall([&] {
    if (moCaseStudy_) {
      Variant status[] = {lDispState, bViewedAll, sStateMsg};
      moCaseStudy_->Invoke("DisplayInt_GetExternalDisplayStatus", status);
      sStateMsg = ToText(status[2]);
    }
    bViewedAll = RequireForm().ViewedAll();
    lDispState = ToInt32(moStatus_->AnswerStatus());
  });
}

}  // namespace zav

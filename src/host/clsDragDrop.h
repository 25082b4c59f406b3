// The component: an item that a host loads, shows, asks and scores.
//
// Hosts drive it through DisplayInt, or late-bound by name (Invoke): every member of DisplayInt
// goes by "DisplayInt_" and its name there. It stands on a platform and finds the scoring engine
// and the case study in a class registry; both outlive it. Everything that one item needs lives in
// its own object, so that several items in one process do not disturb each other.
//
// One thread. Host objects may fail at any call; whatever they raise is reported, or reaches the
// host's own call where reporting is what failed.
//
// A host may also call in the middle of a call that is made to it, from LogError say. Members that
// only ask answer at once. Those that set or change something are put off until the outermost call
// ends, as if the host had asked right afterwards, and meanwhile count as done: a Boolean one is
// True. The two rescoring members, which change the item and answer, raise 0x8004000A, and so do
// those that score while a scoring engine is at work. The last reference may be let go at any time,
// where the component is held by a std::shared_ptr.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "automation/ClassRegistry.h"
#include "automation/EventSource.h"
#include "automation/MemberTable.h"
#include "automation/Object.h"
#include "controls/ControlHost.h"
#include "document/DataIO.h"
#include "document/clsStatus.h"
#include "host/DisplayInt.h"
#include "host/FontObject.h"
#include "host/ItemOwner.h"
#include "host/ScoringEngine.h"
#include "host/clsErrorDisplay.h"
#include "platform/Presenter.h"

namespace zav {

class frmMain;

// The events of the component, with their dispatch identifiers. ResizeDisplay passes left, top,
// width and height by reference, the others nothing.
namespace item_event {
inline constexpr std::int32_t kRefreshDisplay = 1;
inline constexpr std::int32_t kResizeDisplay = 2;
inline constexpr std::int32_t kSetState = 3;
inline constexpr std::int32_t kLoadState = 4;
}  // namespace item_event

inline constexpr std::string_view kCaseStudyProgId = "ZavCaseStudy.clsCaseStudy";

class clsDragDrop : public Object,
                    public DisplayInt,
                    public std::enable_shared_from_this<clsDragDrop>,
                    private ItemOwner {
 public:
  clsDragDrop(Platform platform, const ClassRegistry& classes);
  ~clsDragDrop() override;

  // Fields that the host sets and reads.
  ObjectRef mExtParent;  // offers LogError, ShowMessage and GetGraphicsPath
  WindowHandle mlParenthWnd = 0;
  bool mbclosing = false;
  [[nodiscard]] ObjectRef mFontReg() const { return fontReg_; }
  [[nodiscard]] ObjectRef mFontBld() const { return fontBld_; }

  [[nodiscard]] std::string AppVersion() const;
  ObjectRef ExternalSupport() override { return moExternalSupport_; }
  [[nodiscard]] bool SelfNavigation() const { return false; }

  // An answer key as a host key record. Reports under "ConvertKey", and is then empty.
  std::string ConvertKey(const std::string& sKey);

  WindowHandle hwnd() override;
  void SetExternalSupport(const ObjectRef& support) override;
  void GetExternalDisplayStatus(std::int32_t& lDispState, bool& bViewedAll,
                                std::string& sStateMsg) override;
  std::int32_t GetExternalStateBytes() override;
  void GetExternalStateArray(SafeArray& arState, std::int32_t lBytes) override;
  bool GetResponse(std::int32_t lRespType, SafeArray& arResponse, std::int32_t lBuffer) override;
  std::int32_t GetResponseBytes(std::int32_t lRespType, bool& bIsASCII) override;
  bool GetScoreInfo(std::int16_t& nItems, float& fMaxScore, float& fMinScore) override;
  bool HideExternalDisplay() override;
  bool FreeExternalDisplay() override;
  bool InitExternalDisplay(const SafeArray& arInit, std::int32_t lInitBytes,
                           std::int32_t lOptions) override;
  bool RescoreExternalDisplay(const SafeArray& arResponse, std::int32_t lRespBytes,
                              ScoreCounts& counts) override;
  bool RescoreExternalDisplayQuick(const SafeArray& arResponse, std::int32_t lRespBytes,
                                   ScoreCounts& counts, SafeArray& XMLBA,
                                   std::int32_t& lArrayLen) override;
  bool ResizeExternalDisplay(std::int32_t lLeft, std::int32_t lTop, std::int32_t lWidth,
                             std::int32_t lHeight) override;
  bool ScoreExternalDisplay(ScoreCounts& counts) override;
  void SetExternalStateArray(const SafeArray& arState, std::int32_t lBytes) override;
  WindowHandle SetParentWnd(WindowHandle hParentWnd) override;
  bool ShowExternalDisplay(std::int32_t lLeft, std::int32_t lTop, std::int32_t lWidth,
                           std::int32_t lHeight) override;

  // The members of the default interface, in its order.
  static std::span<const MemberTable<clsDragDrop>::Member> Members();
  Variant Invoke(std::string_view name, std::span<Variant> arguments,
                 InvokeKind kind = InvokeKind::Call) override;

  [[nodiscard]] EventSource& Events() { return events_; }

  // Whether a call of the host's, or an event, is on the stack.
  [[nodiscard]] bool busy() const { return controlHost_.busy(); }
  // What has to stay alive for as long as the component has something on the stack; by itself it
  // keeps itself.
  void KeepWith(std::weak_ptr<void> keeper) { keeper_ = std::move(keeper); }

  // Builds the item anew and shows it in that rectangle.
  bool Redisplay(std::int32_t lLeft, std::int32_t lTop, std::int32_t lWidth, std::int32_t lHeight);

  // For whoever stands beside the form in this process; hosts do not have these by name.
  //
  // The path of the static strings file, as the support object gave it. Reports under
  // "GetStaticStringsXml".
  std::string GetStaticStringsXml();
  [[nodiscard]] clsErrorDisplay& ErrorDisplay() { return *moErrorDisplay_; }
  // The engine that scores; until one is stored, that of the class registry.
  [[nodiscard]] zav::ScoringEngine& ScoreEngine() { return Engine(); }
  void SetScoreEngine(ScoringEngineRef engine) { moScoreEngine_ = std::move(engine); }
  // A whole file; the count of its bytes, 0 without a path. Raises 53 and 75 as ReadFile does.
  std::int32_t ReadFileBytes(const std::string& path, std::vector<std::uint8_t>& bytes);
  // Replaces the file by the bytes. Raises 75.
  bool WriteFileBytes(const std::string& path, const std::vector<std::uint8_t>& bytes);

  // The form, from initialisation until the item is freed; null otherwise. For platforms, tests
  // and pictures of it.
  [[nodiscard]] frmMain* form() { return moForm_.get(); }
  // The item document. Raises 91 once the item was freed.
  zav::DataIO& DataIO() override;

 private:
  ObjectRef ExtParent() override { return mExtParent; }
  WindowHandle ParentWnd() override { return mlParenthWnd; }
  const Font& FontReg() override { return fontReg_->font; }
  ModuleState& Module() override { return module_; }

  // A host's call that reports its errors under that name; whether it ran to its end.
  bool Member(const char* routine, Procedure procedure);
  // Puts off a member, by its name, that was called in the middle of another call; false where it
  // was not.
  bool PutsOff(std::string_view member, std::initializer_list<Variant> arguments = {},
               InvokeKind kind = InvokeKind::Call);
  std::shared_ptr<void> Keeper();

  [[nodiscard]] DataIORef NewDocument() const;
  [[nodiscard]] frmMain& RequireForm() const;
  void Initialise(const SafeArray& arInit, std::int32_t lOptions);
  static std::string LoadItem(zav::DataIO& document, const SafeArray& arInit);
  void MergeStaticStrings(zav::DataIO& document, const std::string& language);
  void SetDocument(DataIORef document);
  void CreateForm();
  void ReleaseForm();
  void ReleaseCaseStudy();
  void ReleaseItem();
  void AttachForm();
  void AttachForm(WindowHandle parent);
  void CreateCaseStudy(std::vector<std::uint8_t> bytes);
  std::vector<std::uint8_t> ReadCaseFile(const std::string& caseCode);
  void AskQuestionSize();
  void RaiseResizeDisplay();
  void Raise(std::int32_t event);

  ScoringEngine& Engine();
  DataIORef EngineDocument();
  std::string StateXml();
  void ReplaceState(const std::string& stateXml);
  std::string RecordText(std::int32_t lRespType);
  std::string FormatRecord(const std::string& xml, bool isKey);
  enum class ScoredDocument { StateWithKey, WholeItem };
  void ScoreState(ScoreCounts& counts, ScoredDocument scored);
  void Rescore(const std::string& stateXml, ScoreCounts& counts);
  void GiveWholeItem(const DataIORef& engineDocument);

  std::weak_ptr<void> keeper_;
  ControlHost controlHost_;
  const ClassRegistry& classes_;
  EventSource events_;
  ModuleState module_;
  std::shared_ptr<FontObject> fontReg_;
  std::shared_ptr<FontObject> fontBld_;
  ObjectRef moExternalSupport_;
  DataIORef moDataIO_;
  std::shared_ptr<ScoringEngine> moScoreEngine_;
  // What the last rescoring left: the engine's document with the whole item in it.
  struct {
    std::weak_ptr<zav::DataIO> engineDocument;
    std::uint64_t engineRevision = 0;
    std::uint64_t itemRevision = 0;
  } rescored_;
  std::unique_ptr<clsStatus> moStatus_;
  std::unique_ptr<clsErrorDisplay> moErrorDisplay_;
  std::string msStaticPath_;
  std::int32_t mlLeft_ = 0;  // the last display rectangle
  std::int32_t mlTop_ = 0;
  std::int32_t mlWidth_ = 0;
  std::int32_t mlHeight_ = 0;
  std::int32_t mlOptions_ = 0;
  std::unique_ptr<frmMain> moForm_;
  ObjectRef moCaseStudy_;
  bool mbCaseStudy_ = false;
  bool isScoring_ = false;
};

}  // namespace zav

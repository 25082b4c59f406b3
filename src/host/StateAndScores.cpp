// The members of clsDragDrop that exchange state, records and scores with the host.
#include <algorithm>
#include <utility>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "document/Records.h"
#include "host/LateBoundScoringEngine.h"
#include "host/clsDragDrop.h"

namespace zav {
namespace {

constexpr std::int32_t kKeyRecord = 0;
constexpr std::int32_t kResponseRecord = 1;

// Hosts are told room for this text more than a snapshot takes.
constexpr std::string_view kStateSeparator = "|case|";

// A text of up to this many characters is no state.
constexpr std::size_t kBlankLength = 2;

// Members that answer cannot be put off.
[[noreturn]] void RaiseBusy() {
  RaiseError(error_number::kComponent, "The item is in the middle of a call to its host");
}

// Until its end the engine is at work, which may be the host's own.
class Scoring {
 public:
  explicit Scoring(bool& isScoring) : isScoring_(isScoring = true) {}
  Scoring(const Scoring&) = delete;
  Scoring& operator=(const Scoring&) = delete;
  ~Scoring() { isScoring_ = false; }

 private:
  bool& isScoring_;
};

std::int32_t ByteLength(std::string_view text) {
  return RoundToInt32(2.0 * static_cast<double>(Utf16Length(text)));
}

// Copies no more than there is, and no more than the host's array holds; returns how much.
std::size_t FillArray(SafeArray& array, std::string_view text, std::int32_t most) {
  array.RequireFillable();
  const std::vector<std::uint8_t> bytes = Utf8ToUtf16Le(text);
  const std::size_t count =
      std::min({bytes.size(), array.Bytes().size(), static_cast<std::size_t>(std::max(most, 0))});
  std::copy_n(bytes.begin(), count, array.Bytes().begin());
  return count;
}

// A host's buffer may be longer than the text in it.
std::string TextOfArray(const SafeArray& array) {
  std::string text = Utf16LeToUtf8(array.Bytes());
  const std::size_t end = text.find_last_not_of('\0');
  text.resize(end == std::string::npos ? 0 : end + 1);
  return text;
}

}  // namespace

std::string clsDragDrop::StateXml() {
  const CursorScope keep(DataIO());
  DataIO().SetFromRoot(true);
  return DataIO().GetNodeXml("State");
}

void clsDragDrop::ReplaceState(const std::string& stateXml) {
  zav::DataIO& document = DataIO();
  document.SetFromRoot(true);
  document.RemoveNode("State");
  const std::string_view trimmed = TrimBlanks(stateXml);
  if (CharacterCount(trimmed) > kBlankLength) document.InsertXml("DragAndDropItem", trimmed);
}

std::int32_t clsDragDrop::GetExternalStateBytes() {
  std::int32_t size = 0;
  Member("GetExternalStateBytes", [&] {
    Raise(item_event::kSetState);
    size = ByteLength(kStateSeparator) + ByteLength(StateXml());
  });
  return size;
}

void clsDragDrop::GetExternalStateArray(SafeArray& arState, std::int32_t lBytes) {
  Member("GetExternalStateArray", [&] {
    const std::size_t filled = FillArray(arState, StateXml(), lBytes);
    std::vector<std::uint8_t>& bytes = arState.Bytes();
    const std::size_t wanted =
        std::min(bytes.size(), static_cast<std::size_t>(std::max(lBytes, 0)));
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(filled),
              bytes.begin() + static_cast<std::ptrdiff_t>(wanted), std::uint8_t{0});
  });
}

void clsDragDrop::SetExternalStateArray(const SafeArray& arState, std::int32_t lBytes) {
  if (PutsOff("DisplayInt_SetExternalStateArray", {arState, lBytes})) return;
  Member("SetExternalStateArray", [&] {
    ReplaceState(TextOfArray(arState));
    Raise(item_event::kLoadState);
  });
}

std::string clsDragDrop::ConvertKey(const std::string& sKey) {
  std::string record;
  Member("ConvertKey", [&] { record = zav::ConvertKey(sKey); });
  return record;
}

std::string clsDragDrop::FormatRecord(const std::string& xml, bool isKey) {
  zav::DataIO& document = DataIO();
  document.MoveToTop();
  const std::string responseType = ToText(document.GetAttribute("ResponseType"));
  if (responseType == "S") return CommaForm(xml);
  if (responseType == "N") return xml;
  if (isKey) return ConvertKey(xml);
  std::string record;
  Trap(*moErrorDisplay_, "ConvertResponse", [&] { record = ConvertResponse(xml); });
  return record;
}

std::string clsDragDrop::RecordText(std::int32_t lRespType) {
  zav::DataIO& document = DataIO();
  const CursorScope keep(document);
  document.SetFromRoot(true);
  if (lRespType == kKeyRecord) return FormatRecord(document.GetNodeXml("Answers"), true);
  if (lRespType != kResponseRecord || !document.FindNode("State")) return {};
  return FormatRecord(document.GetNodeXml("Responses"), false);
}

std::int32_t clsDragDrop::GetResponseBytes(std::int32_t lRespType, bool& bIsASCII) {
  std::int32_t size = 0;
  Member("GetResponseBytes", [&] {
    bIsASCII = true;
    size = ByteLength(RecordText(lRespType));
  });
  return size;
}

bool clsDragDrop::GetResponse(std::int32_t lRespType, SafeArray& arResponse, std::int32_t lBuffer) {
  return Member("GetResponse", [&] {
    const std::string record = RecordText(lRespType);
    if (!record.empty()) FillArray(arResponse, record, lBuffer);
  });
}

ScoringEngine& clsDragDrop::Engine() {
  if (!moScoreEngine_) moScoreEngine_ = AsScoringEngine(classes_.Create(kScoreEngineProgId));
  return *moScoreEngine_;
}

DataIORef clsDragDrop::EngineDocument() {
  DataIORef document = Engine().Document();
  if (!document) {
    document = NewDocument();
    Engine().SetDocument(document);
  }
  return document;
}

bool clsDragDrop::GetScoreInfo(std::int16_t& nItems, float& fMaxScore, float& fMinScore) {
  if (isScoring_) RaiseBusy();
  controlHost_.RunHostCall([&] {
    const Scoring scoring(isScoring_);
    nItems = 1;
    const CursorScope keep(DataIO());
    DataIO().SetFromRoot(true);
    EngineDocument()->LoadText(DataIO().GetNodeXml("Answers"));
    fMaxScore = ToSingle(Engine().MaxScore());
    fMinScore = ToSingle(Engine().MinScore());
  });
  return true;
}

bool clsDragDrop::ScoreExternalDisplay(ScoreCounts& counts) {
  if (isScoring_) RaiseBusy();
  return Member("DisplayInt_ScoreExternalDisplay", [&] {
    counts = {};
    ScoreState(counts, ScoredDocument::StateWithKey);
  });
}

void clsDragDrop::ScoreState(ScoreCounts& counts, ScoredDocument scored) {
  const Scoring scoring(isScoring_);
  zav::DataIO& document = DataIO();
  const CursorScope keep(document);
  document.SetFromRoot(true);
  if (!document.FindNode("State")) return;
  document.SetFromRoot(false);
  if (!document.FindNode("Responses")) return;
  if (document.ChildCount() == 0) {
    counts.nNotAttempted = 1;
    counts.nNotScored = 1;
    return;
  }
  document.SetFromRoot(true);
  const DataIORef engineDocument = EngineDocument();
  if (scored == ScoredDocument::WholeItem) {
    GiveWholeItem(engineDocument);
  } else {
    engineDocument->LoadXml(document.GetNodeXml("State"));
    engineDocument->InsertXml("State", document.GetNodeXml("Answers"));
  }
  counts.fRawScore = ToSingle(Engine().CalculateScore());
  (counts.fRawScore > 0 ? counts.nCorrect : counts.nIncorrect) = 1;
}

bool clsDragDrop::RescoreExternalDisplay(const SafeArray& arResponse, std::int32_t lRespBytes,
                                         ScoreCounts& counts) {
  if (controlHost_.busy()) RaiseBusy();
  bool isRead = true;
  const bool done = Member("DisplayInt_RescoreExternalDisplay", [&] {
    if (lRespBytes < 1) {
      counts = {};
      return;
    }
    const std::string text = TextOfArray(arResponse);
    std::string stateXml;
    isRead = false;
    Trap(*moErrorDisplay_, "ConvertResponse", [&] {
      stateXml = StateFromResponseText(text);
      isRead = true;
    });
    if (isRead) Rescore(stateXml, counts);
  });
  return done && isRead;
}

bool clsDragDrop::RescoreExternalDisplayQuick(const SafeArray& arResponse, std::int32_t lRespBytes,
                                              ScoreCounts& counts, SafeArray& /*XMLBA*/,
                                              std::int32_t& /*lArrayLen*/) {
  if (controlHost_.busy()) RaiseBusy();
  return Member("DisplayInt_RescoreExternalDisplayQuick", [&] {
    if (lRespBytes < 1) {
      counts = {};
      return;
    }
    Rescore(Concatenate({"<State>", TextOfArray(arResponse), "</State>"}), counts);
  });
}

void clsDragDrop::Rescore(const std::string& stateXml, ScoreCounts& counts) {
  const bool itemIsKnown = DataIO().Revision() == rescored_.itemRevision;
  ReplaceState(stateXml);
  if (!itemIsKnown) rescored_ = {};
  counts = {};
  ScoreState(counts, ScoredDocument::WholeItem);
}

// Where the engine's document still is what the last rescoring left, and the item was that but for
// its state, the state alone has to be replaced there too.
void clsDragDrop::GiveWholeItem(const DataIORef& engineDocument) {
  const bool isKnown = rescored_.engineDocument.lock() == engineDocument &&
                       rescored_.engineRevision == engineDocument->Revision();
  if (isKnown) {
    const CursorScope keep(*engineDocument);
    engineDocument->SetFromRoot(true);
    engineDocument->RemoveNode("State");
    engineDocument->InsertCopy("DragAndDropItem", DataIO(), "State");
  } else {
    engineDocument->LoadXml(DataIO().GetXml());
  }
  engineDocument->MoveToTop();
  rescored_ = {engineDocument, engineDocument->Revision(), DataIO().Revision()};
}

}  // namespace zav

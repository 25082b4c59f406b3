// The default interface of clsDragDrop: every member by its name, in order.
#include "automation/Conversions.h"
#include "host/clsDragDrop.h"

namespace zav {
namespace {

using Table = MemberTable<clsDragDrop>;
using Arguments = std::span<Variant>;

SafeArray& ArrayArgument(Variant& argument) {
  SafeArray* array = std::get_if<SafeArray>(&argument);
  if (array == nullptr) RaiseError(error_number::kTypeMismatch, "Type mismatch");
  return *array;
}

// A host may hand over an empty variable where an array is only read: an array without elements.
const SafeArray& InputArray(const Variant& argument) {
  static const SafeArray kNone;
  if (std::holds_alternative<std::monostate>(argument)) return kNone;
  const SafeArray* array = std::get_if<SafeArray>(&argument);
  if (array == nullptr) RaiseError(error_number::kTypeMismatch, "Type mismatch");
  return *array;
}

// Counts and raw score stand in five arguments, one after the other.
ScoreCounts ReadCounts(Arguments arguments) {
  return {ToInt16(arguments[0]), ToInt16(arguments[1]), ToInt16(arguments[2]),
          ToInt16(arguments[3]), ToSingle(arguments[4])};
}

void WriteCounts(const ScoreCounts& counts, Arguments arguments) {
  arguments[0] = counts.nCorrect;
  arguments[1] = counts.nIncorrect;
  arguments[2] = counts.nNotAttempted;
  arguments[3] = counts.nNotScored;
  arguments[4] = counts.fRawScore;
}

Variant Status(clsDragDrop& item, Arguments a) {
  std::int32_t state = ToInt32(a[0]);
  bool viewedAll = ToBoolean(a[1]);
  std::string message = ToText(a[2]);
  item.GetExternalDisplayStatus(state, viewedAll, message);
  a[0] = state;
  a[1] = viewedAll;
  a[2] = message;
  return {};
}

Variant ResponseBytes(clsDragDrop& item, Arguments a) {
  bool isAscii = ToBoolean(a[1]);
  const std::int32_t size = item.GetResponseBytes(ToInt32(a[0]), isAscii);
  a[1] = isAscii;
  return size;
}

Variant ScoreInfo(clsDragDrop& item, Arguments a) {
  std::int16_t items = ToInt16(a[0]);
  float most = ToSingle(a[1]);
  float least = ToSingle(a[2]);
  const bool done = item.GetScoreInfo(items, most, least);
  a[0] = items;
  a[1] = most;
  a[2] = least;
  return done;
}

Variant Rescore(clsDragDrop& item, Arguments a) {
  ScoreCounts counts = ReadCounts(a.subspan(2));
  const bool done = item.RescoreExternalDisplay(InputArray(a[0]), ToInt32(a[1]), counts);
  WriteCounts(counts, a.subspan(2));
  return done;
}

Variant RescoreQuick(clsDragDrop& item, Arguments a) {
  ScoreCounts counts = ReadCounts(a.subspan(2));
  SafeArray unusedArray;
  std::int32_t unusedLength = 0;
  const bool done = item.RescoreExternalDisplayQuick(InputArray(a[0]), ToInt32(a[1]), counts,
                                                     unusedArray, unusedLength);
  WriteCounts(counts, a.subspan(2));
  return done;
}

Variant Score(clsDragDrop& item, Arguments a) {
  ScoreCounts counts = ReadCounts(a);
  const bool done = item.ScoreExternalDisplay(counts);
  WriteCounts(counts, a);
  return done;
}

template <auto kMember>
Variant Rectangle(clsDragDrop& item, Arguments a) {
  return (item.*kMember)(ToInt32(a[0]), ToInt32(a[1]), ToInt32(a[2]), ToInt32(a[3]));
}

// A font field can be replaced by a font only; its properties are taken over.
template <auto kGet>
constexpr Table::Member FontField(std::string_view name) {
  return {name, 0, [](clsDragDrop& item, Arguments) -> Variant { return (item.*kGet)(); },
          [](clsDragDrop& item, Arguments a) -> Variant {
            const auto given = std::dynamic_pointer_cast<FontObject>(ToObject(a[0]));
            if (!given) RaiseError(error_number::kTypeMismatch, "Type mismatch");
            std::static_pointer_cast<FontObject>((item.*kGet)())->font = given->font;
            return {};
          }};
}

constexpr Table::Member kMembers[] = {
    {"mExtParent", 0, [](clsDragDrop& item, Arguments) -> Variant { return item.mExtParent; },
     [](clsDragDrop& item, Arguments a) -> Variant {
       item.mExtParent = ToObject(a[0]);
       return {};
     }},
    {"mlParenthWnd", 0, [](clsDragDrop& item, Arguments) -> Variant { return item.mlParenthWnd; },
     [](clsDragDrop& item, Arguments a) -> Variant {
       item.mlParenthWnd = ToInt32(a[0]);
       return {};
     }},
    FontField<&clsDragDrop::mFontReg>("mFontReg"),
    FontField<&clsDragDrop::mFontBld>("mFontBld"),
    {"mbclosing", 0, [](clsDragDrop& item, Arguments) -> Variant { return item.mbclosing; },
     [](clsDragDrop& item, Arguments a) -> Variant {
       item.mbclosing = ToBoolean(a[0]);
       return {};
     }},
    {"AppVersion",
     0,
     [](clsDragDrop& item, Arguments) -> Variant { return item.AppVersion(); },
     {}},
    {"ExternalSupport",
     0,
     [](clsDragDrop& item, Arguments) -> Variant { return item.ExternalSupport(); },
     {}},
    {"SelfNavigation",
     0,
     [](clsDragDrop& item, Arguments) -> Variant { return item.SelfNavigation(); },
     {}},
    {"DisplayInt_hwnd", 0, [](clsDragDrop& item, Arguments) -> Variant { return item.hwnd(); }, {}},
    {"DisplayInt_ExternalSupport",
     0,
     {},
     [](clsDragDrop& item, Arguments a) -> Variant {
       item.SetExternalSupport(ToObject(a[0]));
       return {};
     }},
    {"DisplayInt_FreeExternalDisplay",
     0,
     [](clsDragDrop& item, Arguments) -> Variant { return item.FreeExternalDisplay(); },
     {}},
    {"DisplayInt_GetExternalDisplayStatus", 3, Status, {}},
    {"DisplayInt_GetExternalStateBytes",
     0,
     [](clsDragDrop& item, Arguments) -> Variant { return item.GetExternalStateBytes(); },
     {}},
    {"DisplayInt_GetExternalStateArray",
     2,
     [](clsDragDrop& item, Arguments a) -> Variant {
       item.GetExternalStateArray(ArrayArgument(a[0]), ToInt32(a[1]));
       return {};
     },
     {}},
    {"DisplayInt_GetResponse",
     3,
     [](clsDragDrop& item, Arguments a) -> Variant {
       return item.GetResponse(ToInt32(a[0]), ArrayArgument(a[1]), ToInt32(a[2]));
     },
     {}},
    {"ConvertKey",
     1,
     [](clsDragDrop& item, Arguments a) -> Variant { return item.ConvertKey(ToText(a[0])); },
     {}},
    {"DisplayInt_GetResponseBytes", 2, ResponseBytes, {}},
    {"DisplayInt_GetScoreInfo", 3, ScoreInfo, {}},
    {"DisplayInt_HideExternalDisplay",
     0,
     [](clsDragDrop& item, Arguments) -> Variant { return item.HideExternalDisplay(); },
     {}},
    {"DisplayInt_InitExternalDisplay",
     3,
     [](clsDragDrop& item, Arguments a) -> Variant {
       return item.InitExternalDisplay(InputArray(a[0]), ToInt32(a[1]), ToInt32(a[2]));
     },
     {}},
    {"DisplayInt_RescoreExternalDisplay", 7, Rescore, {}},
    {"DisplayInt_RescoreExternalDisplayQuick", 9, RescoreQuick, {}},
    {"DisplayInt_ResizeExternalDisplay", 4, Rectangle<&clsDragDrop::ResizeExternalDisplay>, {}},
    {"DisplayInt_ScoreExternalDisplay", 5, Score, {}},
    {"DisplayInt_SetExternalStateArray",
     2,
     [](clsDragDrop& item, Arguments a) -> Variant {
       item.SetExternalStateArray(InputArray(a[0]), ToInt32(a[1]));
       return {};
     },
     {}},
    {"DisplayInt_SetParentWnd",
     1,
     [](clsDragDrop& item, Arguments a) -> Variant { return item.SetParentWnd(ToInt32(a[0])); },
     {}},
    {"DisplayInt_ShowExternalDisplay", 4, Rectangle<&clsDragDrop::ShowExternalDisplay>, {}},
};

}  // namespace

std::span<const Table::Member> clsDragDrop::Members() { return kMembers; }

Variant clsDragDrop::Invoke(std::string_view name, Arguments arguments, InvokeKind kind) {
  return Table(kMembers).Invoke(*this, name, arguments, kind);
}

}  // namespace zav

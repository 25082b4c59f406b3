#include "form/StateRestorer.h"

#include <vector>

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "form/ItemLookup.h"

namespace zav {
namespace {

std::vector<std::string> ReadResponses(DataIO& document) {
  std::vector<std::string> responses;
  document.SetFromRoot(false);
  if (!document.FindNode("Responses")) return responses;
  const std::int32_t count = document.ChildCount();
  responses.reserve(static_cast<std::size_t>(count));
  for (std::int32_t i = 0; i < count; ++i) responses.push_back(ToText(document.GetChildText(i)));
  return responses;
}

}  // namespace

void StateRestorer::LoadState() {
  form_.Trap("LoadState", [&] {
    DataIO& document = form_.Document();
    const CursorScope keep(document);
    placement_.ForgetPlacements();
    document.SetFromRoot(true);
    if (!document.FindNode("State")) return;
    const std::vector<std::string> responses = ReadResponses(document);
    ReadScrollValues();
    for (const std::string& response : responses) SetAnswer(response);
    RestorePanes();
  });
}

Variant StateRestorer::ViewValue(std::string_view name) const {
  DataIO& document = form_.Document();
  document.SetFromRoot(true);
  if (!document.FindNode("State")) return {};
  document.SetFromRoot(false);
  return document.FindNode(name) ? document.GetText() : Variant{};
}

void StateRestorer::ReadScrollValues() {
  LayoutState& layout = form_.layout;
  const Variant stem = ViewValue("ItemStemScroll");
  const Variant work = ViewValue("WorkAreaScroll");
  const Variant source = ViewValue("SourceAreaScroll");
  const auto present = [](const Variant& value) { return value.index() != 0; };
  if (present(stem)) layout.SavedItemStemScroll = ToBoolean(stem);
  if (present(work)) layout.SavedWorkAreaScroll = ToInt32(work);
  if (present(source)) layout.SavedSourceAreaScroll = ToInt32(source);
  layout.SavedScrollComplete = present(stem) && present(work) && present(source);
}

void StateRestorer::RestorePanes() {
  const Variant stemHeight = ViewValue("ItemStemHeight");
  if (stemHeight.index() != 0) {
    panes_.SetHeight("ItemStem", ToSingle(stemHeight));
    form_.layout.ItemStemHeightRestored = true;
  }
  const Variant sourceSize = ViewValue("SourceAreaWidth");
  if (sourceSize.index() != 0) panes_.SetSourceAreaSize(ToSingle(sourceSize));
}

void StateRestorer::SetAnswer(const std::string& response) {
  form_.Trap("SetAnswer", [&] {
    const int source = FindSource(form_, WithoutFirstCharacters(response, 1));
    const int target = FindTarget(form_, response);
    if (source == 0 || target == 0) {
      RaiseError(error_number::kIndexOutOfRange,
                 {"No target and source item for the response ", response});
    }
    RunBoth([&] { placement_.TargetDragDrop(target, form_.controls.txtSource[source]); },
            [&] { placement_.RecountUses(source); });
  });
}

}  // namespace zav

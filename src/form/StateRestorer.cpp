#include "form/StateRestorer.h"

#include "automation/Text.h"
#include "form/ItemLookup.h"

namespace zav {
namespace {

// Puts the cursor on that element of the state section; False where there is none.
bool EnterStateElement(DataIO& document, std::string_view name) {
  document.SetFromRoot(true);
  if (!document.FindNode("State")) return false;
  document.SetFromRoot(false);
  return document.FindNode(name);
}

std::string CurrentText(const DataIO& document) { return ToText(document.GetText()); }

}  // namespace

void StateRestorer::LoadState() {
  form_.Trap("LoadState", [&] {
    DataIO& document = form_.Document();
    const CursorScope keep(document);
    const StoredState state = ReadState();
    placement_.ForgetPlacements();
    document.SetFromRoot(true);
    if (!document.FindNode("State")) return;
    TakeScrollValues(state);
    for (const NamedPlacement& placement : state.placements) {
      form_.Trap("SetAnswer", [&] { Place(placement); });
    }
    RestorePanes(state);
  });
}

StateRestorer::StoredState StateRestorer::ReadState() {
  return {ReadPlacements(),
          ReadView<bool>("ItemStemScroll", ToBoolean),
          ReadView<std::int32_t>("WorkAreaScroll", ToInt32),
          ReadView<std::int32_t>("SourceAreaScroll", ToInt32),
          ReadView<float>("ItemStemHeight", ToSingle),
          ReadView<float>("SourceAreaWidth", ToSingle)};
}

std::vector<StateRestorer::NamedPlacement> StateRestorer::ReadPlacements() {
  std::vector<NamedPlacement> placements;
  DataIO& document = form_.Document();
  if (!EnterStateElement(document, "Responses")) return placements;
  const std::int32_t count = document.ChildCount();
  for (std::int32_t i = 0; i < count; ++i) {
    document.MoveToChild(i);
    const std::string response = CurrentText(document);
    form_.Trap("SetAnswer", [&] { placements.push_back(Find(document.WithPlace(response))); });
    document.MoveToParent();
  }
  return placements;
}

template <typename Value>
std::optional<Value> StateRestorer::ReadView(std::string_view name,
                                             Value (*convert)(const DocumentValue&)) {
  std::optional<Value> value;
  form_.Trap("LoadState", [&] {
    DataIO& document = form_.Document();
    if (!EnterStateElement(document, name)) return;
    const std::string text = CurrentText(document);
    value = convert(document.WithPlace(text));
  });
  return value;
}

void StateRestorer::TakeScrollValues(const StoredState& state) {
  LayoutState& layout = form_.layout;
  layout.SavedItemStemScroll = state.itemStemScroll.value_or(layout.SavedItemStemScroll);
  layout.SavedWorkAreaScroll = state.workAreaScroll.value_or(layout.SavedWorkAreaScroll);
  layout.SavedSourceAreaScroll = state.sourceAreaScroll.value_or(layout.SavedSourceAreaScroll);
  layout.SavedScrollComplete =
      state.itemStemScroll && state.workAreaScroll && state.sourceAreaScroll;
}

void StateRestorer::RestorePanes(const StoredState& state) {
  if (state.itemStemHeight) {
    panes_.SetHeight("ItemStem", *state.itemStemHeight);
    form_.layout.ItemStemHeightRestored = true;
  }
  if (state.sourceAreaSize) panes_.SetSourceAreaSize(*state.sourceAreaSize);
}

void StateRestorer::SetAnswer(const DocumentValue& response) {
  form_.Trap("SetAnswer", [&] { Place(Find(response)); });
}

StateRestorer::NamedPlacement StateRestorer::Find(const DocumentValue& response) const {
  const int source = FindSource(form_, WithoutFirstCharacters(response.View(), 1));
  const int target = FindTarget(form_, response.View());
  if (source == 0 || target == 0) {
    response.Refuse(error_number::kIndexOutOfRange, "names no target and source item");
  }
  return {source, target};
}

void StateRestorer::Place(const NamedPlacement& placement) {
  const Control& item = form_.controls.txtSource[placement.source];
  RunBoth([&] { placement_.TargetDragDrop(placement.target, item); },
          [&] { placement_.RecountUses(placement.source); });
}

}  // namespace zav

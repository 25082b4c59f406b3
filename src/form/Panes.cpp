#include "form/Panes.h"

#include <string>

#include "automation/Text.h"

namespace zav {
namespace {

// What every pane keeps, in twips, however the bars are dragged.
constexpr float kLeastStemHeight = 600;
constexpr float kLeastSourceSize = 1000;
constexpr float kLeastWorkWidth = 3000;
constexpr float kLeastWorkHeight = 2400;

}  // namespace

void Panes::Create() {
  Splitter& splitter = form_.controls.spSplitter;
  splitter.AddPane({"ItemStem", 0, kLeastStemHeight, {}, nullptr, 0});
  splitter.AddPane({"WorkArea", kLeastWorkWidth, kLeastWorkHeight, {}, nullptr, 0});
}

void Panes::Fill() {
  FormControls& controls = form_.controls;
  if (!Complete()) {
    controls.spSplitter.AddPane(
        {"SourceArea", kLeastSourceSize, kLeastSourceSize, {}, nullptr, 0}, "WorkArea",
        form_.tables.SourceAreaOnLeft ? PanePlacement::LeftOf : PanePlacement::Above);
  }
  controls.spSplitter.SetPaneControl("SourceArea", &controls.scrSource);
  controls.spSplitter.SetPaneControl("WorkArea", &controls.pcWorkContainer);
  controls.spSplitter.SetPaneControl("ItemStem", &controls.scrItemStem);
}

void Panes::Empty() {
  Splitter& splitter = form_.controls.spSplitter;
  if (Complete()) splitter.RemovePane("SourceArea");
  splitter.SetPaneControl("WorkArea", nullptr);
}

const SplitterPane& Panes::Find(std::string_view name) const {
  for (const SplitterPane* pane : form_.controls.spSplitter.Panes()) {
    if (EqualIgnoringCase(pane->key, name)) return *pane;
  }
  RaiseError(error_number::kInvalidArgument, {"Splitter pane not found: ", name});
}

const Rect& Panes::RectOf(std::string_view name) const { return Find(name).rect; }

float Panes::LeastHeight(std::string_view name) const { return Find(name).leastHeight; }

void Panes::SetHeight(std::string_view name, float height) {
  form_.controls.spSplitter.SetPaneHeight(Find(name).key, height);
}

void Panes::SetWidth(std::string_view name, float width) {
  form_.controls.spSplitter.SetPaneWidth(Find(name).key, width);
}

float Panes::SourceAreaSize() const {
  const Rect& rect = RectOf("SourceArea");
  return form_.tables.SourceAreaOnLeft ? rect.width : rect.height;
}

void Panes::SetSourceAreaSize(float size) {
  if (form_.tables.SourceAreaOnLeft) {
    SetWidth("SourceArea", size);
  } else {
    SetHeight("SourceArea", size);
  }
}

}  // namespace zav

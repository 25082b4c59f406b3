#include "controls/Splitter.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "automation/AutomationError.h"

namespace zav {
namespace {

// Shares length among slots that want a size each: the last one takes the rest, and every other
// one gets what it wants as far as the least sizes behind it leave room.
struct Slot {
  float wanted;
  float least;
};

std::vector<float> Share(const std::vector<Slot>& slots, float length) {
  float leastBehind = 0;
  for (const Slot& slot : slots) leastBehind += slot.least;
  float room = length - Splitter::kBarTwips * static_cast<float>(slots.size() - 1);
  std::vector<float> sizes;
  for (std::size_t i = 0; i + 1 < slots.size(); ++i) {
    leastBehind -= slots[i].least;
    const float most = std::max(room - leastBehind, std::min(slots[i].least, room));
    const float size = std::max(0.0F, std::min(std::max(slots[i].wanted, slots[i].least), most));
    sizes.push_back(size);
    room -= size;
  }
  sizes.push_back(std::max(0.0F, room));
  return sizes;
}

}  // namespace

float Splitter::Row::LeastHeight() const {
  float least = 0;
  for (const SplitterPane& pane : panes) least = std::max(least, pane.leastHeight);
  return least;
}

void Splitter::AddPane(SplitterPane pane) {
  const float wantedHeight = pane.leastHeight;
  rows_.push_back({{std::move(pane)}, wantedHeight});
  Layout();
}

void Splitter::AddPane(SplitterPane pane, std::string_view anchor, PanePlacement placement) {
  const Position at = Find(anchor);
  const auto row = rows_.begin() + static_cast<std::ptrdiff_t>(at.row);
  if (placement == PanePlacement::Above) {
    const float wantedHeight = pane.leastHeight;
    rows_.insert(row, Row{{std::move(pane)}, wantedHeight});
  } else {
    row->panes.insert(row->panes.begin() + static_cast<std::ptrdiff_t>(at.pane), std::move(pane));
  }
  Layout();
}

void Splitter::RemovePane(std::string_view key) {
  const Position at = Find(key);
  auto& panes = rows_[at.row].panes;
  panes.erase(panes.begin() + static_cast<std::ptrdiff_t>(at.pane));
  if (panes.empty()) rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(at.row));
  Layout();
}

int Splitter::PaneCount() const { return static_cast<int>(Panes().size()); }

const SplitterPane& Splitter::Pane(std::string_view key) const {
  const Position at = Find(key);
  return rows_[at.row].panes[at.pane];
}

std::vector<const SplitterPane*> Splitter::Panes() const {
  std::vector<const SplitterPane*> all;
  for (const Row& row : rows_) {
    for (const SplitterPane& pane : row.panes) all.push_back(&pane);
  }
  return all;
}

void Splitter::SetPaneControl(std::string_view key, Control* control) {
  const Position at = Find(key);
  rows_[at.row].panes[at.pane].control = control;
  Layout();
}

void Splitter::SetPaneHeight(std::string_view key, float height) {
  const std::size_t row = Find(key).row;
  if (row + 1 < rows_.size()) {
    rows_[row].wantedHeight = height;
  } else if (row > 0) {
    const SplitterPane& above = rows_[row - 1].panes.front();
    rows_[row - 1].wantedHeight = above.rect.height + rows_[row].panes.front().rect.height - height;
  }
  Layout();
}

void Splitter::SetPaneWidth(std::string_view key, float width) {
  const Position at = Find(key);
  auto& panes = rows_[at.row].panes;
  if (at.pane + 1 < panes.size()) {
    panes[at.pane].wantedWidth = width;
  } else if (at.pane > 0) {
    SplitterPane& before = panes[at.pane - 1];
    before.wantedWidth = before.rect.width + panes[at.pane].rect.width - width;
  }
  Layout();
}

void Splitter::DragBar(std::string_view key, float paneSize) {
  if (!Hears()) return;
  const Position at = Find(key);
  host().RunEvent([&] {
    if (at.pane + 1 < rows_[at.row].panes.size()) {
      SetPaneWidth(key, paneSize);
    } else {
      SetPaneHeight(key, paneSize);
    }
    if (onSplitterEndDrag) onSplitterEndDrag();
  });
}

std::vector<Splitter::Bar> Splitter::Bars() const {
  std::vector<Bar> bars;
  for (std::size_t r = 0; r < rows_.size(); ++r) {
    const auto& panes = rows_[r].panes;
    for (std::size_t p = 0; p + 1 < panes.size(); ++p) {
      const Rect& rect = panes[p].rect;
      bars.push_back({{rect.Right(), rect.top, kBarTwips, rect.height}, panes[p].key, true});
    }
    if (r + 1 == rows_.size()) continue;
    bars.push_back({{0, panes.back().rect.Bottom(), width(), kBarTwips}, panes.back().key, false});
  }
  return bars;
}

Splitter::Position Splitter::Find(std::string_view key) const {
  for (std::size_t r = 0; r < rows_.size(); ++r) {
    const auto& panes = rows_[r].panes;
    const auto found = std::find_if(panes.begin(), panes.end(),
                                    [&](const SplitterPane& pane) { return pane.key == key; });
    if (found != panes.end()) {
      return {r, static_cast<std::size_t>(std::distance(panes.begin(), found))};
    }
  }
  RaiseError(error_number::kInvalidArgument, {"Splitter pane not found: ", key});
}

void Splitter::Layout() {
  if (rows_.empty()) return;
  std::vector<Slot> slots;
  slots.reserve(rows_.size());
  for (const Row& row : rows_) slots.push_back({row.wantedHeight, row.LeastHeight()});
  const std::vector<float> heights = Share(slots, height());
  float top = 0;
  for (std::size_t r = 0; r < rows_.size(); ++r) {
    LayoutRow(rows_[r], top, heights[r]);
    top += heights[r] + kBarTwips;
  }
  Changed(change::kContent);
}

void Splitter::LayoutRow(Row& row, float top, float rowHeight) {
  std::vector<Slot> slots;
  slots.reserve(row.panes.size());
  for (const SplitterPane& pane : row.panes) slots.push_back({pane.wantedWidth, pane.leastWidth});
  const std::vector<float> widths = Share(slots, width());
  float left = 0;
  for (std::size_t p = 0; p < row.panes.size(); ++p) {
    SplitterPane& pane = row.panes[p];
    pane.rect = {left, top, widths[p], rowHeight};
    if (pane.control != nullptr) pane.control->Move(pane.rect);
    left += widths[p] + kBarTwips;
  }
}

}  // namespace zav

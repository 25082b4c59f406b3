// Divides its area into named panes with bars between them that the candidate can drag.
//
// Panes stand in rows, rows one below the other. The last pane of a row and the last row take what
// the others leave. A control put into a pane is kept as large as the pane; its rectangle, like the
// panes', is in twips from the splitter's top left corner. Keys are compared as they are written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/Control.h"

namespace zav {

struct SplitterPane {
  std::string key;
  float leastWidth = 0;
  float leastHeight = 0;
  Rect rect;                   // as it is laid out now
  Control* control = nullptr;  // not owned
  float wantedWidth = 0;       // as asked for; kept when there is less room for a while
};

enum class PanePlacement { Above = 0, LeftOf = 2 };

class Splitter : public Control {
 public:
  static constexpr float kBarTwips = 90;

  Splitter(ControlHost& host, Control* container, std::string name)
      : Control(host, ControlKind::Splitter, container, std::move(name)) {}

  // A row of its own below the others.
  void AddPane(SplitterPane pane);
  // Beside or above the pane named anchor. Raises 5 for an anchor that is not there.
  void AddPane(SplitterPane pane, std::string_view anchor, PanePlacement placement);
  void RemovePane(std::string_view key);

  [[nodiscard]] int PaneCount() const;
  // Raises 5 for a key that is not there. Pane rectangles change with the next layout.
  [[nodiscard]] const SplitterPane& Pane(std::string_view key) const;
  [[nodiscard]] std::vector<const SplitterPane*> Panes() const;

  // Null takes the control out of the pane.
  void SetPaneControl(std::string_view key, Control* control);

  // Sizes are kept between the pane's least size and what the other panes' least sizes leave. The
  // pane behind takes up the difference; of the last pane, the one before does.
  void SetPaneHeight(std::string_view key, float height);
  void SetPaneWidth(std::string_view key, float width);

  // The candidate drags the bar behind a pane: to its right where it stands in a row, below it
  // where it is a row of its own. Called by the platform at the end of the drag.
  void DragBar(std::string_view key, float paneSize);
  Handler<void()> onSplitterEndDrag;

  // Bars as they are laid out now, each with the pane that it sizes.
  struct Bar {
    Rect rect;
    std::string key;
    bool upright;  // between panes side by side
  };
  [[nodiscard]] std::vector<Bar> Bars() const;

 protected:
  void SizeChanged() override { Layout(); }

 private:
  struct Row {
    std::vector<SplitterPane> panes;
    float wantedHeight = 0;
    [[nodiscard]] float LeastHeight() const;
  };
  struct Position {
    std::size_t row;
    std::size_t pane;
  };

  [[nodiscard]] Position Find(std::string_view key) const;
  void Layout();
  void LayoutRow(Row& row, float top, float rowHeight);

  std::vector<Row> rows_;
};

}  // namespace zav

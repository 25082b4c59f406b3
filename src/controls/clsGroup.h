// What the form keeps about one group of source items.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "automation/Conversions.h"
#include "controls/HtmlPane.h"
#include "controls/RichText.h"

namespace zav {

struct clsGroup {
  std::string GroupId;
  std::int16_t ItemHeight = 0;  // of each source item, twips of the running display
  std::int16_t ItemWidth = 0;
  std::int16_t SourceCount = 0;    // sources read so far
  std::vector<RichText*> Sources;  // text panes of the group's items, in source order
  HtmlPane* Heading = nullptr;     // shows the group's heading; both belong to the form

  // A number kept for whoever sets it, from text and back; nothing here does. Raises 13 and 6.
  void SetStartLocation(const std::string& text) { startLocation = ToInt32(text); }
  [[nodiscard]] std::string StartLocation() const { return ToText(startLocation); }
  std::int32_t startLocation = 0;

  // The room that the group's items take, in hundreds of twips squared.
  [[nodiscard]] std::int32_t GetArea() const {
    return RoundToInt32((ItemWidth / 100.0) * (ItemHeight / 100.0) * SourceCount);
  }
};

}  // namespace zav

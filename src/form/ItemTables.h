// What the form builds from the item document and looks up while the candidate works.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "controls/clsGroup.h"
#include "document/DocumentValue.h"
#include "document/KeyedList.h"
#include "document/clsTarget.h"
#include "platform/Geometry.h"

namespace zav {

// Uses of each source item. Column 1 is how many are allowed, column 2 how many targets hold it.
class SourceUsesTable {
 public:
  void Resize(int sourceCount) { uses_.assign(static_cast<std::size_t>(sourceCount) + 2, {}); }
  void Clear() { uses_.clear(); }
  // Raises 9 for a source or a column outside the table.
  std::int16_t& operator()(int source, int column);

 private:
  std::vector<std::array<std::int16_t, 3>> uses_;
};

// The drawn outlines: one row a segment, from row 1 on.
struct ShapeSegment {
  std::int32_t startX = 0;  // pixels of the work picture
  std::int32_t startY = 0;
  std::int32_t endX = 0;
  std::int32_t endY = 0;
  std::int32_t drawWidth = 0;  // pixels
  std::int32_t drawColor = 0;
};

// Source items by their answer values; of several with the same value the first that was added.
class SourceIndex {
 public:
  void Add(const std::string& answer, std::int32_t source);
  // 0 where there is none.
  [[nodiscard]] std::int32_t Find(const std::string& answer) const;
  // The same for the number that an answer value converts to.
  [[nodiscard]] std::int32_t Find(std::int16_t number) const;

 private:
  std::map<std::string, std::int32_t> texts_;
  std::map<std::string, std::int32_t> numbers_;  // by their decimal texts
};

struct ItemTables {
  KeyedList<clsTarget> TargetList;  // position: index of the target's controls
  KeyedList<clsGroup> GroupList;
  SourceIndex Sources;
  std::map<std::string, std::int32_t> TargetsByLetter;  // the first character of answer values
  SourceUsesTable SourceUses;
  std::vector<std::string> SourceTexts;  // formatted texts, in source order
  std::vector<ShapeSegment> ShapeSegments;
  bool HasShapes = false;
  Point BackgroundAt;  // pixels of the work picture

  std::int16_t ItemTwipsPerPixelX = 0;  // of the authoring display
  std::int16_t ItemTwipsPerPixelY = 0;
  bool SourceAreaOnLeft = true;
  std::int32_t SourceAreaHeight = 0;  // twips of the running display
  std::int32_t SourceAreaWidth = 0;

  // An authored position or size in pixels. Refuses with 13 what is no number, with 11 everything
  // when the item does not say how its display was measured.
  [[nodiscard]] float PixelsX(const DocumentValue& authored) const;
  [[nodiscard]] float PixelsY(const DocumentValue& authored) const;

  // The record of the group that the tag names. Raises 5 for a group that is not there.
  clsGroup& GroupOf(std::string_view tag);
  // The same; null for a group that is not there, as in an item whose groups were not all built.
  [[nodiscard]] const clsGroup* FindGroup(std::string_view tag) const;
  // Puts the source item of that number on the target; 0 takes what is there off.
  void Place(int target, std::int16_t sourceId);
  // On how many targets the source items with that answer value are.
  [[nodiscard]] std::int32_t CountPlaced(const std::string& answer) const;

  // The formatted text of a source item. Raises 9 for an index that has none.
  const std::string& SourceText(int source) const;

  void Clear();

 private:
  std::int32_t& CountOf(std::int16_t sourceId);

  // On how many targets each source item is, by the decimal text of its number.
  std::map<std::string, std::int32_t> placed_;
};

}  // namespace zav

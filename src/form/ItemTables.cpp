#include "form/ItemTables.h"

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "document/ItemTag.h"

namespace zav {
namespace {

AutomationError OutOfRange() { return {error_number::kIndexOutOfRange, "Subscript out of range"}; }

float Pixels(OptionalText authored, std::int16_t twipsPerPixel) {
  if (twipsPerPixel == 0) RaiseError(error_number::kDivisionByZero, "Division by zero");
  return ToSingle(authored) / static_cast<float>(twipsPerPixel);
}

}  // namespace

std::int16_t& SourceUsesTable::operator()(int source, int column) {
  if (source < 0 || source >= static_cast<int>(uses_.size()) || column < 0 || column > 2) {
    throw OutOfRange();
  }
  return uses_[static_cast<std::size_t>(source)][static_cast<std::size_t>(column)];
}

float ItemTables::PixelsX(OptionalText authored) const {
  return Pixels(authored, ItemTwipsPerPixelX);
}

float ItemTables::PixelsY(OptionalText authored) const {
  return Pixels(authored, ItemTwipsPerPixelY);
}

clsGroup& ItemTables::GroupOf(std::string_view tag) { return GroupList.Item(GetGroupId(tag)); }

const clsGroup* ItemTables::FindGroup(std::string_view tag) const {
  return GroupList.Find(GetGroupId(tag));
}

const std::string& ItemTables::SourceText(int source) const {
  if (source < 1 || source > static_cast<int>(SourceTexts.size())) throw OutOfRange();
  return SourceTexts[static_cast<std::size_t>(source) - 1];
}

void ItemTables::Clear() { *this = {}; }

}  // namespace zav

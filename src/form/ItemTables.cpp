#include "form/ItemTables.h"

#include <utility>

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "document/ItemTag.h"

namespace zav {
namespace {

AutomationError OutOfRange() { return {error_number::kIndexOutOfRange, "Subscript out of range"}; }

float Pixels(const DocumentValue& authored, std::int16_t twipsPerPixel) {
  if (twipsPerPixel == 0) {
    authored.Refuse(error_number::kDivisionByZero,
                    "cannot be measured: the item's twips per pixel are 0");
  }
  return ToSingle(authored) / static_cast<float>(twipsPerPixel);
}

// The same for all answer values that convert to the same number; empty for what is no number, as
// authors may write what they like.
std::string NumberText(const std::string& answer) {
  try {
    return ToText(ToInt16(answer));
  } catch (const AutomationError&) {
    return {};
  }
}

// Maps of texts to numbers serve everywhere here: their code is there once.
using Numbers = std::map<std::string, std::int32_t>;

std::int32_t Value(const Numbers& values, const std::string& key) {
  const auto found = values.find(key);
  return found == values.end() ? 0 : found->second;
}

}  // namespace

void SourceIndex::Add(const std::string& answer, const std::int32_t source) {
  texts_.emplace(std::string(answer), source);
  std::string number = NumberText(answer);
  if (!number.empty()) numbers_.emplace(std::move(number), source);
}

std::int32_t SourceIndex::Find(const std::string& answer) const { return Value(texts_, answer); }

std::int32_t SourceIndex::Find(std::int16_t number) const {
  return Value(numbers_, ToText(number));
}

std::int16_t& SourceUsesTable::operator()(int source, int column) {
  if (source < 0 || source >= static_cast<int>(uses_.size()) || column < 0 || column > 2) {
    throw OutOfRange();
  }
  return uses_[static_cast<std::size_t>(source)][static_cast<std::size_t>(column)];
}

float ItemTables::PixelsX(const DocumentValue& authored) const {
  return Pixels(authored, ItemTwipsPerPixelX);
}

float ItemTables::PixelsY(const DocumentValue& authored) const {
  return Pixels(authored, ItemTwipsPerPixelY);
}

clsGroup& ItemTables::GroupOf(std::string_view tag) { return GroupList.Item(GetGroupId(tag)); }

const clsGroup* ItemTables::FindGroup(std::string_view tag) const {
  return GroupList.Find(GetGroupId(tag));
}

void ItemTables::Place(int target, std::int16_t sourceId) {
  std::int16_t& placed = TargetList.Item(target).SourceID;
  if (sourceId != 0) ++CountOf(sourceId);
  if (placed != 0) --CountOf(placed);
  placed = sourceId;
}

std::int32_t& ItemTables::CountOf(std::int16_t sourceId) {
  const std::int32_t none = 0;
  return placed_.emplace(ToText(sourceId), none).first->second;
}

std::int32_t ItemTables::CountPlaced(const std::string& answer) const {
  return Value(placed_, NumberText(answer));
}

const std::string& ItemTables::SourceText(int source) const {
  if (source < 1 || source > static_cast<int>(SourceTexts.size())) throw OutOfRange();
  return SourceTexts[static_cast<std::size_t>(source) - 1];
}

void ItemTables::Clear() { *this = {}; }

}  // namespace zav

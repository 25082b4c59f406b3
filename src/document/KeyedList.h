// A collection whose items are found by position, from 1, or by key. Keys are compared without
// regard to case, as automation collections do. References to items stay valid until the list is
// cleared or goes.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "automation/AutomationError.h"
#include "automation/Text.h"

namespace zav {

template <typename T>
class KeyedList {
 public:
  // Raises 457 when the key is in use.
  T& Add(T item, std::string_view key) {
    const auto position = static_cast<std::int32_t>(items_.size()) + 1;
    if (!positions_.emplace(UpperCase(key), position).second) {
      RaiseError(error_number::kDuplicateKey, {"This key is already in use: ", key});
    }
    return items_.emplace_back(std::move(item));
  }

  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }

  // Raises 9 for a position outside 1 to Count.
  [[nodiscard]] const T& Item(std::int32_t position) const {
    if (position < 1 || position > Count()) {
      RaiseError(error_number::kIndexOutOfRange, "Subscript out of range");
    }
    return items_[static_cast<std::size_t>(position) - 1];
  }
  T& Item(std::int32_t position) { return const_cast<T&>(std::as_const(*this).Item(position)); }

  // Null for a key that no item has.
  [[nodiscard]] const T* Find(std::string_view key) const {
    const auto found = positions_.find(UpperCase(key));
    return found == positions_.end() ? nullptr : &Item(found->second);
  }

  // Raises 5 for a key that no item has.
  [[nodiscard]] const T& Item(std::string_view key) const {
    const T* found = Find(key);
    if (found == nullptr) {
      RaiseError(error_number::kInvalidArgument,
                 {"Invalid procedure call or argument: no item ", key});
    }
    return *found;
  }
  T& Item(std::string_view key) { return const_cast<T&>(std::as_const(*this).Item(key)); }

  void Clear() {
    items_.clear();
    positions_.clear();
  }

  // In the order of their positions.
  [[nodiscard]] auto begin() { return items_.begin(); }
  [[nodiscard]] auto end() { return items_.end(); }
  [[nodiscard]] auto begin() const { return items_.begin(); }
  [[nodiscard]] auto end() const { return items_.end(); }

 private:
  std::deque<T> items_;
  std::map<std::string, std::int32_t> positions_;  // by upper-cased key
};

}  // namespace zav

// Controls under one name, told apart by index. Index 0 is the template: never shown, and the model
// of every element that is loaded at run time.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "automation/AutomationError.h"
#include "controls/Control.h"

namespace zav {

template <typename T>
class ControlArray {
 public:
  ControlArray(ControlHost& host, Control* container, std::string name)
      : host_(host), container_(container), name_(std::move(name)) {
    elements_.push_back(std::make_unique<T>(host_, container_, name_, 0));
    elements_[0]->Hide();
  }

  // Called for every element that is loaded, to connect its events.
  Handler<void(T&, int index)> onLoad;

  // Adds the next element, hidden, with the template's properties. Raises 360 for an index that is
  // loaded, 340 for one that would leave a gap.
  T& Load(int index) {
    if (index < static_cast<int>(elements_.size())) {
      RaiseError(error_number::kElementLoaded, {"Object already loaded: ", name_});
    }
    if (index > static_cast<int>(elements_.size())) RaiseMissing(index);
    auto element = std::make_unique<T>(host_, container_, name_, index);
    element->CopyFrom(*elements_[0]);
    element->Hide();
    elements_.push_back(std::move(element));
    if (onLoad) onLoad(*elements_.back(), index);
    return *elements_.back();
  }

  // Takes the elements from the last one down to index 1 off the form.
  void UnloadAll() {
    while (elements_.size() > 1) elements_.pop_back();
  }

  // Raises 340 for an index that is not loaded.
  T& operator[](int index) const {
    if (index < 0 || index >= static_cast<int>(elements_.size())) RaiseMissing(index);
    return *elements_[static_cast<std::size_t>(index)];
  }

  [[nodiscard]] int UpperBound() const { return static_cast<int>(elements_.size()) - 1; }

 private:
  [[noreturn]] void RaiseMissing(int index) const {
    RaiseError(error_number::kMissingElement,
               {"Control array element ", std::to_string(index), " doesn't exist: ", name_});
  }

  ControlHost& host_;
  Control* container_;
  std::string name_;
  std::vector<std::unique_ptr<T>> elements_;
};

}  // namespace zav

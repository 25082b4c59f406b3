// Finds source items and targets by their answer values.
#pragma once

#include <cstdint>
#include <string_view>

#include "form/FormCore.h"

namespace zav {

// The first source item with that answer value; 0 when there is none.
int FindSource(const FormCore& form, std::string_view answerValue);
// The same by the number that a target's record keeps.
int FindSource(const FormCore& form, std::int16_t sourceId);
// The first target whose answer field begins with the first character of response; 0 for none.
int FindTarget(const FormCore& form, std::string_view response);

// An attribute of an entry of one of the item's lists, as it was authored, for errors about it.
// Entries count from 1, as their controls do.
DocumentValue AuthoredValue(const FormCore& form, std::string_view list, int entry,
                            std::string_view name);

// Whether the target's answer field names an item.
bool HoldsItem(const FormCore& form, int target);

}  // namespace zav

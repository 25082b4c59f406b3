#include "automation/Variant.h"

#include <limits>
#include <utility>

#include "automation/AutomationError.h"

namespace zav {

SafeArray::SafeArray(std::vector<std::uint8_t> bytes, std::int32_t lowerBound)
    : dimensions_{{lowerBound, static_cast<std::uint32_t>(bytes.size())}},
      bytes_(std::move(bytes)) {}

SafeArray SafeArray::WithDimensions(std::vector<Dimension> dimensions) {
  std::uint64_t size = dimensions.empty() ? 0 : 1;
  for (const Dimension& dimension : dimensions) {
    size *= dimension.count;
    if (size > std::numeric_limits<std::int32_t>::max()) {
      RaiseError(error_number::kOutOfMemory, "Out of memory");
    }
  }
  SafeArray array;
  array.dimensions_ = std::move(dimensions);
  array.bytes_.resize(size);
  return array;
}

void SafeArray::RequireFillable() const {
  if (dimensions_.size() != 1 || bytes_.empty()) {
    RaiseError(error_number::kIndexOutOfRange, "Subscript out of range");
  }
}

}  // namespace zav

// What the form keeps about one drop target.
#pragma once

#include <cstdint>
#include <string>

namespace zav {

struct clsTarget {
  std::int16_t GroupId = 0;  // number of the group whose items the target takes
  std::int16_t TargetID = 0;
  std::int16_t SourceID = 0;  // answer value of the item placed on the target, 0 when it is empty
  std::string PicturePath;    // of the empty-target picture last loaded for a target

  // How far beyond each edge a drop still lands on the target: pixels, at least 0.
  std::int16_t SnapTop = 0;
  std::int16_t SnapLeft = 0;
  std::int16_t SnapRight = 0;
  std::int16_t SnapBottom = 0;

  // Kept for whoever sets them; nothing here does.
  std::int16_t MaxTop = 0;
  std::int16_t MaxLeft = 0;
  std::int16_t MaxRight = 0;
  std::int16_t MaxBottom = 0;
};

}  // namespace zav

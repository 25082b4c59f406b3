// A font as items and hosts name it.
#pragma once

#include <string>

namespace zav {

struct Font {
  std::string name = "Verdana";
  float size = 10;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;

  bool operator==(const Font&) const = default;
};

}  // namespace zav

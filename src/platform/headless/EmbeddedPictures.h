// The form's own artwork, built into the program so that it needs no files beside it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace zav {

struct EmbeddedPicture {
  std::string_view name;                // of its file in src/form/artwork, without the extension
  std::span<const std::uint8_t> bytes;  // the encoded file, PNG or BMP
};

// Every picture of the artwork, sorted by name. The bytes live as long as the program.
std::span<const EmbeddedPicture> EmbeddedPictures();

}  // namespace zav

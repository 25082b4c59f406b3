// Decodes any bytes as a picture: it comes out, or error 481.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "automation/AutomationError.h"
#include "platform/headless/PictureFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const auto picture = zav::DecodePicture({data, size}, "input");
    zav::EncodeBitmap(*picture);
  } catch (const zav::AutomationError& error) {
    if (error.Number() != zav::error_number::kInvalidPicture) abort();
  }
  return 0;
}

# Writes the files of the list PICTURES as arrays of bytes into the C++ file OUTPUT.
set(arrays "")
set(rows "")
set(count 0)
foreach(picture IN LISTS PICTURES)
  cmake_path(GET picture STEM LAST_ONLY name)
  file(READ "${picture}" digits HEX)
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${digits}")
  string(APPEND arrays "constexpr std::uint8_t kBytes${count}[] = {${bytes}};\n")
  string(APPEND rows "    {\"${name}\", kBytes${count}},\n")
  math(EXPR count "${count} + 1")
endforeach()

file(WRITE "${OUTPUT}" "#include \"platform/headless/EmbeddedPictures.h\"

#include <array>

namespace zav {
namespace {

${arrays}
constexpr std::array<EmbeddedPicture, ${count}> kPictures{{
${rows}}};

}  // namespace

std::span<const EmbeddedPicture> EmbeddedPictures() { return kPictures; }

}  // namespace zav
")

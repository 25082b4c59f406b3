// Whole files of text, in the encodings that people save them in.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zav {

// In UTF-8, without a byte-order mark. The file is UTF-8, with or without one, or UTF-16 with one.
// Raises InputError, naming the file, for one that cannot be read or is neither.
std::string ReadTextFile(const std::string& path);

// Raises InputError when it cannot be written, such as into a folder that is not there.
void WriteBinaryFile(const std::string& path, const std::vector<std::uint8_t>& bytes);
void WriteTextFile(const std::string& path, std::string_view text);

}  // namespace zav

// Files of the machine, as the platform's file operations want them. Paths are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zav::local_files {

// Folders do not count.
bool Exists(const std::string& path);

// The file at that path; where there is none, one in the same folder whose name differs in case
// only; where there is none either, the path as it is.
std::string FindIgnoringCase(const std::string& path);

// Names are exact. Raises 53 for a file that is missing, 75 for one that cannot be read and for
// what is no file, 7 for one of more than 256 MiB.
std::vector<std::uint8_t> Read(const std::string& path);

// Replaces what was there. Raises 75.
void Write(const std::string& path, const std::vector<std::uint8_t>& bytes);

// The last part of the pattern may hold one "*", which stands for any characters. Folders stay.
// Raises 75 for a file that cannot be deleted.
void Delete(const std::string& pattern);

}  // namespace zav::local_files

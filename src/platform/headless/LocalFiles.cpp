#include "platform/headless/LocalFiles.h"

#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "automation/AutomationError.h"
#include "automation/Text.h"

namespace zav::local_files {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kMostBytes = std::uintmax_t{256} << 20U;

// Names a file that may be meant: other systems find it.
AutomationError NotFoundError(const std::string& path) {
  const std::string found = FindIgnoringCase(path);
  const std::string hint =
      found == path ? std::string() : ", but there is " + fs::path(found).filename().string();
  return {error_number::kFileNotFound, "File not found: " + path + hint};
}

AutomationError AccessError(const std::string& path) {
  return {error_number::kFileAccess, "Path/File access error: " + path};
}

bool Matches(std::string_view name, std::string_view pattern) {
  const std::size_t star = pattern.find('*');
  if (star == std::string_view::npos) return name == pattern;
  const std::string_view begin = pattern.substr(0, star);
  const std::string_view end = pattern.substr(star + 1);
  return name.size() >= begin.size() + end.size() && name.starts_with(begin) && name.ends_with(end);
}

std::uintmax_t SizeToRead(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) throw NotFoundError(path);
  // Anything else, such as a pipe, could be read from without end.
  if (status.type() != fs::file_type::regular) throw AccessError(path);
  const std::uintmax_t size = fs::file_size(path, error);
  if (error) throw AccessError(path);
  if (size > kMostBytes) {
    throw AutomationError(error_number::kOutOfMemory, "File too large: " + path);
  }
  return size;
}

}  // namespace

bool Exists(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

std::string FindIgnoringCase(const std::string& path) {
  if (Exists(path)) return path;
  const fs::path wanted(path);
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(wanted.parent_path(), error)) {
    if (EqualIgnoringCase(entry.path().filename().string(), wanted.filename().string())) {
      return entry.path().string();
    }
  }
  return path;
}

std::vector<std::uint8_t> Read(const std::string& path) {
  std::vector<std::uint8_t> bytes(SizeToRead(path));
  std::ifstream file(path, std::ios::binary);
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (!file) throw AccessError(path);
  return bytes;
}

void Write(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw AccessError(path);
}

void Delete(const std::string& pattern) {
  const fs::path whole(pattern);
  const fs::path folder = whole.has_parent_path() ? whole.parent_path() : fs::path(".");
  std::error_code error;
  std::vector<fs::path> found;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const bool isFolder = fs::is_directory(entry->symlink_status());
    if (!isFolder && Matches(entry->path().filename().string(), whole.filename().string())) {
      found.push_back(entry->path());
    }
  }
  for (const fs::path& path : found) {
    if (!fs::remove(path, error) || error) throw AccessError(path.string());
  }
}

}  // namespace zav::local_files

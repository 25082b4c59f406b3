#include "zavdragdrop/ServedFiles.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

#include "automation/Text.h"
#include "hosting/InputError.h"

namespace zav {
namespace {

namespace fs = std::filesystem;

struct EndingType {
  std::string_view ending;
  std::string_view type;
};

constexpr std::array kTypes = {
    EndingType{".html", "text/html; charset=utf-8"},
    EndingType{".css", "text/css; charset=utf-8"},
    EndingType{".js", "text/javascript; charset=utf-8"},
    EndingType{".mjs", "text/javascript; charset=utf-8"},
    EndingType{".json", "application/json"},
    EndingType{".map", "application/json"},
    EndingType{".wasm", "application/wasm"},
    EndingType{".xml", "application/xml"},
    EndingType{".txt", "text/plain; charset=utf-8"},
    EndingType{".md", "text/plain; charset=utf-8"},
    EndingType{".ts", "text/plain; charset=utf-8"},
    EndingType{".svg", "image/svg+xml"},
    EndingType{".png", "image/png"},
    EndingType{".bmp", "image/bmp"},
    EndingType{".gif", "image/gif"},
    EndingType{".jpg", "image/jpeg"},
    EndingType{".jpeg", "image/jpeg"},
    EndingType{".webp", "image/webp"},
    EndingType{".ico", "image/x-icon"},
};

// The parts of a path between its slashes: "." and ".." are hidden names too.
bool IsPlainName(std::string_view name) { return !name.empty() && name.front() != '.'; }

bool IsPlainPath(std::string_view path) {
  constexpr std::string_view kRefused("\\\0", 2);
  if (path.find_first_of(kRefused) != std::string_view::npos) return false;
  while (true) {
    const std::size_t slash = path.find('/');
    if (!IsPlainName(path.substr(0, slash))) return false;
    if (slash == std::string_view::npos) return true;
    path.remove_prefix(slash + 1);
  }
}

// Both are full paths, free of links.
bool IsBelow(const fs::path& file, const fs::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), file.begin(), file.end()).first ==
         folder.end();
}

}  // namespace

void ServedFiles::AddFolder(std::string prefix, const std::string& folder,
                            const std::string& expected) {
  std::error_code error;
  fs::path path = fs::canonical(folder, error);
  if (error || !fs::is_directory(path, error)) throw InputError(folder, "expected " + expected);
  folders_.push_back({std::move(prefix), std::move(path)});
}

std::optional<fs::path> ServedFiles::Find(std::string_view address) const {
  for (const Folder& folder : folders_) {
    if (!address.starts_with(folder.prefix)) continue;
    const std::string_view rest = address.substr(folder.prefix.size());
    if (!IsPlainPath(rest)) return std::nullopt;
    std::error_code error;
    fs::path file = fs::canonical(folder.path / rest, error);
    if (error || !fs::is_regular_file(file, error)) return std::nullopt;
    if (!IsBelow(file, folder.path)) return std::nullopt;
    return file;
  }
  return std::nullopt;
}

std::string ContentType(const fs::path& file) {
  const std::string ending = file.extension().string();
  for (const EndingType& known : kTypes) {
    if (EqualIgnoringCase(known.ending, ending)) return std::string(known.type);
  }
  return "application/octet-stream";
}

}  // namespace zav

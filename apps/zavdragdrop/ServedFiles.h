// Which file an address stands for.
//
// An address is the path of a request, decoded once, such as "/items/heart/graphics/heart.png".
// It leads to files below the folders that were added and to nothing else, whatever it is made of
// and wherever links in those folders point.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zav {

class ServedFiles {
 public:
  // Addresses that begin with the prefix are files of the folder. The prefix ends with a slash and
  // is not the beginning of another one. Raises InputError, which says what was expected, for a
  // folder that is not there.
  void AddFolder(std::string prefix, const std::string& folder, const std::string& expected);

  // The full path, free of links. Nothing for what is not there or no file, for hidden files and
  // files in hidden folders, and for what leads out of the folder.
  [[nodiscard]] std::optional<std::filesystem::path> Find(std::string_view address) const;

 private:
  struct Folder {
    std::string prefix;
    std::filesystem::path path;  // free of links
  };

  std::vector<Folder> folders_;
};

// By the ending of the file's name, in any case; "application/octet-stream" for unknown ones.
std::string ContentType(const std::filesystem::path& file);

}  // namespace zav

// A folder of the test's own, empty at first and gone with all that is in it at the end.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace zav {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "zavdragdrop-XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::string Path(std::string_view name) const { return (folder_ / name).string(); }

 private:
  std::filesystem::path folder_;
};

}  // namespace zav

// An item folder as it lies on a disk: item.xml, KVStatic.xml and the folder graphics/.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zav {

class ItemFolder {
 public:
  // Reads item.xml. Raises InputError, naming the path, for a folder or a file that is not there.
  explicit ItemFolder(std::string path);

  [[nodiscard]] const std::string& path() const { return path_; }
  // The item in UTF-8. What is set stands for item.xml, whose file stays as it is.
  [[nodiscard]] const std::string& itemXml() const { return itemXml_; }
  void SetItemXml(std::string xml) { itemXml_ = std::move(xml); }
  // Makes it an item in that language. Raises InputError for an item that is not well-formed.
  void SetLanguage(std::string_view language);
  // The item as hosts hand it over: UTF-16LE.
  [[nodiscard]] std::vector<std::uint8_t> ItemBytes() const;

  // Raises InputError, naming file, line and column, unless item.xml and KVStatic.xml are
  // well-formed and there is a folder graphics/.
  void Check() const;

  // The full path of a file that stands in the folder itself; empty when it is not there.
  [[nodiscard]] std::string LocalizePath(std::string_view name) const;
  // The full path that a file in graphics/ has, whether it is there or not: what is missing shows
  // when it is read, with this path. Either slash parts folders. Empty for an empty name and for
  // one that leads out of graphics/.
  [[nodiscard]] std::string GraphicsPath(std::string_view name) const;

 private:
  std::string path_;
  std::string itemXml_;
};

}  // namespace zav

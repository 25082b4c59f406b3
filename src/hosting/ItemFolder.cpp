#include "hosting/ItemFolder.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "document/DataIO.h"
#include "hosting/InputError.h"
#include "hosting/TextFile.h"

namespace zav {
namespace {

namespace fs = std::filesystem;

constexpr const char* kItemFile = "item.xml";
constexpr const char* kStaticFile = "KVStatic.xml";
constexpr const char* kGraphicsFolder = "graphics";

std::string Inside(const std::string& folder, std::string_view name) {
  return (fs::path(folder) / name).string();
}

void RequireFolder(const std::string& path, const std::string& expected) {
  std::error_code error;
  if (!fs::is_directory(path, error)) throw InputError(path, "expected " + expected);
}

void LoadXml(DataIO& document, const std::string& xml, const std::string& file) {
  try {
    // Text that does not begin like XML would be taken for a path.
    const std::size_t first = xml.find_first_not_of(" \t\r\n");
    if (first == std::string::npos || xml[first] != '<') {
      RaiseError(error_number::kComponent, "expected XML");
    }
    document.LoadXml(xml);
  } catch (const AutomationError& error) {
    throw InputError(file, error.Description());
  }
}

}  // namespace

ItemFolder::ItemFolder(std::string path) : path_(std::move(path)) {
  RequireFolder(path_, "an item folder, with item.xml, KVStatic.xml and graphics/ in it");
  itemXml_ = ReadTextFile(Inside(path_, kItemFile));
}

void ItemFolder::SetLanguage(std::string_view language) {
  DataIO document;
  LoadXml(document, itemXml_, Inside(path_, kItemFile));
  document.SetAttribute("Language", language);
  itemXml_ = document.GetXml();
}

std::vector<std::uint8_t> ItemFolder::ItemBytes() const { return Utf8ToUtf16Le(itemXml_); }

void ItemFolder::Check() const {
  DataIO document;
  LoadXml(document, itemXml_, Inside(path_, kItemFile));
  const std::string staticFile = Inside(path_, kStaticFile);
  LoadXml(document, ReadTextFile(staticFile), staticFile);
  RequireFolder(Inside(path_, kGraphicsFolder), "the folder of the item's pictures");
}

std::string ItemFolder::LocalizePath(std::string_view name) const {
  std::string path = Inside(fs::absolute(path_).string(), name);
  std::error_code error;
  return !name.empty() && fs::is_regular_file(path, error) ? path : std::string();
}

std::string ItemFolder::GraphicsPath(std::string_view name) const {
  std::string slashed(name);
  std::replace(slashed.begin(), slashed.end(), '\\', '/');
  const fs::path relative = fs::path(slashed).lexically_normal();
  if (relative.empty() || relative.is_absolute() || *relative.begin() == "..") return {};
  return (fs::absolute(path_) / kGraphicsFolder / relative).lexically_normal().string();
}

}  // namespace zav

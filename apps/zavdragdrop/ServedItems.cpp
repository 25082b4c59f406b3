#include "zavdragdrop/ServedItems.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <system_error>

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "document/DataIO.h"
#include "hosting/InputError.h"
#include "hosting/ItemFolder.h"
#include "hosting/TextFile.h"

namespace zav {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

bool IsItemFolder(const fs::path& folder) {
  std::error_code error;
  return fs::is_regular_file(folder / "item.xml", error);
}

// The item folders in a folder, by name. Hidden ones are no addresses.
std::vector<fs::path> ItemFoldersIn(const std::string& folder) {
  std::vector<fs::path> found;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
    const bool isHidden = entry.path().filename().string().starts_with('.');
    if (!isHidden && IsItemFolder(entry.path())) found.push_back(entry.path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

std::string FreeName(const std::vector<ServedItem>& items, const std::string& wanted) {
  const auto isTaken = [&](const std::string& name) {
    return std::any_of(items.begin(), items.end(),
                       [&](const ServedItem& item) { return item.name == name; });
  };
  std::string name = wanted;
  for (int number = 2; isTaken(name); ++number) name = wanted + "-" + std::to_string(number);
  return name;
}

// Also for paths such as "." and "items/heart/".
std::string FolderName(const fs::path& folder) { return fs::canonical(folder).filename().string(); }

std::string TitleOf(DataIO& item, const std::string& name) {
  if (!item.FindNode("ItemStem")) return name;
  item.SetFromRoot(false);
  std::string title = item.FindNode("Heading") ? ToText(item.GetText()) : std::string();
  return title.empty() ? name : title;
}

std::vector<std::string> LanguagesOf(const DataIO& item, const DataIO& texts) {
  std::vector<std::string> languages = {ToText(item.GetAttribute("Language"))};
  for (std::int32_t i = 0; i < texts.ChildCount(); ++i) {
    const std::string language = ToText(texts.GetChildAttribute(i, "Id"));
    if (language != languages.front()) languages.push_back(language);
  }
  return languages;
}

Json Describe(const ServedItem& served) {
  Json json{{"name", served.name}, {"title", served.name}, {"languages", Json::array()}};
  try {
    DataIO item;
    item.LoadXml(ItemFolder(served.folder).itemXml());
    DataIO texts;
    texts.LoadXml(ReadTextFile((fs::path(served.folder) / "KVStatic.xml").string()));
    json["languages"] = LanguagesOf(item, texts);
    json["title"] = TitleOf(item, served.name);
  } catch (const InputError&) {  // shows when the item is loaded
  } catch (const AutomationError&) {
  }
  return json;
}

}  // namespace

std::vector<ServedItem> FindItems(const std::vector<std::string>& folders) {
  std::vector<ServedItem> items;
  for (const std::string& folder : folders) {
    const std::vector<fs::path> found =
        IsItemFolder(folder) ? std::vector<fs::path>{folder} : ItemFoldersIn(folder);
    if (found.empty()) {
      throw InputError(folder,
                       "expected an item folder, with item.xml in it, or a folder that holds some");
    }
    for (const fs::path& item : found) {
      items.push_back({FreeName(items, FolderName(item)), item.string()});
    }
  }
  return items;
}

std::string ListItems(const std::vector<ServedItem>& items) {
  Json list = Json::array();
  for (const ServedItem& item : items) list.push_back(Describe(item));
  return list.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace zav

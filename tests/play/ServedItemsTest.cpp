#include "zavdragdrop/ServedItems.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "hosting/InputError.h"
#include "hosting/TextFile.h"
#include "support/TemporaryFolder.h"

namespace zav {
namespace {

namespace fs = std::filesystem;

void WriteItem(const TemporaryFolder& folder, const std::string& name, const std::string& itemXml) {
  fs::create_directories(folder.Path(name));
  WriteTextFile(folder.Path(name + "/item.xml"), itemXml);
  WriteTextFile(folder.Path(name + "/KVStatic.xml"),
                "<Root><Language Id=\"en\"/><Language Id=\"fr\"/></Root>");
}

std::string Names(const std::vector<std::string>& folders) {
  std::string names;
  for (const ServedItem& item : FindItems(folders)) names += item.name + " ";
  return names;
}

TEST(ServedItems, TakesItemFoldersAndFoldersThatHoldThem) {
  const TemporaryFolder folder;
  for (const char* name : {"shelf/b", "shelf/a", "shelf/.hidden", "other/a", "other/empty/deep"}) {
    WriteItem(folder, name, "<DragAndDropItem/>");
  }
  const std::string shelf = folder.Path("shelf");
  const struct {
    const char* why;
    std::vector<std::string> folders;
    std::string want;
  } rows[] = {
      {"an item", {shelf + "/b"}, "b "},
      {"with a slash at its end", {shelf + "/b/"}, "b "},
      {"by way of its own name", {shelf + "/b/."}, "b "},
      {"a folder of items, by name", {shelf}, "a b "},
      {"in the order given, and each name once",
       {shelf + "/b", shelf, folder.Path("other")},
       "b a b-2 a-2 "},
  };
  for (const auto& row : rows) EXPECT_EQ(Names(row.folders), row.want) << row.why;
  for (const char* name : {"no-such", "other/empty/deep/item.xml", ""}) {
    EXPECT_THROW(Names({shelf, folder.Path(name)}), InputError) << name;
  }
}

TEST(ServedItems, TellsTitlesAndLanguages) {
  const struct {
    const char* why;
    const char* itemXml;
    const char* want;
  } rows[] = {
      {"a heading, not that of another part",
       "<D Language=\"fr\"><W><Heading>Work</Heading></W><ItemStem><Heading>A \"B\" &amp; C"
       "</Heading></ItemStem></D>",
       R"([{"name":"item","title":"A \"B\" & C","languages":["fr","en"]}])"},
      {"no heading", "<D Language=\"en\"><ItemStem/><W><Heading>Work</Heading></W></D>",
       R"([{"name":"item","title":"item","languages":["en","fr"]}])"},
      {"not XML", "<D", R"([{"name":"item","title":"item","languages":[]}])"},
      {"not UTF-8", "<D>\xE9</D>", R"([{"name":"item","title":"item","languages":[]}])"},
  };
  for (const auto& row : rows) {
    const TemporaryFolder folder;
    WriteItem(folder, "item", row.itemXml);
    EXPECT_EQ(ListItems(FindItems({folder.Path("item")})), row.want) << row.why;
  }
}

TEST(ServedItems, ReadsAnewWhatAnAuthorChanges) {
  const TemporaryFolder folder;
  WriteItem(folder, "item", "<D");
  const std::vector<ServedItem> items = FindItems({folder.Path("")});
  WriteItem(folder, "item", "<D Language=\"en\"><ItemStem><Heading>New</Heading></ItemStem></D>");
  EXPECT_EQ(ListItems(items), R"([{"name":"item","title":"New","languages":["en","fr"]}])");
  fs::remove_all(folder.Path("item"));
  EXPECT_EQ(ListItems(items), R"([{"name":"item","title":"item","languages":[]}])");
}

}  // namespace
}  // namespace zav

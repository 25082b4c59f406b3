#include "hosting/ItemFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "automation/Text.h"
#include "hosting/InputError.h"
#include "hosting/TextFile.h"
#include "support/TemporaryFolder.h"

namespace zav {
namespace {

using namespace std::string_literals;

template <typename Action>
std::string ErrorOf(Action action) {
  try {
    action();
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

TEST(ItemFolder, PlacesPicturesInItsGraphicsFolderOnly) {
  const ItemFolder item("items/heart");
  const std::string graphics = std::filesystem::absolute("items/heart/graphics").string() + "/";
  const struct {
    const char* why;
    const char* name;
    std::string want;
  } rows[] = {
      {"a file that is there", "heart.png", graphics + "heart.png"},
      {"a missing one shows when it is loaded", "no.png", graphics + "no.png"},
      {"no name, no path", "", ""},
      {"a folder, with the other slash", "parts\\a.png", graphics + "parts/a.png"},
      {"through a folder and back", "parts/../a.png", graphics + "a.png"},
      {"out of the folder", "../item.xml", ""},
      {"out of it by a way round", "a/../../item.xml", ""},
      {"out of it with the other slash", "..\\item.xml", ""},
      {"somewhere else altogether", "/etc/passwd", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(item.GraphicsPath(row.name), row.want) << row.why;
  EXPECT_EQ(item.LocalizePath("no.xml"), "") << "a host says so when a file of texts is missing";
}

TEST(ItemFolder, ReadsItemsInTheEncodingsThatPeopleSaveThemIn) {
  const struct {
    const char* why;
    std::string file;
    std::string want;  // the text, or the error behind the file's name
  } rows[] = {
      {"UTF-8", "<a>\xC3\xA9</a>", "<a>\xC3\xA9</a>"},
      {"UTF-8 with a mark", "\xEF\xBB\xBF<a/>", "<a/>"},
      {"UTF-16", "\xFF\xFE<\0a\0/\0>\0"s, "<a/>"},
      {"UTF-16, high bytes first", "\xFE\xFF\0<\0a\0/\0>"s, "<a/>"},
      {"another encoding", "<a>\n\xE9</a>",
       ": expected text in UTF-8, or in UTF-16 with a byte-order mark: Ill-formed UTF-8 at line 2, "
       "column 1"},
      {"UTF-16 cut in a character", "\xFF\xFE<\0a"s,
       ": expected text in UTF-8, or in UTF-16 with a byte-order mark: Half a UTF-16 "
       "unit at line 1, column 2"},
  };
  for (const auto& row : rows) {
    const TemporaryFolder folder;
    WriteTextFile(folder.Path("item.xml"), row.file);
    std::string got;
    const std::string error = ErrorOf([&] { got = ItemFolder(folder.Path("")).itemXml(); });
    const std::size_t nameEnd = error.find("item.xml") + 8;
    EXPECT_EQ(error.empty() ? got : error.substr(nameEnd), row.want) << row.why;
  }
}

TEST(ItemFolder, SaysWhatIsMissingOrBroken) {
  const TemporaryFolder folder;
  const auto check = [&] {
    const std::string error = ErrorOf([&] { ItemFolder(folder.Path("item")).Check(); });
    return error.substr(std::min(error.find("item"), error.size()));
  };
  EXPECT_EQ(check(),
            "item: expected an item folder, with item.xml, KVStatic.xml and graphics/ in "
            "it");
  std::filesystem::create_directory(folder.Path("item"));
  EXPECT_EQ(check(), "item/item.xml: expected a file that can be read");
  WriteTextFile(folder.Path("item/item.xml"), "an item");
  EXPECT_EQ(check(), "item/item.xml: expected XML");
  WriteTextFile(folder.Path("item/item.xml"), "<a>\n<b></a>");
  EXPECT_TRUE(Contains(check(), "item/item.xml: ") && Contains(check(), "line 2, column"))
      << check();
  WriteTextFile(folder.Path("item/item.xml"), "<a/>");
  EXPECT_EQ(check(), "item/KVStatic.xml: expected a file that can be read");
  WriteTextFile(folder.Path("item/KVStatic.xml"), "<Root/>");
  EXPECT_EQ(check(), "item/graphics: expected the folder of the item's pictures");
  std::filesystem::create_directory(folder.Path("item/graphics"));
  EXPECT_EQ(check(), "");
}

}  // namespace
}  // namespace zav

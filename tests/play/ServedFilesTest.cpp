#include "zavdragdrop/ServedFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "hosting/InputError.h"
#include "hosting/TextFile.h"
#include "support/TemporaryFolder.h"

namespace zav {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

// A folder that is served, with a secret beside it.
class ServedFilesTest : public testing::Test {
 protected:
  ServedFilesTest() {
    fs::create_directories(folder_.Path("item/graphics/.hidden"));
    fs::create_directories(folder_.Path("item-2"));
    for (const char* file : {"item/item.xml", "item/graphics/a b.png", "item/..dots.png",
                             "item/graphics/.hidden/a.png", "secret.txt", "item-2/secret.txt"}) {
      WriteTextFile(folder_.Path(file), "x");
    }
    fs::create_symlink("../secret.txt", folder_.Path("item/out.txt"));
    fs::create_directory_symlink("../item-2", folder_.Path("item/other"));
    fs::create_symlink("graphics/a b.png", folder_.Path("item/in.png"));
    fs::create_symlink("loop", folder_.Path("item/loop"));
    fs::create_directory_symlink("item", folder_.Path("link"));
  }

  // What is found, from the test's folder on; empty for nothing.
  std::string Found(const std::string& served, std::string_view address) {
    ServedFiles files;
    files.AddFolder("/items/item/", folder_.Path(served), "an item");
    const auto file = files.Find(address);
    return file ? fs::relative(*file, fs::canonical(folder_.Path(""))).string() : "";
  }

  TemporaryFolder folder_;
};

TEST_F(ServedFilesTest, FindsFilesOfItsFolderOnly) {
  const struct {
    const char* why;
    std::string address;
    std::string want;
  } rows[] = {
      {"a file", "/items/item/item.xml", "item/item.xml"},
      {"in a folder, with a blank", "/items/item/graphics/a b.png", "item/graphics/a b.png"},
      {"a link that stays inside", "/items/item/in.png", "item/graphics/a b.png"},
      {"no file", "/items/item/no.xml", ""},
      {"a folder", "/items/item/graphics", ""},
      {"a folder, as such", "/items/item/graphics/", ""},
      {"the folder itself", "/items/item/", ""},
      {"a file as a folder", "/items/item/item.xml/", ""},
      {"another folder's address", "/player/item.xml", ""},
      {"the prefix in another case", "/Items/item/item.xml", ""},
      {"no address at all", "", ""},
      {"an absolute address of another machine", "http://x/items/item/item.xml", ""},
      {"up and out", "/items/item/../secret.txt", ""},
      {"up and in again", "/items/item/graphics/../item.xml", ""},
      {"through here", "/items/item/./item.xml", ""},
      {"up at the end", "/items/item/graphics/..", ""},
      {"a full path", "/items/item//etc/passwd", ""},
      {"an empty name", "/items/item/graphics//a b.png", ""},
      {"up with the other slash", "/items/item/..\\secret.txt", ""},
      {"the other slash", "/items/item/graphics\\a b.png", ""},
      {"encoded twice, and decoded once", "/items/item/%2e%2e/secret.txt", ""},
      {"cut by a NUL", "/items/item/item.xml\0.png"s, ""},
      {"more dots than two", "/items/item/..dots.png", ""},
      {"in a hidden folder", "/items/item/graphics/.hidden/a.png", ""},
      {"a link out", "/items/item/out.txt", ""},
      {"a link into a folder whose name begins the same", "/items/item/other/secret.txt", ""},
      {"a link to itself", "/items/item/loop", ""},
      {"a name too long for any file", "/items/item/" + std::string(5000, 'a'), ""},
  };
  for (const auto& row : rows) EXPECT_EQ(Found("item", row.address), row.want) << row.why;
  EXPECT_EQ(Found("link", "/items/item/item.xml"), "item/item.xml") << "the folder is a link";
  EXPECT_EQ(Found("item/", "/items/item/item.xml"), "item/item.xml") << "with a slash";
}

TEST_F(ServedFilesTest, RefusesFoldersThatAreNotThere) {
  for (const char* folder : {"no-such", "secret.txt"}) {
    EXPECT_THROW(Found(folder, "/"), InputError) << folder;
  }
}

TEST(ServedFiles, TellsBrowsersTheTypeTheyInsistOn) {
  const struct {
    const char* file;
    const char* want;
  } rows[] = {
      {"zav-drag-drop.wasm", "application/wasm"},
      {"player.js", "text/javascript; charset=utf-8"},
      {"zav-drag-drop.d.ts", "text/plain; charset=utf-8"},
      {"FRAME.BMP", "image/bmp"},
      {"item.xml.bak", "application/octet-stream"},
      {"no-ending", "application/octet-stream"},
  };
  for (const auto& row : rows) EXPECT_EQ(ContentType(row.file), row.want);
}

}  // namespace
}  // namespace zav

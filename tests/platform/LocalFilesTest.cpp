// Files as the component reads, writes and deletes them.
#include "platform/headless/LocalFiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "support/Raised.h"
#include "support/TemporaryFolder.h"

namespace zav {
namespace {

TEST(LocalFiles, FailByWhatIsThere) {
  const TemporaryFolder folder;
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  local_files::Write(folder.Path("large"), {});
  std::filesystem::resize_file(folder.Path("large"), (std::uintmax_t{256} << 20U) + 1);
  const struct {
    const char* why;
    std::string path;
    int want;
  } rows[] = {
      {"missing", folder.Path("missing"), error_number::kFileNotFound},
      {"in a missing folder", folder.Path("none/missing"), error_number::kFileNotFound},
      {"no name", "", error_number::kFileNotFound},
      {"a folder", folder.Path(""), error_number::kFileAccess},
      {"a pipe that nobody writes to", pipe, error_number::kFileAccess},
      {"more than can be held", folder.Path("large"), error_number::kOutOfMemory},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Catch([&] { local_files::Read(row.path); }).number, row.want) << row.why;
  }
  EXPECT_EQ(Catch([&] { local_files::Write(folder.Path("none/new"), {1}); }).number,
            error_number::kFileAccess);
  EXPECT_FALSE(local_files::Exists(folder.Path("")));
}

TEST(LocalFiles, AreNamedExactly) {
  const TemporaryFolder folder;
  local_files::Write(folder.Path("Heart.png"), {1});
  const Raised raised = Catch([&] { local_files::Read(folder.Path("heart.png")); });
  EXPECT_EQ(raised.number, error_number::kFileNotFound);
  EXPECT_EQ(raised.description,
            "File not found: " + folder.Path("heart.png") + ", but there is Heart.png");
  EXPECT_FALSE(local_files::Exists(folder.Path("heart.png")));
}

TEST(LocalFiles, AreReplacedAndReadWhole) {
  const TemporaryFolder folder;
  local_files::Write(folder.Path("a"), {1, 0, 2, 13, 10, 255});
  local_files::Write(folder.Path("a"), {7, 0});
  EXPECT_EQ(local_files::Read(folder.Path("a")), (std::vector<std::uint8_t>{7, 0}));
}

TEST(LocalFiles, AreDeletedByPattern) {
  const struct {
    const char* why;
    const char* pattern;
    const char* wantLeft;
  } rows[] = {
      {"a star in front", "*kvt.htm", "a.htm kvt.bmp "},
      {"a star within", "k*t.htm", "1kvt.htm a.htm kvt.bmp "},
      {"the star stands for at least nothing, and nothing counts twice", "kvt.h*htm",
       "1kvt.htm a.htm kvt.bmp kvt.htm "},
      {"a name", "a.htm", "1kvt.htm kvt.bmp kvt.htm "},
      {"no match", "*.gif", "1kvt.htm a.htm kvt.bmp kvt.htm "},
      {"all but folders", "*", ""},
      {"no such folder", "none/*", "1kvt.htm a.htm kvt.bmp kvt.htm "},
  };
  for (const auto& row : rows) {
    const TemporaryFolder folder;
    for (const char* name : {"1kvt.htm", "a.htm", "kvt.bmp", "kvt.htm"}) {
      local_files::Write(folder.Path(name), {});
    }
    std::filesystem::create_directory(folder.Path("folderkvt.htm"));
    local_files::Delete(folder.Path(row.pattern));
    std::string left;
    for (const char* name : {"1kvt.htm", "a.htm", "kvt.bmp", "kvt.htm"}) {
      if (local_files::Exists(folder.Path(name))) left += std::string(name) + " ";
    }
    EXPECT_EQ(left, row.wantLeft) << row.why;
    EXPECT_TRUE(std::filesystem::exists(folder.Path("folderkvt.htm"))) << row.why;
  }
}

}  // namespace
}  // namespace zav

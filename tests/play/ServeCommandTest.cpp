// Whole requests to a server that listens.
#include "zavdragdrop/ServeCommand.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "automation/Text.h"
#include "hosting/InputError.h"
#include "hosting/TextFile.h"
#include "support/TemporaryFolder.h"

namespace zav {
namespace {

namespace fs = std::filesystem;

class ServeTest : public testing::Test {
 protected:
  ServeTest() {
    for (const char* name : {"package", "player", "item", "item/graphics"}) {
      fs::create_directory(folder_.Path(name));
    }
    const std::pair<const char*, std::string> files[] = {
        {"package/zav-drag-drop.js", std::string(100'000, 'a')},
        {"package/zav-drag-drop.wasm", "wasm"},
        {"package/empty.css", ""},
        {"player/index.html", "<title>Player</title>"},
        {"item/item.xml", "<D Language=\"en\"><ItemStem><Heading>One</Heading></ItemStem></D>"},
        {"item/KVStatic.xml", "<Root/>"},
        {"secret.txt", "secret"},
    };
    for (const auto& [name, text] : files) WriteTextFile(folder_.Path(name), text);
    options_.folders = {folder_.Path("item")};
    options_.package = folder_.Path("package");
    options_.player = folder_.Path("player");
  }

  httplib::Client Open() {
    if (!server_) {
      server_ = std::make_unique<LoopbackServer>(OpenContent(options_));
      EXPECT_TRUE(server_->Listen(0));
    }
    httplib::Client client("127.0.0.1", server_->port());
    client.set_read_timeout(5);
    return client;
  }

  TemporaryFolder folder_;
  ServeOptions options_;
  std::unique_ptr<LoopbackServer> server_;
};

TEST_F(ServeTest, AnswersWhatABrowserAsksFor) {
  httplib::Client client = Open();
  const struct {
    const char* address;
    const char* type;
    std::string body;
  } rows[] = {
      {"/", "text/html; charset=utf-8", "<title>Player</title>"},
      {"/package/zav-drag-drop.js", "text/javascript; charset=utf-8", std::string(100'000, 'a')},
      {"/package/zav-drag-drop.wasm", "application/wasm", "wasm"},
      {"/package/empty.css", "text/css; charset=utf-8", ""},
      {"/items/", "application/json", R"([{"name":"item","title":"One","languages":["en"]}])"},
      {"/items/item/KVStatic.xml", "application/xml", "<Root/>"},
      {"/items/item/KVStatic.xml?x=../", "application/xml", "<Root/>"},
  };
  for (const auto& row : rows) {
    const auto got = client.Get(row.address, {{"Accept-Encoding", "br, gzip"}});
    ASSERT_TRUE(got) << row.address << ": " << to_string(got.error());
    EXPECT_EQ(got->status, 200) << row.address;
    EXPECT_EQ(got->body, row.body) << row.address;
    EXPECT_EQ(got->get_header_value("Content-Type"), row.type) << row.address;
    const auto head = client.Head(row.address);
    ASSERT_TRUE(head) << row.address;
    EXPECT_EQ(head->get_header_value("Content-Length"), std::to_string(row.body.size()))
        << row.address;
  }
}

TEST_F(ServeTest, GivesAwayNothingElse) {
  httplib::Client client = Open();
  const struct {
    const char* why;
    const char* address;
  } rows[] = {
      {"up", "/items/item/../../secret.txt"},
      {"up, encoded", "/items/item/%2e%2e/%2E%2E/secret.txt"},
      {"a slash, encoded", "/items/item/..%2f..%2fsecret.txt"},
      {"encoded twice", "/items/item/%252e%252e/secret.txt"},
      {"another way of encoding", "/items/item/%u002e%u002e/secret.txt"},
      {"more bytes than a dot needs", "/items/item/%c0%ae%c0%ae/secret.txt"},
      {"the other slash, encoded", "/items/item/..%5c..%5csecret.txt"},
      {"a NUL, encoded", "/items/item/item.xml%00.png"},
      {"a full path", "//etc/passwd"},
      {"a folder", "/items/item"},
      {"no item of that name", "/items/other/item.xml"},
  };
  for (const auto& row : rows) {
    const auto got = client.Get(row.address);
    ASSERT_TRUE(got) << row.why;
    EXPECT_EQ(got->status, 404) << row.why;
    EXPECT_FALSE(Contains(got->body, "secret")) << row.why;
  }
}

TEST_F(ServeTest, TakesOnlyReadingRequestsForThisMachine) {
  httplib::Client client = Open();
  const struct {
    const char* why;
    const char* method;
    const char* host;
    int want;
  } rows[] = {
      {"another name for it", "GET", "localhost:80", 200},
      {"a page from elsewhere that had its name point here", "GET", "pages.example", 403},
      {"a name that only begins like this machine's", "GET", "127.0.0.1.example", 403},
      {"no name", "GET", "", 403},
      {"writing", "PUT", "127.0.0.1", 405},
      {"sending", "POST", "127.0.0.1", 405},
      {"deleting", "DELETE", "127.0.0.1", 405},
      {"asking for what is allowed", "OPTIONS", "127.0.0.1", 405},
  };
  for (const auto& row : rows) {
    httplib::Request request;
    request.method = row.method;
    request.path = "/items/item/item.xml";
    request.headers = {{"Host", row.host}};
    const auto got = client.send(request);
    ASSERT_TRUE(got) << row.why;
    EXPECT_EQ(got->status, row.want) << row.why;
    EXPECT_EQ(got->get_header_value("X-Content-Type-Options"), "nosniff") << row.why;
    EXPECT_TRUE(got->get_header_value("Content-Security-Policy").starts_with("default-src 'none'"))
        << row.why;
  }
  EXPECT_EQ(ReadTextFile(folder_.Path("item/KVStatic.xml")), "<Root/>");
}

TEST_F(ServeTest, SendsAFileAgainOnlyWhenItChanged) {
  httplib::Client client = Open();
  const std::string address = "/items/item/item.xml";
  const std::string tag = client.Get(address)->get_header_value("ETag");
  const auto same = client.Get(address, {{"If-None-Match", tag}});
  EXPECT_EQ(same->status, 304);
  EXPECT_EQ(same->body, "");
  WriteTextFile(folder_.Path("item/item.xml"), "<changed/>");
  EXPECT_EQ(client.Get(address, {{"If-None-Match", tag}})->body, "<changed/>");
}

TEST_F(ServeTest, SendsPartsThatThereAre) {
  httplib::Client client = Open();
  const struct {
    const char* range;
    int status;
    std::string body;
  } rows[] = {
      {"bytes=1-2", 206, "as"},      {"bytes=2-", 206, "sm"}, {"bytes=4-", 416, ""},
      {"bytes=999999999-", 416, ""}, {"bytes=2-1", 416, ""},
  };
  for (const auto& row : rows) {
    const auto got = client.Get("/package/zav-drag-drop.wasm", {{"Range", row.range}});
    ASSERT_TRUE(got) << row.range;
    EXPECT_EQ(got->status, row.status) << row.range;
    EXPECT_EQ(got->body, row.body) << row.range;
  }
}

TEST_F(ServeTest, ListensWhereNobodyElseDoes) {
  Open();
  LoopbackServer second(OpenContent(options_));
  EXPECT_FALSE(second.Listen(server_->port()));
  EXPECT_TRUE(second.Listen(0));
  EXPECT_NE(second.port(), server_->port());
}

TEST_F(ServeTest, SaysWhatIsMissing) {
  const auto error = [this] {
    try {
      OpenContent(options_);
    } catch (const InputError& raised) {
      return std::string(raised.what());
    }
    return std::string();
  };
  EXPECT_EQ(error(), "");
  fs::remove(folder_.Path("package/zav-drag-drop.js"));
  EXPECT_EQ(error(), folder_.Path("package") +
                         ": expected the built web package, with zav-drag-drop.js in it; run "
                         "tools/build-web");
  options_.player = folder_.Path("no-player");
  EXPECT_EQ(error(), folder_.Path("no-player") + ": expected the files of the player's page");
  options_.folders = {folder_.Path("no-item")};
  EXPECT_EQ(error(), folder_.Path("no-item") +
                         ": expected an item folder, with item.xml in it, or a folder that holds "
                         "some");
}

}  // namespace
}  // namespace zav

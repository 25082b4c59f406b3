// The samples, played from the first step to the last. What was expected of them stands in
// tests/play/expected; with ZAV_ACCEPT=1 in the environment what happens now is written there.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "automation/Text.h"
#include "hosting/InputError.h"
#include "hosting/TextFile.h"
#include "support/ItemFixture.h"
#include "support/TemporaryFolder.h"
#include "zavdragdrop/PlayCommand.h"

namespace zav {
namespace {

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// Where two transcripts part, with the steps before it.
std::string FirstDifference(const std::string& expected, const std::string& actual) {
  constexpr std::size_t kLinesBefore = 5;
  const std::vector<std::string> want = Lines(expected);
  const std::vector<std::string> have = Lines(actual);
  std::size_t at = 0;
  while (at < want.size() && at < have.size() && want[at] == have[at]) ++at;
  std::string text = "line " + std::to_string(at + 1) + ":\n";
  for (std::size_t i = at < kLinesBefore ? 0 : at - kLinesBefore; i < at; ++i) {
    text += "    " + want[i] + "\n";
  }
  text += "  - " + (at < want.size() ? want[at] : "(the end)") + "\n";
  return text + "  + " + (at < have.size() ? have[at] : "(the end)") + "\n";
}

void ExpectTranscript(const std::string& name, const std::string& actual) {
  const std::string file = "tests/play/expected/" + name + ".txt";
  if (std::getenv("ZAV_ACCEPT") != nullptr) return WriteTextFile(file, actual);
  const std::string expected = std::filesystem::exists(file) ? ReadTextFile(file) : "";
  EXPECT_TRUE(actual == expected) << file << ", " << FirstDifference(expected, actual)
                                  << "If this is right, accept it: ZAV_ACCEPT=1, then this test.";
}

TEST(Transcript, TellsAllThatHappensToTheSamples) {
  std::filesystem::create_directories("build");  // where the scripts keep states
  const struct {
    const char* name;
    const char* item;
    const char* script;
    std::int32_t lOptions;
  } rows[] = {
      {"heart", "items/heart", "play.txt", 0},
      {"circuit", "items/circuit", "play.txt", 0},
      {"elements", "items/elements", "play.txt", 0},
      {"ledger", "items/ledger", "play.txt", 0},
      {"heart-everything", "items/heart", "everything.txt", 0x110},
      {"circuit-everything", "items/circuit", "everything.txt", 0x110},
      {"elements-everything", "items/elements", "everything.txt", 0x110},
      {"ledger-everything", "items/ledger", "everything.txt", 0x110},
  };
  for (const auto& row : rows) {
    PlayOptions options;
    options.folder = row.item;
    options.script = std::string(row.item) + "/" + row.script;
    options.host.lOptions = row.lOptions;
    std::ostringstream out;
    EXPECT_TRUE(Play(options, out)) << row.name << ": something was logged";
    ExpectTranscript(row.name, out.str());
  }
}

// Plays a script on the heart.
std::string PlayHeart(const std::string& script, Transcript::Format format, bool* isClean) {
  const TemporaryFolder folder;
  PlayOptions options;
  options.folder = "items/heart";
  options.script = folder.Path("script.txt");
  options.format = format;
  WriteTextFile(options.script, script);
  std::ostringstream out;
  const bool played = Play(options, out);
  if (isClean != nullptr) *isClean = played;
  return out.str();
}

TEST(Transcript, WritesOneJsonObjectALine) {
  const std::string begin =
      "{\"event\":\"step\",\"text\":\"load\"}\n"
      "{\"event\":\"step\",\"line\":1,\"text\":\"show\"}\n"
      "{\"event\":\"responses\",\"responses\":[]}\n"
      "{\"event\":\"step\",\"line\":2,\"text\":\"drag source 9 to target 1\"}\n"
      "{\"event\":\"responses\",\"responses\":[\"A1\"]}\n"
      "{\"event\":\"step\",\"line\":3,\"text\":\"score\"}\n"
      "{\"event\":\"score\",\"raw\":1.0,\"max\":6.0,\"min\":0.0,\"correct\":1,"
      "\"incorrect\":0,\"notAttempted\":0,\"notScored\":0}\n"
      "{\"event\":\"responses\",\"responses\":[\"A1\"]}\n"
      "{\"event\":\"step\",\"text\":\"end\"}\n"
      "{\"event\":\"responses\",\"responses\":[\"A1\"]}\n"
      "{\"event\":\"state\",\"text\":\"<State><Responses><Response>A1</Response>";
  const std::string json =
      PlayHeart("show\ndrag source 9 to target 1\nscore\n", Transcript::Format::JsonLines, nullptr);
  EXPECT_EQ(json.substr(0, begin.size()), begin);
}

TEST(Transcript, NamesTheLineOfAStepThatCannotBeDone) {
  const struct {
    const char* why;
    const char* script;
    const char* want;
  } rows[] = {
      {"no such source", "show\nresize 1024 768\ndrag source 99 to target 1",
       "line 3: source 99: the item has none of that name"},
      {"not shown yet", "press source 1", "line 1: source 1: is out of sight; scroll to it first"},
      {"below what the area shows", "show\nresize 600 400\ndrag source 1 to target 6",
       "line 3: target 6: is out of sight; scroll to it first"},
      {"under the instructions", "show\nresize 800 600\nclick instructions\npress target 2",
       "line 4: target 2: is covered by another window; close it first"},
      {"under what glides home", "show\nresize 1024 768\ndrag source 9 to source 1\npress source 1",
       "line 4: source 1: is covered by txtDrag; let it go away first"},
      {"a button that is not offered", "show\nclick calculator",
       "line 2: btnCalculator: the footer shows no such button"},
      {"no window to close", "show\nclose-window",
       "line 2: close-window: neither the calculator nor the instructions are open"},
      {"a folder that is not there", "show\npicture no/such/folder/x.png",
       "line 2: no/such/folder/x.png: expected a file that can be written, in a folder that is "
       "there"},
  };
  for (const auto& row : rows) {
    try {
      PlayHeart(row.script, Transcript::Format::Text, nullptr);
      ADD_FAILURE() << row.why << ": was played";
    } catch (const InputError& error) {
      const std::string message = error.what();
      EXPECT_EQ(message.substr(std::min(message.find("line "), message.size())), row.want)
          << row.why;
    }
  }
}

TEST(Transcript, TellsOfErrorsAndPlaysOn) {
  bool isClean = true;
  const std::string transcript = PlayHeart("show\nrescore <Responses><broken</Responses>\nstate\n",
                                           Transcript::Format::Text, &isClean);
  EXPECT_FALSE(isClean);
  EXPECT_TRUE(Contains(transcript, "  logged: DisplayInt_RescoreExternalDisplay: ")) << transcript;
  EXPECT_TRUE(Contains(transcript, "  message: Error: Description - ")) << transcript;
  EXPECT_TRUE(Contains(transcript, "\nend\n")) << transcript;
}

}  // namespace
}  // namespace zav

#include "zavdragdrop/PlayScript.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hosting/InputError.h"

namespace zav {
namespace {

std::string ErrorOf(const std::string& script) {
  try {
    ReadPlayScript(script, "play.txt");
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

TEST(PlayScript, SaysWhereALineGoesWrongAndWhatWasExpectedThere) {
  const struct {
    const char* why;
    const char* script;
    const char* want;
  } rows[] = {
      {"a wrong small word", "show\n\ndrag source 3 onto target 1",
       "play.txt, line 3: expected \"to\" instead of \"onto\" in \"drag source 3 onto target 1\""},
      {"the line ends too early", "resize 800",
       "play.txt, line 1: expected a number of pixels, 1 to 8192 instead of the end in "
       "\"resize 800\""},
      {"not a number", "wait long",
       "play.txt, line 1: expected a number of milliseconds, 0 to 3600000 instead of \"long\" in "
       "\"wait long\""},
      {"a number with something behind it", "wait 5s",
       "play.txt, line 1: expected a number of milliseconds, 0 to 3600000 instead of \"5s\" in "
       "\"wait 5s\""},
      {"more than a number can hold", "wait 99999999999",
       "play.txt, line 1: expected a number of milliseconds, 0 to 3600000 instead of "
       "\"99999999999\" in \"wait 99999999999\""},
      {"an empty form cannot be shown", "resize 0 600",
       "play.txt, line 1: expected a number of pixels, 1 to 8192 instead of \"0\" in "
       "\"resize 0 600\""},
      {"a place is dragged, not an item", "drag nowhere to target 1",
       "play.txt, line 1: expected \"source ID\" or \"target ID\" instead of \"nowhere\" in "
       "\"drag nowhere to target 1\""},
      {"an item without its id", "press source",
       "play.txt, line 1: expected \"source ID\", \"target ID\", \"source-area\", \"nowhere\" or "
       "\"X Y\" instead of \"source\" in \"press source\""},
      {"half a pixel", "move to 500",
       "play.txt, line 1: expected \"source ID\", \"target ID\", \"source-area\", \"nowhere\" or "
       "\"X Y\" instead of \"500\" in \"move to 500\""},
      {"several ways to go on", "scroll stem down 5",
       "play.txt, line 1: expected \"to\" or \"by\" instead of \"down\" in \"scroll stem down 5\""},
      {"something behind a whole step", "hide now",
       "play.txt, line 1: expected the end of the line instead of \"now\" in \"hide now\""},
      {"words are small", "answer ok",
       "play.txt, line 1: expected \"OK\" or \"Cancel\" instead of \"ok\" in \"answer ok\""},
      {"a key that keyboards do not have", "key Any",
       "play.txt, line 1: expected a key, such as \"Delete\", \"Enter\" or \"Alt+R\" or the end of "
       "the line instead of \"Any\" in \"key Any\""},
      {"a file without a name, but with a comment", "picture # later",
       "play.txt, line 1: expected the name of a file instead of the end in \"picture\""},
  };
  for (const auto& row : rows) EXPECT_EQ(ErrorOf(row.script), row.want) << row.why;
  EXPECT_EQ(ErrorOf("jump").substr(0, 53), "play.txt, line 1: expected one of show, hide, resize,");
}

TEST(PlayScript, ReadsStepsWithTheirLines) {
  const PlayScript script = ReadPlayScript(
      "# comment\r\n\r\n  show  # at once\r\n\tdrag  source s#2 to  120  -80\r\n"
      "scroll work-area by -5 7\nkey\nkey Alt+r\nrescore A3,  B1 \npicture my file.png",
      "play.txt");
  std::string lines;
  for (const Step& step : script.steps) lines += std::to_string(step.line) + " " + step.text + "\n";
  EXPECT_EQ(lines,
            "3 show\n4 drag source s#2 to 120 -80\n5 scroll work-area by -5 7\n6 key\n"
            "7 key Alt+r\n8 rescore A3, B1\n9 picture my file.png\n");
  const Step& drag = script.steps[1];
  EXPECT_EQ(drag.spots[0].id, "s#2") << "a # within a word is no comment";
  EXPECT_EQ(drag.spots[1].kind, Spot::Kind::Pixel);
  EXPECT_EQ(drag.spots[1].pixel.y, -80);
  EXPECT_EQ(script.steps[2].numbers, (std::vector<int>{-5, 7}));
  EXPECT_EQ(script.steps[3].word, Word::Key) << "the answer key";
  EXPECT_EQ(script.steps[4].word, Word::PressKey);
  EXPECT_EQ(script.steps[5].names[0], "A3,  B1") << "a record goes as it stands";
  EXPECT_EQ(script.steps[6].names[0], "my file.png");
}

}  // namespace
}  // namespace zav

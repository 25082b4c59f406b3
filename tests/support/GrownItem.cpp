#include "support/GrownItem.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "automation/Text.h"

namespace zav {
namespace {

constexpr int kGroups = 8;
constexpr int kColumns = 20;
constexpr int kWidth = 1020;  // of an item, twips
constexpr int kHeight = 930;
constexpr int kStepX = 1350;  // from one target to the next
constexpr int kStepY = 1350;
constexpr int kLetters = 26;
constexpr int kMostKeyNumber = 99;  // a term of a key has two digits at most
constexpr std::array<std::string_view, 3> kPictures{"shells-2-7.png", "shells-2-8-7.png",
                                                    "shells-2-8-2.png"};
constexpr std::array<std::string_view, 4> kSlots{"slot-alkali.png", "slot-earth.png",
                                                 "slot-metal.png", "slot-noble.png"};

int GroupOf(int number) { return (number - 1) % kGroups + 1; }
int Left(int target) { return 450 + (target - 1) % kColumns * kStepX; }
int Top(int target) { return 450 + (target - 1) / kColumns * kStepY; }

std::string Named(std::string_view name, std::string_view value) {
  return Concatenate({" ", name, "=\"", value, "\""});
}
std::string Named(std::string_view name, int value) { return Named(name, std::to_string(value)); }
std::string Place(int left, int top) { return Named("Left", left) + Named("Top", top); }

std::string Caption(std::string_view text) {
  return Concatenate({R"(<Caption FontName="DejaVu Sans" FontSize="9" FontBold="False")"
                      R"( FontItalic="False" FontUnderline="False" ForeColor="H806B3D")"
                      R"( Alignment="2">)",
                      text, "</Caption>"});
}

std::string WorkArea(int targets) {
  const int rows = (targets + kColumns - 1) / kColumns;
  return "<WorkArea" + Named("Height", rows * kStepY + 900) +
         Named("Width", kColumns * kStepX + 900) +
         R"( BackColor="HFFFFFF" ImagePath="table.png" ImageLeft="0" ImageTop="0">)"
         "<Heading>Boxes</Heading></WorkArea>";
}

std::string Labels(int targets) {
  std::string labels;
  for (int t = 1; t <= targets; t += 4) {
    labels += "<Label" + Named("LabelID", t) + Place(Left(t), Top(t) - 300) +
              R"( Height="240" Width="1020">)" + Caption(std::to_string(t)) + "</Label>";
  }
  return "<Labels>" + labels + "</Labels>";
}

std::string Callouts() {
  std::string callouts;
  for (int c = 1; c <= 5; ++c) {
    callouts += "<Callout" + Named("CalloutID", c) + Place(c * 4500, 0) +
                R"( Height="300" Width="900"><Body>Mind <b>this</b>.</Body></Callout>)";
  }
  return "<Callouts>" + callouts + "</Callouts>";
}

std::string Shapes(int targets) {
  std::string shapes;
  for (int t = 1; t <= targets; t += 10) {
    shapes += R"(<Shape DrawWidth="2" DrawColor="H1B8AC9">)";
    for (const auto& [x, y] : {std::array{0, 0}, std::array{kStepX, 0}, std::array{0, kStepY}}) {
      shapes += "<Corner" + Named("X", Left(t) + x) + Named("Y", Top(t) + y) + "/>";
    }
    shapes += "</Shape>";
  }
  return "<Shapes>" + shapes + "</Shapes>";
}

std::string Targets(int targets) {
  std::string text;
  for (int t = 1; t <= targets; ++t) {
    text += "<Target" + Named("TargetID", t) + Named("GroupID", GroupOf(t)) +
            Named("AnswerValue", GrownLetter(t)) + Place(Left(t), Top(t)) + "/>";
  }
  return "<Targets>" + text + "</Targets>";
}

std::string Groups() {
  std::string groups;
  for (int g = 1; g <= kGroups; ++g) {
    groups += "<Group" + Named("GroupID", g) + "><ItemSettings" + Named("ItemHeight", kHeight) +
              Named("ItemWidth", kWidth) + "/><TargetSettings" +
              Named("EmptyImage", kSlots[static_cast<std::size_t>(g) % kSlots.size()]) + ">" +
              Caption("?") +
              "</TargetSettings><HeadingSettings><GroupHeading>&lt;html&gt;Group <b>" +
              std::to_string(g) + "</b>&lt;/html&gt;</GroupHeading></HeadingSettings></Group>";
  }
  return "<Groups>" + groups + "</Groups>";
}

std::string Body(int source) {
  const std::string number = std::to_string(source);
  switch (source % 4) {
    case 0:
      return {};
    case 1:
      return "<Body>item " + number + "</Body>";
    case 2:
      return "<Body>&lt;html&gt;&lt;b&gt;item&lt;/b&gt; " + number + "&lt;/html&gt;</Body>";
    default:
      return "<Body>" + number + "</Body>";
  }
}

std::string Sources(int count) {
  std::string sources;
  for (int s = 1; s <= count; ++s) {
    const bool hasPicture = s % 4 == 0 || s % 4 == 3;
    sources += "<Source" + Named("SourceID", s) + Named("GroupID", GroupOf(s)) +
               Named("AnswerValue", s) + Named("NumUses", 1) +
               Named("ImagePath",
                     hasPicture ? kPictures[static_cast<std::size_t>(s) % kPictures.size()] : "") +
               ">" + Body(s) + "</Source>";
  }
  return R"(<SourceArea Location="Left" Height="14490" Width="5400">)" + sources + "</SourceArea>";
}

std::string Answers(int count) {
  std::string answers;
  for (int a = 0; a < count; ++a) {
    answers += "<Answer" + Named("Weight", 1) + ">" + GrownLetter(a % kLetters + 1) +
               std::to_string(a % std::min(count, kMostKeyNumber) + 1) + "</Answer>";
  }
  return "<Answers>" + answers + "</Answers>";
}

std::string Utf8Of(char32_t character) {
  const auto byte = [](char32_t bits) { return static_cast<char>(bits); };
  return {byte(0xE0U | (character >> 12U)), byte(0x80U | ((character >> 6U) & 0x3FU)),
          byte(0x80U | (character & 0x3FU))};
}

std::string Responses(int targets, std::string_view before, std::string_view after) {
  std::string text;
  for (int t = 1; t <= targets; ++t) text += Concatenate({before, GrownResponse(t), after});
  return text;
}

}  // namespace

ItemFolder GrownItem(int targets) {
  ItemFolder folder("items/elements");
  folder.SetItemXml(
      R"(<DragAndDropItem Language="en" ResponseType="S" CaseCode="NONE" TwipsPerPixelX="15")"
      R"( TwipsPerPixelY="15" DisplayScrollMsg="False"><Instructions><Text>&lt;html&gt;Drag the)"
      " items.&lt;/html&gt;</Text></Instructions><ItemStem><Heading>Grown</Heading><Text>"
      "&lt;html&gt;What goes where?&lt;/html&gt;</Text></ItemStem>" +
      WorkArea(targets) + Labels(targets) + Callouts() + Shapes(targets) + Targets(targets) +
      Groups() + Sources(targets) + Answers(targets) + "</DragAndDropItem>");
  return folder;
}

std::string GrownLetter(int target) {
  constexpr char32_t kFirstCharacter = 0x4E00;
  if (target <= kLetters) return {static_cast<char>('A' + target - 1)};
  return Utf8Of(kFirstCharacter + static_cast<char32_t>(target));
}

std::string GrownState(int targets) {
  return "<State><Responses>" + Responses(targets, "<Response>", "</Response>") +
         "</Responses></State>";
}

std::string GrownRecord(int targets) { return Responses(targets, ", ", "").substr(2); }

}  // namespace zav

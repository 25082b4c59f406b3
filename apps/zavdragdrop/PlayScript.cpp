#include "zavdragdrop/PlayScript.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <optional>
#include <utility>

#include "automation/Text.h"
#include "hosting/InputError.h"
#include "zavdragdrop/KeyNames.h"

namespace zav {
namespace {

constexpr int kMostPixels = 8192;
constexpr int kMostMilliseconds = 3'600'000;

// Words in small letters stand for themselves, the others for what the table of blanks below says.
struct Phrase {
  Word word;
  std::string_view words;
};

constexpr std::array kPhrases = {
    Phrase{Word::Show, "show"},
    Phrase{Word::Hide, "hide"},
    Phrase{Word::Resize, "resize WIDTH HEIGHT"},
    Phrase{Word::Drag, "drag ITEM to PLACE"},
    Phrase{Word::Press, "press PLACE"},
    Phrase{Word::Move, "move to PLACE"},
    Phrase{Word::Release, "release"},
    Phrase{Word::ClickButton, "click BUTTON"},
    Phrase{Word::Click, "click PLACE"},
    Phrase{Word::Focus, "focus ITEM"},
    Phrase{Word::Delete, "delete ITEM"},
    Phrase{Word::PressKey, "key KEY"},
    Phrase{Word::ScrollTo, "scroll AREA to END"},
    Phrase{Word::ScrollBy, "scroll AREA by DOWN"},
    Phrase{Word::ScrollBy, "scroll AREA by DOWN ACROSS"},
    Phrase{Word::Splitter, "splitter PANE to SIZE"},
    Phrase{Word::CloseWindow, "close-window"},
    Phrase{Word::Answer, "answer ANSWER"},
    Phrase{Word::Wait, "wait MILLISECONDS"},
    Phrase{Word::State, "state"},
    Phrase{Word::Status, "status"},
    Phrase{Word::Responses, "responses"},
    Phrase{Word::Key, "key"},
    Phrase{Word::Score, "score"},
    Phrase{Word::Rescore, "rescore RECORD"},
    Phrase{Word::SaveState, "save-state FILE"},
    Phrase{Word::LoadState, "load-state FILE"},
    Phrase{Word::Picture, "picture FILE"},
};

std::vector<std::string_view> SplitAtBlanks(std::string_view text) {
  std::vector<std::string_view> words;
  while (true) {
    const std::size_t begin = text.find_first_not_of(" \t\r");
    if (begin == std::string_view::npos) return words;
    text.remove_prefix(begin);
    words.push_back(text.substr(0, text.find_first_of(" \t\r")));
    text.remove_prefix(words.back().size());
  }
}

// The words of a line, of which some were read.
struct Words {
  std::vector<std::string_view> all;
  std::size_t at = 0;

  [[nodiscard]] bool AtEnd() const { return at == all.size(); }
  [[nodiscard]] std::string_view Next() const { return AtEnd() ? std::string_view() : all[at]; }
};

bool TakeNumber(Words& words, int least, int most, Step& step) {
  const std::string_view text = words.Next();
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return false;
  if (number < least || number > most) return false;
  step.numbers.push_back(number);
  ++words.at;
  return true;
}

bool TakeOneOf(Words& words, std::initializer_list<std::string_view> names, Step& step) {
  for (const std::string_view name : names) {
    if (words.Next() != name) continue;
    step.names.emplace_back(name);
    ++words.at;
    return true;
  }
  return false;
}

bool TakeRest(Words& words, Step& step) {
  if (words.AtEnd()) return false;
  const char* begin = words.Next().data();
  const char* end = words.all.back().data() + words.all.back().size();
  step.names.emplace_back(begin, end);
  words.at = words.all.size();
  return true;
}

std::string Join(const Words& words, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) text += ' ';
    text += words.all[words.at + i];
  }
  return text;
}

bool TakeSpot(Words& words, Step& step) {
  for (const std::size_t count : {std::size_t{1}, std::size_t{2}}) {
    if (words.at + count > words.all.size()) return false;
    const std::optional<Spot> spot = ReadSpot(Join(words, count));
    if (!spot) continue;
    step.spots.push_back(*spot);
    words.at += count;
    return true;
  }
  return false;
}

bool TakeItem(Words& words, Step& step) {
  const std::string_view kind = words.Next();
  return (kind == "source" || kind == "target") && TakeSpot(words, step);
}

bool TakeKey(Words& words, Step& step) {
  if (!ReadKey(words.Next())) return false;
  step.names.emplace_back(words.Next());
  ++words.at;
  return true;
}

// What a word in capitals stands for.
struct Blank {
  std::string_view name;
  std::string_view expected;
  bool (*take)(Words&, Step&);  // leaves the words as they are when it fails
};

constexpr std::string_view kPixels = "a number of pixels, 1 to 8192";
constexpr std::string_view kDistance = "a number of pixels";

constexpr std::array kBlanks = {
    Blank{"WIDTH", kPixels, [](Words& w, Step& s) { return TakeNumber(w, 1, kMostPixels, s); }},
    Blank{"HEIGHT", kPixels, [](Words& w, Step& s) { return TakeNumber(w, 1, kMostPixels, s); }},
    Blank{"SIZE", kPixels, [](Words& w, Step& s) { return TakeNumber(w, 1, kMostPixels, s); }},
    Blank{"DOWN", kDistance,
          [](Words& w, Step& s) { return TakeNumber(w, -kMostPixels, kMostPixels, s); }},
    Blank{"ACROSS", kDistance,
          [](Words& w, Step& s) { return TakeNumber(w, -kMostPixels, kMostPixels, s); }},
    Blank{"MILLISECONDS", "a number of milliseconds, 0 to 3600000",
          [](Words& w, Step& s) { return TakeNumber(w, 0, kMostMilliseconds, s); }},
    Blank{"ITEM", "\"source ID\" or \"target ID\"", TakeItem},
    Blank{"PLACE", "\"source ID\", \"target ID\", \"source-area\", \"nowhere\" or \"X Y\"",
          TakeSpot},
    Blank{"BUTTON", "\"reset\", \"instructions\", \"calculator\", \"set-answers\"",
          [](Words& w, Step& s) {
            return TakeOneOf(w, {"reset", "instructions", "calculator", "set-answers"}, s);
          }},
    Blank{"KEY", "a key, such as \"Delete\", \"Enter\" or \"Alt+R\"", TakeKey},
    Blank{"AREA", "\"stem\", \"source-area\" or \"work-area\"",
          [](Words& w, Step& s) {
            return TakeOneOf(w, {"stem", "source-area", "work-area"}, s);
          }},
    Blank{"PANE", "\"stem\" or \"source-area\"",
          [](Words& w, Step& s) {
            return TakeOneOf(w, {"stem", "source-area"}, s);
          }},
    Blank{"END", "\"start\" or \"end\"",
          [](Words& w, Step& s) {
            return TakeOneOf(w, {"start", "end"}, s);
          }},
    Blank{"ANSWER", "\"OK\" or \"Cancel\"",
          [](Words& w, Step& s) {
            return TakeOneOf(w, {"OK", "Cancel"}, s);
          }},
    Blank{"FILE", "the name of a file", TakeRest},
    Blank{"RECORD", "a record of responses", TakeRest},
};

// How far a line could be read as a phrase, and what was expected where that ended.
struct Reading {
  Step step;
  std::size_t at = 0;
  std::string expected;  // empty: the line is the phrase
};

// Nothing when the word was taken, else what was expected.
std::string TakeWord(std::string_view word, Words& words, Step& step) {
  for (const Blank& blank : kBlanks) {
    if (blank.name != word) continue;
    return blank.take(words, step) ? std::string() : std::string(blank.expected);
  }
  if (words.Next() != word) return "\"" + std::string(word) + "\"";
  ++words.at;
  return {};
}

Reading ReadAs(const Phrase& phrase, Words words) {
  Reading reading;
  reading.step.word = phrase.word;
  for (const std::string_view word : SplitAtBlanks(phrase.words)) {
    reading.expected = TakeWord(word, words, reading.step);
    if (!reading.expected.empty()) break;
  }
  reading.at = words.at;
  if (reading.expected.empty() && !words.AtEnd()) reading.expected = "the end of the line";
  return reading;
}

// Keeps of two failures the one that got farther.
void Keep(Reading& best, const Reading& other) {
  if (other.at > best.at || best.expected.empty()) {
    best = other;
  } else if (other.at == best.at && !Contains(best.expected, other.expected)) {
    best.expected += " or " + other.expected;
  }
}

std::string FirstWords() {
  std::string text;
  std::string_view last;
  for (const Phrase& phrase : kPhrases) {
    const std::string_view first = phrase.words.substr(0, phrase.words.find(' '));
    if (first == last) continue;
    text += (text.empty() ? "" : ", ") + std::string(first);
    last = first;
  }
  return text;
}

[[noreturn]] void RaiseExpected(const Reading& best, const Words& words, const std::string& place) {
  const bool known = best.at > 0;
  const std::string found =
      best.at < words.all.size() ? "\"" + std::string(words.all[best.at]) + "\"" : "the end";
  throw InputError(place, "expected " + (known ? best.expected : "one of " + FirstWords()) +
                              " instead of " + found + " in \"" + Join(words, words.all.size()) +
                              "\"");
}

Step ReadStep(const Words& words, const std::string& place) {
  Reading best;
  for (const Phrase& phrase : kPhrases) {
    Reading reading = ReadAs(phrase, words);
    if (reading.expected.empty()) return std::move(reading.step);
    Keep(best, reading);
  }
  RaiseExpected(best, words, place);
}

std::string_view WithoutComment(std::string_view line) {
  for (std::size_t at = line.find('#'); at != std::string_view::npos; at = line.find('#', at + 1)) {
    if (at == 0 || line[at - 1] == ' ' || line[at - 1] == '\t') return line.substr(0, at);
  }
  return line;
}

}  // namespace

PlayScript ReadPlayScript(std::string_view text, const std::string& name) {
  PlayScript script{name, {}};
  for (int line = 1; !text.empty(); ++line) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const Words words{SplitAtBlanks(WithoutComment(text.substr(0, end)))};
    text.remove_prefix(std::min(end + 1, text.size()));
    if (words.AtEnd()) continue;
    Step step = ReadStep(words, name + ", line " + std::to_string(line));
    step.line = line;
    step.text = Join(words, words.all.size());
    script.steps.push_back(std::move(step));
  }
  return script;
}

std::string PlayScriptWords() {
  std::string text;
  for (const Phrase& phrase : kPhrases) text += "  " + std::string(phrase.words) + "\n";
  return text;
}

}  // namespace zav

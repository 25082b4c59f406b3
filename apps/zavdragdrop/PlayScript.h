// The script of a candidate's and a host's steps, one a line.
//
// Blank lines and what follows a "#" at the beginning of a line or after a blank are passed over.
// Words are separated by blanks and written as they stand here; numbers are whole, sizes pixels,
// times milliseconds. An ITEM is "source ID" or "target ID"; a PLACE is an ITEM, "source-area",
// "nowhere" or two numbers, a pixel of the host's window. A source goes by its SourceID, a target
// by its TargetID or its letter.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosting/Candidate.h"

namespace zav {

enum class Word {
  Show,
  Hide,
  Resize,
  Drag,
  Press,
  Move,
  Release,
  Click,
  ClickButton,
  Focus,
  Delete,
  PressKey,
  ScrollTo,
  ScrollBy,
  Splitter,
  CloseWindow,
  Answer,
  Wait,
  State,
  Status,
  Responses,
  Key,
  Score,
  Rescore,
  SaveState,
  LoadState,
  Picture,
};

struct Step {
  int line = 0;
  std::string text;  // as written, with one blank between words and without a comment
  Word word = Word::Show;
  std::vector<Spot> spots;
  std::vector<int> numbers;
  std::vector<std::string> names;  // of areas, ends, panes, buttons, answers, keys, files; a record
};

struct PlayScript {
  std::string name;  // of its file, for messages
  std::vector<Step> steps;
};

// Raises InputError, naming the line and what was expected in it, for the first line that is no
// step.
PlayScript ReadPlayScript(std::string_view text, const std::string& name);

// Every way to write a step, one a line.
std::string PlayScriptWords();

}  // namespace zav

// An item of any size, made in memory: as many source items as targets, over the strings and the
// pictures of a sample. Texts, pictures, HTML and both together take turns; labels, outlines and
// five callouts stand between the targets; every answer has a key.
#pragma once

#include <string>

#include "hosting/ItemFolder.h"

namespace zav {

// How many targets and source items a grown item can have: the answer values of source items are
// 16-bit numbers.
inline constexpr int kMostGrown = 30000;

// Its folder as a host sees it. Target t and source item t are of the same group, so that any of
// them can be answered by its own.
ItemFolder GrownItem(int targets);

// The letter of a target, from 1 on: A to Z, then Chinese characters.
std::string GrownLetter(int target);
// The response that has source item t on target t.
inline std::string GrownResponse(int target) {
  return GrownLetter(target) + std::to_string(target);
}
// A state section, and a comma list, with the responses of all targets.
std::string GrownState(int targets);
std::string GrownRecord(int targets);

}  // namespace zav

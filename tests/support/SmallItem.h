// A small item in front of a host and a candidate, for tests of what an item does.
//
// Work area, letters of the targets with their answer values being what responses show:
//   A and B close to each other in the first row, C below A: group 1
//   D and E in the second row: group 2
// Source items by SourceID, which is their answer value too, but for 5 whose value is 12:
//   1 text, 1 use; 2 picture, 2 uses; 3 HTML, 1 use; 6 text, 0 uses: group 1
//   4 text, 1 use; 5 picture and text, 1 use: group 2
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hosting/ReferenceHost.h"
#include "support/ItemFixture.h"

namespace zav {

// Its folder as a host sees it, each `part` of its XML replaced where it first stands.
ItemFolder SmallItem(const std::vector<ItemEdit>& edits = {});

HostOptions WithOptions(std::int32_t lOptions);
HostOptions OnScreen(int widthPixels, int heightPixels);

// What is wrong with an item: a line each, or nothing. Wrong is a target with an item of another
// group or whose tags, record and response disagree, a response that no target shows, a use count
// that is not how often the item is placed, a look that does not fit the count, and, while no
// button is pressed, a drag that goes on. With `log`, anything reported is wrong too.
std::string Faults(ReferenceHost& host, bool log = true);
inline std::string Faults(ItemFixture& item, bool log = true) { return Faults(item.host, log); }

// The routines that reported so far, in order; one that did so several times in a row says how
// often: "LoadWorkArea, RefreshWorkArea x2".
std::string Reports(ReferenceHost& host);
inline std::string Reports(ItemFixture& item) { return Reports(item.host); }

// The tag of a target by its letter.
std::string TagOf(ItemFixture& item, char letter);
// On how many targets a source item is, as the form counts it.
int UsesOf(ItemFixture& item, int source);

}  // namespace zav

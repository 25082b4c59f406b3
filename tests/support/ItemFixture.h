// An item as its candidate and its host have it: loaded, shown and in their hands, on a headless
// platform of its own.
//
//   ItemFixture item("items/heart");
//   item.Drag("source 3").To("target A").Release();
//   EXPECT_EQ(item.Responses(), "A3");
//
// Places are the words of ReadSpot. What cannot be done raises InputError.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosting/Candidate.h"
#include "hosting/ReferenceHost.h"

namespace zav {

// A part of item.xml and what stands there instead, each time that it occurs.
struct ItemEdit {
  std::string part;
  std::string replacement;
};

// The folder's item with these changes. Raises InputError for a part that is not in it.
ItemFolder EditedItem(const std::string& folder, const std::vector<ItemEdit>& edits);

class ItemFixture {
 public:
  // Initialises the item and shows it as large as the screen. Neither has to succeed.
  explicit ItemFixture(const std::string& folder, HostOptions options = {})
      : ItemFixture(ItemFolder(folder), std::move(options)) {}
  explicit ItemFixture(ItemFolder folder, HostOptions options = {});

  ReferenceHost host;
  Candidate candidate{host};

  // A gesture in its steps. Drag presses, To moves the pointer there; Release ends it.
  ItemFixture& Drag(std::string_view item);
  ItemFixture& To(std::string_view place);
  ItemFixture& Release();
  ItemFixture& Click(std::string_view place);
  ItemFixture& Delete(std::string_view target);
  ItemFixture& Wait(int milliseconds);
  // Plays steps, one a line, as a script of the command does.
  ItemFixture& Play(std::string_view script);

  // As the state snapshot has them, with a blank between each: "A3 B1".
  std::string Responses();
  // What the component logged so far, such as "LoadWorkArea: File not found: x.png (53)".
  [[nodiscard]] std::vector<std::string> Log();
  // The texts of the messages shown so far.
  [[nodiscard]] std::vector<std::string> Messages();

  [[nodiscard]] FormCore& form() { return host.form().core(); }
};

}  // namespace zav

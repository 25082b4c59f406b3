// The item folders that are served, by the names that they have in addresses.
#pragma once

#include <string>
#include <vector>

namespace zav {

struct ServedItem {
  std::string name;    // of its folder; "heart-2" for the second folder named heart
  std::string folder;  // its path
};

// Each of the folders is an item folder, which has item.xml in it, or holds item folders, which are
// taken in the order of their names. Raises InputError for one that is neither.
std::vector<ServedItem> FindItems(const std::vector<std::string>& folders);

// A JSON array with one object for each item: name, title (its ItemStem Heading, or its name where
// there is none) and languages (its own first, then the others that KVStatic.xml has). The files
// are read anew; of an item that cannot be read only the name is told.
std::string ListItems(const std::vector<ServedItem>& items);

}  // namespace zav

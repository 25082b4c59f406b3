// `zavdragdrop serve`: shows item folders in browsers of this machine.
//
// Addresses: "/" is the player's page, "/player/..." its files, "/package/..." the web package,
// "/items/" the items as ListItems tells them, "/items/NAME/..." the files of one.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "zavdragdrop/LoopbackServer.h"

namespace zav {

struct ServeOptions {
  std::vector<std::string> folders;  // as FindItems takes them
  std::optional<int> port;           // none: 8080 or, where that is taken, any free one
  std::string package;               // the built web package; empty: that of this checkout
  std::string player;                // the player page's files; empty: those of this checkout
};

// Raises InputError for folders that are not there, and for a package that was not built.
ServedContent OpenContent(const ServeOptions& options);

// Serves until the process is told to end, by SIGINT or SIGTERM. Writes the page's address to out,
// and to warnings what is wrong with items; they are served all the same. Raises InputError as
// OpenContent does, and for a port that is not free.
void Serve(const ServeOptions& options, std::ostream& out, std::ostream& warnings);

}  // namespace zav

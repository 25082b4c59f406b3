// `zavdragdrop play`: plays an item folder and writes what happens.
#pragma once

#include <ostream>
#include <string>

#include "hosting/ReferenceHost.h"
#include "zavdragdrop/Transcript.h"

namespace zav {

struct PlayOptions {
  std::string folder;
  std::string script;    // empty: the folder's play.txt or, without one, show, status and state
  std::string picture;   // a PNG file of what is seen at the end; empty: none
  std::string language;  // empty: the item's own
  Transcript::Format format = Transcript::Format::Text;
  HostOptions host;
};

// True when nothing went wrong on the way. Raises InputError for what cannot be read, played or
// written.
bool Play(const PlayOptions& options, std::ostream& out);

}  // namespace zav

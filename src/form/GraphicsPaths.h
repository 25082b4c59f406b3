// Pages name their pictures by bare file name. Before a page is loaded, each picture reference is
// replaced by a full path: pictures of the item by the host's, the form's own by the support
// folder's. Plain text substitution; each reference is replaced once.
#pragma once

#include <string>

#include "automation/FunctionRef.h"

namespace zav {

// The full path of a picture of the item, or "" when the host cannot place it.
using GraphicsPathResolver = FunctionRef<std::string(const std::string& fileName)>;

// Three kinds of reference are known: <img src="...">, whatever its case; and, in upper case only,
// BACKGROUND-IMAGE:url(...); and LIST-STYLE-IMAGE:url(...);. A picture whose name contains
// "kvt.bmp", or that the host cannot place, is taken from supportDir, which ends with a separator.
// The first reference of a kind that is not closed ends the search for that kind; the rest of the
// page stays. Errors of the resolver pass through.
std::string RewriteGraphicsPaths(const std::string& html, GraphicsPathResolver resolve,
                                 const std::string& supportDir);

}  // namespace zav

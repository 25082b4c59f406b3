// All that a host and a candidate do with the small item, step by step: what tests play again and
// again while something goes wrong in the middle.
#pragma once

#include <functional>
#include <vector>

#include "hosting/Candidate.h"
#include "hosting/ReferenceHost.h"

namespace zav {

// From InitExternalDisplay to HideExternalDisplay. A step raises what the host's call raises, and
// InputError where something is not there to be pointed at.
std::vector<std::function<void()>> WholeSession(ReferenceHost& host, Candidate& candidate);

}  // namespace zav

// Something that a person gave cannot be used: a file, a folder, a line of a script.
#pragma once

#include <stdexcept>
#include <string>

namespace zav {

class InputError : public std::runtime_error {
 public:
  // place: the file, and where in it; problem: what was expected there.
  InputError(const std::string& place, const std::string& problem)
      : std::runtime_error(place + ": " + problem) {}
};

}  // namespace zav

// The XML text of an item as hosts hand it over: UTF-16LE bytes.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace zav {

// The bytes as text; a byte-order mark in front is let pass. Raises a component error that says
// what the bytes look like when they do not begin as XML does, behind blanks and line ends; 5 for
// what is no UTF-16 further on.
std::string ItemText(std::span<const std::uint8_t> bytes);

}  // namespace zav

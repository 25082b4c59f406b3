// Makes a page bearable for the layout engine.
#pragma once

#include <string>
#include <string_view>

namespace zav {

std::string BearableHtml(std::string_view html);

}  // namespace zav

// The tag of a source or target control: the object's id, its group's id and its answer field,
// with a "*" after each of the first two. Fields that a tag lacks are empty.
#pragma once

#include <string>
#include <string_view>

namespace zav {

std::string MakeTag(std::string_view objectId, std::string_view groupId, std::string_view answer);

std::string GetObjectId(std::string_view tag);
std::string GetGroupId(std::string_view tag);
// All that follows the second "*".
std::string GetAnswerId(std::string_view tag);
// The tag with id as its answer field. Missing "*" are added.
std::string SetAnswerId(std::string_view tag, std::string_view id);

}  // namespace zav

#include "document/ItemTag.h"

#include "automation/Text.h"

namespace zav {

namespace {

struct TagFields {
  std::string_view object;
  std::string_view group;
  std::string_view answer;
};

// Takes what stands before the first "*" off the text, and the "*".
std::string_view TakeField(std::string_view& text) {
  const std::size_t star = text.find('*');
  const std::string_view field = text.substr(0, star);
  text = star == std::string_view::npos ? std::string_view() : text.substr(star + 1);
  return field;
}

TagFields Split(std::string_view tag) {
  TagFields fields;
  fields.object = TakeField(tag);
  fields.group = TakeField(tag);
  fields.answer = tag;
  return fields;
}

}  // namespace

std::string MakeTag(std::string_view objectId, std::string_view groupId, std::string_view answer) {
  return Concatenate({objectId, "*", groupId, "*", answer});
}

std::string GetObjectId(std::string_view tag) { return std::string(Split(tag).object); }

std::string GetGroupId(std::string_view tag) { return std::string(Split(tag).group); }

std::string GetAnswerId(std::string_view tag) { return std::string(Split(tag).answer); }

std::string SetAnswerId(std::string_view tag, std::string_view id) {
  const TagFields fields = Split(tag);
  return MakeTag(fields.object, fields.group, id);
}

}  // namespace zav

#include "platform/headless/HtmlTokens.h"

#include <algorithm>
#include <utility>

#include "automation/Text.h"

namespace zav {
namespace {

constexpr std::string_view kBlanks = " \t\n\r\f";

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool BeginsTag(std::string_view text) {
  if (text.size() < 2 || text[0] != '<') return false;
  if (text[1] == '!' || text[1] == '?' || IsLetter(text[1])) return true;
  return text[1] == '/' && text.size() > 2 && IsLetter(text[2]);
}

}  // namespace

HtmlToken HtmlTokens::Next() {
  if (!BeginsTag(rest_)) return TakeText();
  if (rest_.starts_with("<!--")) return TakeBeyond("-->");
  if (rest_[1] == '!' || rest_[1] == '?') return TakeBeyond(">");
  return TakeTag();
}

HtmlToken HtmlTokens::TakeText() {
  std::size_t end = 1;
  while (end < rest_.size() && !BeginsTag(rest_.substr(end))) {
    end = std::min(rest_.find('<', end + (rest_[end] == '<' ? 1 : 0)), rest_.size());
  }
  HtmlToken token;
  token.text = rest_.substr(0, end);
  rest_.remove_prefix(end);
  return token;
}

HtmlToken HtmlTokens::TakeBeyond(std::string_view end) {
  const std::size_t found = rest_.find(end);
  rest_.remove_prefix(found == std::string_view::npos ? rest_.size() : found + end.size());
  HtmlToken token;
  token.kind = HtmlToken::Kind::Nothing;
  return token;
}

HtmlToken HtmlTokens::TakeTag() {
  HtmlToken tag;
  tag.kind = rest_[1] == '/' ? HtmlToken::Kind::EndTag : HtmlToken::Kind::StartTag;
  rest_.remove_prefix(tag.kind == HtmlToken::Kind::EndTag ? 2 : 1);
  tag.name = TakeName(" \t\n\r\f/>");
  TakeAttributes(tag);
  return tag;
}

void HtmlTokens::TakeAttributes(HtmlToken& tag) {
  while (!rest_.empty() && rest_.front() != '>') {
    if (rest_.front() == '/' || kBlanks.find(rest_.front()) != std::string_view::npos) {
      rest_.remove_prefix(1);
      continue;
    }
    HtmlAttribute attribute{TakeName(" \t\n\r\f/>="), {}};
    SkipBlanks();
    if (rest_.starts_with('=')) {
      rest_.remove_prefix(1);
      attribute.value = TakeValue();
    }
    tag.attributes.push_back(std::move(attribute));
  }
  if (!rest_.empty()) rest_.remove_prefix(1);
}

// A name has at least one character, whichever it is.
std::string HtmlTokens::TakeName(std::string_view ends) {
  const std::size_t length = std::min(rest_.find_first_of(ends, 1), rest_.size());
  std::string name(rest_.substr(0, length));
  std::transform(name.begin(), name.end(), name.begin(), Lower);
  rest_.remove_prefix(length);
  return name;
}

std::string_view HtmlTokens::TakeValue() {
  SkipBlanks();
  const bool isQuoted = rest_.starts_with('"') || rest_.starts_with('\'');
  const std::string_view ends = isQuoted ? rest_.substr(0, 1) : std::string_view(" \t\n\r\f>");
  if (isQuoted) rest_.remove_prefix(1);
  const std::size_t length = std::min(rest_.find_first_of(ends), rest_.size());
  const std::string_view value = rest_.substr(0, length);
  rest_.remove_prefix(length);
  if (isQuoted && !rest_.empty()) rest_.remove_prefix(1);
  return value;
}

void HtmlTokens::SkipBlanks() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
}

std::string_view HtmlTokens::TakeContent(std::string_view name) {
  const std::string_view page = rest_;
  for (std::size_t at = 0; (at = page.find("</", at)) != std::string_view::npos; at += 2) {
    if (!EqualIgnoringCase(page.substr(at + 2, name.size()), name)) continue;
    rest_.remove_prefix(std::min(page.find('>', at), page.size() - 1) + 1);
    return page.substr(0, at);
  }
  rest_ = {};
  return page;
}

}  // namespace zav

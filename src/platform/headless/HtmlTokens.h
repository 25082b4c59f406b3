// Cuts a page into tags and text, by the rules of browsers for text that is none too tidy. Part of
// HtmlFilter.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zav {

struct HtmlAttribute {
  std::string name;        // lower case
  std::string_view value;  // as written, without its quotes
};

struct HtmlToken {
  enum class Kind { Text, StartTag, EndTag, Nothing };  // Nothing: a comment or a declaration

  Kind kind = Kind::Text;
  std::string name;       // of a tag, lower case
  std::string_view text;  // of Text, entities as written
  std::vector<HtmlAttribute> attributes;
};

// Tokens are parts of the page, which outlives them.
class HtmlTokens {
 public:
  explicit HtmlTokens(std::string_view page) : rest_(page) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  // Takes at least one byte off a page that is not at its end.
  HtmlToken Next();
  // Takes everything up to the end tag of that name, which goes too, and gives it.
  std::string_view TakeContent(std::string_view name);

 private:
  HtmlToken TakeText();
  HtmlToken TakeTag();
  HtmlToken TakeBeyond(std::string_view end);
  void TakeAttributes(HtmlToken& tag);
  std::string TakeName(std::string_view ends);
  std::string_view TakeValue();
  void SkipBlanks();

  std::string_view rest_;
};

}  // namespace zav

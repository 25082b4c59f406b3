#include "platform/headless/StyleFilter.h"

#include <algorithm>

#include "automation/Text.h"
#include "platform/headless/HtmlFilter.h"

namespace zav {
namespace {

constexpr std::string_view kDigits = "0123456789";

constexpr std::string_view kWordCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-";

bool IsOneOf(std::string_view characters, char c) {
  return characters.find(c) != std::string_view::npos;
}

// How long what stands at the beginning of text is kept as it is: something in quotes or in
// parentheses, a colour code, a word.
std::size_t VerbatimLength(std::string_view text) {
  const auto upTo = [&](char end) { return std::min(text.find(end, 1), text.size() - 1) + 1; };
  switch (text.front()) {
    case '(':
      return upTo(')');
    case '"':
    case '\'':
      return upTo(text.front());
    default: {
      if (text.front() != '#' && IsOneOf(kDigits, text.front())) return 0;
      const std::size_t end = std::min(text.find_first_not_of(kWordCharacters, 1), text.size());
      const bool isWord =
          text.front() == '#' || (IsOneOf(kWordCharacters, text.front()) && text.front() != '-');
      return isWord ? end : 1;
    }
  }
}

bool Exceeds(std::string_view digits, int most) {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  const std::string limit = std::to_string(most);
  if (digits.size() != limit.size()) return digits.size() > limit.size();
  return digits > limit;
}

std::string WithoutComments(std::string_view text) {
  std::string rest;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t comment = std::min(text.find("/*", start), text.size());
    rest += text.substr(start, comment - start);
    const std::size_t end = text.find("*/", std::min(comment + 2, text.size()));
    start = end == std::string_view::npos ? text.size() : end + 2;
  }
  return rest;
}

bool IsPlainSelector(std::string_view selector) {
  constexpr std::string_view kSpecial = ":[]*@<\\\"'()";
  constexpr std::string_view kPartEnds = " \t\r\n\f>+~";
  constexpr int kMostParts = 3;
  if (selector.size() > 1000 || selector.find_first_of(kSpecial) != std::string_view::npos) {
    return false;
  }
  int parts = 0;
  bool inPart = false;
  for (const char c : selector) {
    if (c == ',') parts = 0;
    const bool isEnd = c == ',' || IsOneOf(kPartEnds, c);
    if (!isEnd && !inPart && ++parts > kMostParts) return false;
    inPart = !isEnd;
  }
  return selector.find_first_not_of(" \t\r\n\f") != std::string_view::npos;
}

// The layout engine puts whole tables around each element that claims to be a part of one, and
// takes endless time over many of them within one another. Real tables do without.
bool IsTableDisplay(std::string_view declaration) {
  const std::string upper = UpperCase(declaration);
  return Contains(upper, "DISPLAY") && Contains(upper, "TABLE");
}

// A selector without what a rule that was left out before it has left.
std::string_view WithoutLeftovers(std::string_view selector) {
  constexpr std::string_view kComment = "<!--";
  selector.remove_prefix(selector.find_last_of(";}") + 1);
  const std::size_t comment = selector.find(kComment);
  return comment == std::string_view::npos ? selector : selector.substr(comment + kComment.size());
}

}  // namespace

std::string WithBoundedNumbers(std::string_view text, int most) {
  std::string bounded;
  while (!text.empty()) {
    const std::size_t verbatim = VerbatimLength(text);
    if (verbatim > 0) {
      bounded += text.substr(0, verbatim);
      text.remove_prefix(verbatim);
      continue;
    }
    const std::size_t length = std::min(text.find_first_not_of(kDigits), text.size());
    const std::string_view digits = text.substr(0, length);
    bounded += Exceeds(digits, most) ? std::to_string(most) : std::string(digits);
    text.remove_prefix(length);
  }
  return bounded;
}

std::string BearableDeclarations(std::string_view declarations) {
  std::string plain = WithoutComments(declarations);
  std::erase_if(plain, [](char c) { return c == '{' || c == '}' || c == '<' || c == '\\'; });
  std::string bearable;
  for (std::string_view rest(plain); !rest.empty();) {
    const std::size_t length = std::min(rest.find(';'), rest.size() - 1) + 1;
    if (!IsTableDisplay(rest.substr(0, length))) bearable += rest.substr(0, length);
    rest.remove_prefix(length);
  }
  return WithBoundedNumbers(bearable, html_limit::kNumber);
}

std::string BearableRules(std::string_view rules, std::size_t& rulesLeft) {
  const std::string plain = WithoutComments(rules);
  std::string_view rest(plain);
  std::string bearable;
  while (!rest.empty() && rulesLeft > 0) {
    const std::size_t open = rest.find('{');
    if (open == std::string_view::npos) break;
    const std::size_t close = std::min(rest.find('}', open), rest.size());
    const std::string_view selector = WithoutLeftovers(rest.substr(0, open));
    const auto selectors =
        static_cast<std::size_t>(std::count(selector.begin(), selector.end(), ',')) + 1;
    if (selectors > rulesLeft) break;
    if (IsPlainSelector(selector)) {
      bearable.append(selector).append("{");
      bearable += BearableDeclarations(rest.substr(open + 1, close - open - 1)) + "}\n";
      rulesLeft -= selectors;
    }
    rest.remove_prefix(std::min(close + 1, rest.size()));
  }
  return bearable;
}

}  // namespace zav

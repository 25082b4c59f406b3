// The small pages around an item: title, headings, callouts, edges, bottom bar and footer.
//
// Pages name their pictures by bare file name; whoever loads a page rewrites them first. Texts are
// HTML and go into the page as they are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zav {

struct FooterButton {
  std::string id;
  std::string caption;
};

std::string createTitle(std::string_view heading);
std::string createWorkHeading(std::string_view heading);
std::string createAreaTitle(std::string_view text);
// height: of the callout in pixels, as decimal text.
std::string createCallout(std::string_view body, std::string_view height);
std::string createLeftEdge();
std::string createRightEdge();
std::string createBottom();
std::string createButtons(const std::vector<FooterButton>& buttons);

std::string addStyleRule(std::string_view className, std::string_view style);

}  // namespace zav

#include "form/GraphicsPaths.h"

#include <string_view>

#include "automation/Text.h"

namespace zav {
namespace {

constexpr auto kNone = std::string::npos;

// The page with some of its parts replaced, put together from front to back.
class Rewriting {
 public:
  explicit Rewriting(const std::string& page) : page_(page) {}

  [[nodiscard]] bool Reached(std::size_t position) const { return position < copied_; }
  void Replace(std::size_t begin, std::size_t end, const std::string& replacement) {
    result_.append(page_, copied_, begin - copied_).append(replacement);
    copied_ = end;
  }
  std::string Finish() { return result_.append(page_, copied_); }

 private:
  const std::string& page_;
  std::string result_;
  std::size_t copied_ = 0;
};

std::string PicturePath(const std::string& name, GraphicsPathResolver resolve,
                        const std::string& supportDir) {
  const std::string path = Contains(name, "kvt.bmp") ? std::string() : resolve(name);
  return path.empty() ? supportDir + name : path;
}

// What is passed over should be a quote, but may be any character.
std::size_t BehindCharacter(std::string_view page, std::size_t at) {
  return page.size() - WithoutFirstCharacters(page.substr(at), 1).size();
}

std::string RewriteImages(const std::string& page, GraphicsPathResolver resolve,
                          const std::string& supportDir) {
  constexpr std::string_view kImage = "<IMG";
  constexpr std::string_view kSource = "SRC=";
  const std::string upper = UpperCase(page);
  Rewriting rewriting(page);
  std::size_t source = kNone;
  for (std::size_t image = upper.find(kImage); image != kNone;
       image = upper.find(kImage, image + 3)) {
    if (source != kNone && source > image) continue;  // an earlier element without one took it
    source = upper.find(kSource, image);
    if (source == kNone) break;
    const std::size_t begin = BehindCharacter(page, source + kSource.size());
    if (rewriting.Reached(begin)) continue;
    const std::size_t end = page.find('"', begin);
    if (end == kNone) break;
    rewriting.Replace(begin, end,
                      PicturePath(page.substr(begin, end - begin), resolve, supportDir));
  }
  return rewriting.Finish();
}

std::string RewriteStyle(const std::string& page, std::string_view opening,
                         const std::string& supportDir) {
  Rewriting rewriting(page);
  for (std::size_t at = page.find(opening); at != kNone; at = page.find(opening, at + 3)) {
    const std::size_t begin = at + opening.size();
    if (rewriting.Reached(begin)) continue;
    const std::size_t nameEnd = page.find(')', begin);
    const std::size_t end = page.find(");", begin);
    if (end == kNone) break;
    rewriting.Replace(begin, end, supportDir + page.substr(begin, nameEnd - begin));
  }
  return rewriting.Finish();
}

}  // namespace

std::string RewriteGraphicsPaths(const std::string& html, GraphicsPathResolver resolve,
                                 const std::string& supportDir) {
  std::string page = RewriteImages(html, resolve, supportDir);
  page = RewriteStyle(page, "BACKGROUND-IMAGE:url(", supportDir);
  return RewriteStyle(page, "LIST-STYLE-IMAGE:url(", supportDir);
}

}  // namespace zav

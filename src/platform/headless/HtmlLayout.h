// Lays out an HTML page in a given width, and measures, draws and probes the result.
//
// Blocks, inline text, tables, lists, pictures, borders, backgrounds and push buttons, with style
// rules from the page itself. Nothing is ever fetched but pictures, through the caller's loader;
// scripts, links, forms and embedded objects do not exist. Any input is bearable: a page that is
// too large, too deep or too costly is cut where it becomes so.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/Font.h"
#include "platform/Picture.h"

namespace zav {

class Canvas;

// Gives the picture of a path, as the page wrote it, or null. What it raises counts as null.
using PictureLoader = std::function<PictureRef(const std::string& path)>;

struct HtmlOptions {
  int marginPixels = 0;  // on all four sides of the page
  Font font;             // of text that the page gives no font of its own
  PictureLoader loadPicture;
  std::int32_t foreColor = 0;  // of text that the page gives no colour of its own, 0x00BBGGRR
};

// The height of the page laid out that wide, margins included. Heights in percent count as none.
int HtmlHeightPixels(const std::string& html, int widthPixels, const HtmlOptions& options);

class HtmlLayout {
 public:
  // Heights in percent refer to heightPixels.
  HtmlLayout(const std::string& html, int widthPixels, int heightPixels, HtmlOptions options);
  HtmlLayout(const HtmlLayout&) = delete;
  HtmlLayout& operator=(const HtmlLayout&) = delete;
  ~HtmlLayout();

  // Margins included.
  [[nodiscard]] int HeightPixels() const;
  // Draws the page with its top left corner at left, top; what the canvas is clipped to is kept.
  void Draw(Canvas& canvas, int left, int top);
  // The id of the element at a point of the page, in pixels from its top left corner: its own or
  // that of the nearest element around it that has one. Empty where there is none.
  [[nodiscard]] std::string IdAt(int x, int y) const;

 private:
  class Container;
  std::unique_ptr<Container> container_;
};

}  // namespace zav

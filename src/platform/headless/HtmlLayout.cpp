#include "platform/headless/HtmlLayout.h"

#include <litehtml/litehtml.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <utility>
#include <vector>

#include "platform/headless/Canvas.h"
#include "platform/headless/HtmlElements.h"
#include "platform/headless/HtmlFilter.h"
#include "platform/headless/HtmlStyle.h"
#include "platform/headless/ListMarkers.h"
#include "platform/headless/TextMetrics.h"

namespace zav {
namespace {

constexpr float kPixelsPerPoint = 96.0F / 72.0F;
constexpr int kMostPixels = 1000000;

int Rounded(float value) {
  constexpr float kMost = kMostPixels;
  return static_cast<int>(std::lround(std::clamp(value, -kMost, kMost)));
}

int Bounded(int value) { return std::clamp(value, -kMostPixels, kMostPixels); }

PixelRect RectOf(const litehtml::position& position) {
  return {Bounded(position.x), Bounded(position.y), Bounded(position.width),
          Bounded(position.height)};
}

Argb ColorOf(const litehtml::web_color& color) {
  return (Argb{color.alpha} << 24U) | (Argb{color.red} << 16U) | (Argb{color.green} << 8U) |
         color.blue;
}

// The style sheet under every page, read once. It never goes, as an item may be the last thing that
// a program lets go.
const litehtml::css& HtmlStyleSheet() {
  static litehtml::context* const kContext = [] {
    auto* context = new litehtml::context;
    context->load_master_stylesheet(std::string(kHtmlStyle).c_str());
    return context;
  }();
  return kContext->master_css();
}

// Towards black for amounts below 1.
Argb Darker(Argb color, float amount) {
  Argb darker = color & 0xFF000000U;
  for (const unsigned shift : {16U, 8U, 0U}) {
    const float channel = static_cast<float>((color >> shift) & 0xFFU) * amount;
    darker |= static_cast<Argb>(channel) << shift;
  }
  return darker;
}

}  // namespace

// What the engine asks for while it lays out and draws.
class HtmlLayout::Container final : public litehtml::document_container {
 public:
  Container(const std::string& html, int widthPixels, int heightPixels, HtmlOptions options)
      : options_(std::move(options)),
        margin_(std::clamp(options_.marginPixels, 0, kMostPixels)),
        width_(std::max(0, Bounded(widthPixels) - 2 * margin_)),
        height_(std::max(0, Bounded(heightPixels) - 2 * margin_)) {
    context_.master_css() = HtmlStyleSheet();
    context_.load_master_stylesheet(RootStyle().c_str());
    document_ = litehtml::document::createFromUTF8(BearableHtml(html).c_str(), this, &context_);
    document_->render(width_);
  }

  [[nodiscard]] int HeightPixels() const {
    return std::clamp(document_->height(), 0, kMostPixels) + 2 * margin_;
  }

  void Draw(Canvas& canvas, int left, int top) {
    canvas_ = &canvas;
    document_->draw(0, left + margin_, top + margin_, nullptr);
    canvas_ = nullptr;
  }

  [[nodiscard]] std::string IdAt(int x, int y) const {
    x -= margin_;
    y -= margin_;
    auto element = document_->root()->get_element_by_point(x, y, x, y);
    for (; element; element = element->parent()) {
      const char* id = element->get_attr("id");
      if (id != nullptr && *id != '\0') return id;
    }
    return {};
  }

  litehtml::uint_ptr create_font(const char* /*family*/, int size, int weight,
                                 litehtml::font_style slant, unsigned int decoration,
                                 litehtml::font_metrics* metrics) override {
    TextStyle style{static_cast<float>(std::clamp(size, 1, 500))};
    style.bold = weight >= 600;
    style.italic = slant == litehtml::fontStyleItalic;
    style.underline = (decoration & litehtml::font_decoration_underline) != 0;
    style.struckOut = (decoration & litehtml::font_decoration_linethrough) != 0;
    metrics->height = LineHeightPixels(style);
    metrics->ascent = AscentPixels(style);
    metrics->descent = metrics->height - metrics->ascent;
    metrics->x_height = static_cast<int>(style.pixels * 0.55F);
    metrics->draw_spaces = style.underline || style.struckOut;
    fonts_.push_back(style);
    return fonts_.size();
  }
  void delete_font(litehtml::uint_ptr /*font*/) override {}

  int text_width(const char* text, litehtml::uint_ptr font) override {
    // Words are rounded each to the nearest pixel, so that a line of them is not wider in the end.
    return Rounded(ExactTextWidth(text, StyleOfHandle(font)));
  }

  // Only blanks and line ends part words: a no-break space belongs to its word.
  void split_text(const char* text, const std::function<void(const char*)>& onWord,
                  const std::function<void(const char*)>& onSpace) override {
    constexpr std::string_view kSpaces = " \t\n\f\r";
    std::string_view rest(text);
    while (!rest.empty()) {
      const std::size_t length = std::min(rest.find_first_of(kSpaces), rest.size());
      if (length > 0) onWord(std::string(rest.substr(0, length)).c_str());
      rest.remove_prefix(length);
      if (rest.empty()) return;
      onSpace(std::string(rest.substr(0, 1)).c_str());
      rest.remove_prefix(1);
    }
  }

  void draw_text(litehtml::uint_ptr /*canvas*/, const char* text, litehtml::uint_ptr font,
                 litehtml::web_color color, const litehtml::position& position) override {
    const PixelRect rect = RectOf(position);
    canvas_->DrawText(text, static_cast<float>(rect.left), rect.top, StyleOfHandle(font),
                      ColorOf(color));
  }

  [[nodiscard]] int pt_to_px(int points) const override {
    return Rounded(static_cast<float>(points) * kPixelsPerPoint);
  }
  [[nodiscard]] int get_default_font_size() const override {
    return Rounded(StyleOf(options_.font).pixels);
  }
  [[nodiscard]] const char* get_default_font_name() const override { return "sans-serif"; }

  void draw_list_marker(litehtml::uint_ptr /*canvas*/,
                        const litehtml::list_marker& marker) override {
    const PixelRect box = RectOf(marker.pos);
    const Argb color = ColorOf(marker.color);
    const auto radius = static_cast<float>(box.width) / 2;
    switch (marker.marker_type) {
      case litehtml::list_style_type_none:
        break;
      case litehtml::list_style_type_circle:
        canvas_->FillRound(box, radius, color);
        canvas_->FillRound(box.Inset(1), radius - 1, 0xFFFFFFFFU);
        break;
      case litehtml::list_style_type_disc:
        canvas_->FillRound(box, radius, color);
        break;
      case litehtml::list_style_type_square:
        canvas_->FillRect(box, color);
        break;
      default:
        DrawNumber(marker, box);
    }
  }

  void load_image(const char* source, const char* /*base*/, bool /*redraw*/) override {
    PictureOf(source);
  }
  void get_image_size(const char* source, const char* /*base*/, litehtml::size& size) override {
    const PictureRef picture = PictureOf(source);
    size.width = picture ? picture->WidthPixels() : 0;
    size.height = picture ? picture->HeightPixels() : 0;
  }

  void draw_background(litehtml::uint_ptr /*canvas*/,
                       const litehtml::background_paint& paint) override {
    const PixelRect box = RectOf(paint.clip_box);
    const auto radius = static_cast<float>(std::clamp(paint.border_radius.top_left_x, 0, 100));
    if (paint.color.alpha != 0) canvas_->FillRound(box, radius, ColorOf(paint.color));
    if (paint.image.empty()) return;
    if (const PictureRef picture = PictureOf(paint.image)) DrawRepeated(paint, box, *picture);
  }

  void draw_borders(litehtml::uint_ptr /*canvas*/, const litehtml::borders& borders,
                    const litehtml::position& position, bool /*root*/) override {
    const PixelRect box = RectOf(position);
    const int top = Bounded(borders.top.width);
    const int bottom = Bounded(borders.bottom.width);
    const int left = Bounded(borders.left.width);
    const int right = Bounded(borders.right.width);
    DrawBorder(borders.top, {box.left, box.top, box.width, top}, true);
    DrawBorder(borders.bottom, {box.left, box.Bottom() - bottom, box.width, bottom}, false);
    DrawBorder(borders.left, {box.left, box.top, left, box.height}, true);
    DrawBorder(borders.right, {box.Right() - right, box.top, right, box.height}, false);
  }

  void set_clip(const litehtml::position& position, const litehtml::border_radiuses& /*radius*/,
                bool /*validX*/, bool /*validY*/) override {
    canvas_->PushClip(RectOf(position));
  }
  void del_clip() override { canvas_->PopClip(); }

  void get_client_rect(litehtml::position& client) const override {
    client = {0, 0, width_, height_};
  }
  void get_media_features(litehtml::media_features& media) const override {
    media.type = litehtml::media_type_screen;
    media.width = media.device_width = width_;
    media.height = media.device_height = height_;
    media.color = 8;
    media.resolution = 96;
  }
  void get_language(std::string& language, std::string& culture) const override {
    language = "en";
    culture.clear();
  }

  std::shared_ptr<litehtml::element> create_element(
      const char* tag, const litehtml::string_map& /*attributes*/,
      const std::shared_ptr<litehtml::document>& document) override {
    return MakeHtmlElement(tag, document, budget_);
  }

  // Letters beyond ASCII keep their case.
  void transform_text(std::string& text, litehtml::text_transform transform) override {
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; };
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    if (transform == litehtml::text_transform_uppercase) {
      std::transform(text.begin(), text.end(), text.begin(), upper);
    } else if (transform == litehtml::text_transform_lowercase) {
      std::transform(text.begin(), text.end(), text.begin(), lower);
    } else if (transform == litehtml::text_transform_capitalize && !text.empty()) {
      text[0] = upper(text[0]);
    }
  }

  // A page brings everything with it, and leads nowhere.
  void import_css(std::string& text, const std::string& /*url*/, std::string& /*base*/) override {
    text.clear();
  }
  void link(const std::shared_ptr<litehtml::document>& /*document*/,
            const litehtml::element::ptr& /*element*/) override {}
  void on_anchor_click(const char* /*url*/, const litehtml::element::ptr& /*element*/) override {}
  void set_caption(const char* /*caption*/) override {}
  void set_base_url(const char* /*url*/) override {}
  void set_cursor(const char* /*cursor*/) override {}

 private:
  [[nodiscard]] std::string RootStyle() const {
    const Argb color = ArgbOf(options_.foreColor);
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), "#%06x", static_cast<unsigned>(color & 0xFFFFFFU));
    std::string style = std::string("html { color: ") + code.data() + ";";
    if (options_.font.bold) style += " font-weight: bold;";
    if (options_.font.italic) style += " font-style: italic;";
    if (options_.font.underline) style += " text-decoration: underline;";
    return style + " }";
  }

  [[nodiscard]] TextStyle StyleOfHandle(litehtml::uint_ptr font) const {
    return font >= 1 && font <= fonts_.size() ? fonts_[font - 1] : TextStyle{};
  }

  // A picture that cannot be had is none: no error may pass through the engine.
  PictureRef PictureOf(const std::string& source) {
    const auto known = pictures_.find(source);
    if (known != pictures_.end()) return known->second;
    PictureRef picture;
    try {
      if (options_.loadPicture) picture = options_.loadPicture(source);
    } catch (...) {
      picture = nullptr;
    }
    return pictures_.emplace(source, std::move(picture)).first->second;
  }

  void DrawNumber(const litehtml::list_marker& marker, const PixelRect& box) const {
    constexpr int kGap = 6;
    const TextStyle style = StyleOfHandle(marker.font);
    const std::string text = MarkerText(marker.marker_type, marker.index);
    canvas_->DrawText(text, static_cast<float>(box.Right() - TextWidth(text, style) - kGap),
                      box.top, style, ColorOf(marker.color));
  }

  void DrawRepeated(const litehtml::background_paint& paint, PixelRect box,
                    const Picture& picture) const {
    const int x = Bounded(paint.position_x);
    const int y = Bounded(paint.position_y);
    const ClipScope clip(*canvas_, box);
    if (paint.repeat == litehtml::background_repeat_no_repeat) {
      // As large as the page wants it, which an <img> may say.
      canvas_->DrawPicture(
          picture, {x, y, Bounded(paint.image_size.width), Bounded(paint.image_size.height)}, 1);
      return;
    }
    const bool alongX = paint.repeat == litehtml::background_repeat_repeat ||
                        paint.repeat == litehtml::background_repeat_repeat_x;
    const bool alongY = paint.repeat == litehtml::background_repeat_repeat ||
                        paint.repeat == litehtml::background_repeat_repeat_y;
    if (!alongX) {
      box.left = x;
      box.width = picture.WidthPixels();
    }
    if (!alongY) {
      box.top = y;
      box.height = picture.HeightPixels();
    }
    canvas_->TilePicture(picture, box, x, y);
  }

  // isLit: the edge is towards the light, at the left or the top.
  void DrawBorder(const litehtml::border& border, const PixelRect& edge, bool isLit) const {
    constexpr float kShade = 0.6F;
    if (edge.IsEmpty() || border.style == litehtml::border_style_none ||
        border.style == litehtml::border_style_hidden) {
      return;
    }
    const bool isSunken = border.style == litehtml::border_style_inset ||
                          border.style == litehtml::border_style_groove;
    const bool isRaised = border.style == litehtml::border_style_outset ||
                          border.style == litehtml::border_style_ridge;
    const bool isShaded = (isSunken && isLit) || (isRaised && !isLit);
    const Argb color = ColorOf(border.color);
    canvas_->FillRect(edge, isShaded ? Darker(color, kShade) : color);
  }

  const HtmlOptions options_;
  const int margin_;
  const int width_;
  const int height_;
  std::vector<TextStyle> fonts_;
  std::map<std::string, PictureRef> pictures_;
  Canvas* canvas_ = nullptr;  // while drawing
  HtmlBudget budget_;
  litehtml::context context_;
  litehtml::document::ptr document_;
};

HtmlLayout::HtmlLayout(const std::string& html, int widthPixels, int heightPixels,
                       HtmlOptions options)
    : container_(std::make_unique<Container>(html, widthPixels, heightPixels, std::move(options))) {
}

HtmlLayout::~HtmlLayout() = default;

int HtmlLayout::HeightPixels() const { return container_->HeightPixels(); }

void HtmlLayout::Draw(Canvas& canvas, int left, int top) { container_->Draw(canvas, left, top); }

std::string HtmlLayout::IdAt(int x, int y) const { return container_->IdAt(x, y); }

int HtmlHeightPixels(const std::string& html, int widthPixels, const HtmlOptions& options) {
  return HtmlLayout(html, widthPixels, 0, options).HeightPixels();
}

}  // namespace zav

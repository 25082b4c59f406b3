// What of a form's controls is seen, and where. Places are pixels.
#include "platform/headless/Rasteriser.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

#include "controls/HtmlPane.h"
#include "controls/Label.h"
#include "controls/PictureBox.h"
#include "controls/PictureButton.h"
#include "controls/RichText.h"
#include "controls/ScrollFrame.h"
#include "platform/headless/HeadlessPicture.h"
#include "platform/headless/HeadlessPlatform.h"
#include "platform/headless/PictureFile.h"

namespace zav {
namespace {

constexpr Argb kWhite = 0xFFFFFFFFU;
constexpr Argb kRed = 0xFFFF0000U;
constexpr Argb kBlue = 0xFF0000FFU;
constexpr std::int32_t kRedControl = 0x000000FF;  // blue stands first
constexpr std::int32_t kBlueControl = 0x00FF0000;
constexpr float kTwips = 15;

PictureRef Plain(int width, int height, Argb color) {
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  return std::make_shared<HeadlessPicture>(width, height, std::vector<Argb>(count, color));
}

// A form of 100 by 100 pixels.
struct Stage {
  Stage() { form.Resize(100 * kTwips, 100 * kTwips); }

  static void Place(Control& control, float left, float top, float width, float height) {
    control.Move({left * kTwips, top * kTwips, width * kTwips, height * kTwips});
  }
  [[nodiscard]] Argb PixelAt(int x, int y) const {
    Canvas canvas(100, 100);
    DrawForm(form, canvas);
    return canvas.PixelAt(x, y);
  }
  // How many pixels have that colour.
  [[nodiscard]] int Count(Argb color) const {
    Canvas canvas(100, 100);
    DrawForm(form, canvas);
    int count = 0;
    for (int y = 0; y < 100; ++y) {
      for (int x = 0; x < 100; ++x) count += canvas.PixelAt(x, y) == color ? 1 : 0;
    }
    return count;
  }

  std::unique_ptr<HeadlessPlatform> platform = MakeHeadlessPlatform();
  ControlHost host{platform->platform()};
  Form form{host, "form"};
};

// A red box of 50 by 50 pixels in the upper left corner, and something else above it.
struct Covered : Stage {
  Covered() {
    Place(below, 0, 0, 50, 50);
    below.SetBackColor(kRedControl);
  }
  PictureBox below{host, &form, "below"};
};

TEST(Rasteriser, ShowsWhatIsInFront) {
  Covered stage;
  PictureBox later(stage.host, &stage.form, "later");
  Stage::Place(later, 40, 0, 50, 50);
  later.SetBackColor(kBlueControl);
  EXPECT_EQ(stage.PixelAt(45, 10), kBlue) << "what came later is in front";
  stage.below.BringToFront();
  EXPECT_EQ(stage.PixelAt(45, 10), kRed) << "until the other is brought there";
  stage.below.Hide();
  EXPECT_EQ(stage.PixelAt(45, 10), kBlue) << "what is hidden is not drawn";
  EXPECT_EQ(stage.PixelAt(10, 10), kWhite) << "the form itself is white";
}

TEST(Rasteriser, CoversLetThroughWhatIsBelow) {
  Covered stage;
  PictureButton cover(stage.host, &stage.form, "cover");
  Stage::Place(cover, 0, 0, 60, 50);
  EXPECT_EQ(stage.Count(kRed), 2500) << "a cover is seen through";
  cover.SetHasFace(true);
  EXPECT_LT(stage.Count(kRed), 5) << "a button's face is not, but for its round corners";
}

TEST(Rasteriser, LabelsLieUnderTheirSiblings) {
  Covered stage;
  Label label(stage.host, &stage.form, "label");
  Stage::Place(label, 0, 0, 100, 100);
  label.SetFont({"Verdana", 36, true});
  label.SetCaption("MMM MMM");
  label.SetForeColor(kBlueControl);
  EXPECT_EQ(stage.Count(kRed), 2500) << "although the label came later";
  EXPECT_GT(stage.Count(kBlue), 100) << "beside the box it is seen";
}

TEST(Rasteriser, ScrolledContentsMoveAndAreCut) {
  Stage stage;
  ScrollFrame frame(stage.host, &stage.form, "frame");
  PictureBox content(stage.host, &frame, "content");
  PictureBox prompt(stage.host, &frame, "prompt");
  Stage::Place(frame, 20, 20, 40, 40);
  Stage::Place(content, 0, 0, 30, 200);
  Stage::Place(prompt, 0, 30, 10, 10);
  frame.SetBackColor(color::kWhite);
  content.SetBackColor(kRedControl);
  prompt.SetBackColor(kBlueControl);
  frame.KeepInFrame(prompt);
  frame.SetScrollY(180 * kTwips);
  EXPECT_EQ(stage.PixelAt(25, 19), kWhite) << "above the frame nothing is seen";
  EXPECT_EQ(stage.PixelAt(25, 20), kRed) << "20 of 200 pixels are left";
  EXPECT_EQ(stage.PixelAt(25, 39), kRed);
  EXPECT_EQ(stage.PixelAt(40, 45), kWhite) << "below them the frame";
  EXPECT_EQ(stage.PixelAt(25, 55), kBlue) << "what belongs to the frame stays";
}

TEST(Rasteriser, DrawsShapesInTheScaleOfTheirSurface) {
  const struct {
    const char* why;
    ScaleMode scale;
    float unit;
  } rows[] = {{"pixels", ScaleMode::Pixels, 1}, {"twips", ScaleMode::Twips, kTwips}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.why);
    Stage stage;
    PictureBox surface(stage.host, &stage.form, "surface");
    Stage::Place(surface, 10, 10, 50, 50);
    surface.SetBackColor(color::kWhite);
    surface.SetScaleMode(row.scale);
    surface.DrawFilledBox({10 * row.unit, 10 * row.unit, 9 * row.unit, 9 * row.unit}, 1,
                          kRedControl);
    EXPECT_EQ(stage.Count(kRed), 100) << "a box includes its right and bottom edges";
    EXPECT_EQ(stage.PixelAt(20, 20), kRed);
    EXPECT_EQ(stage.PixelAt(29, 29), kRed);
    surface.DrawLine({0, 30 * row.unit}, {100 * row.unit, 30 * row.unit}, 3, kBlueControl);
    EXPECT_EQ(stage.PixelAt(30, 38), kWhite) << "a pen of 3 reaches one pixel to both sides";
    EXPECT_EQ(stage.PixelAt(30, 39), kBlue);
    EXPECT_EQ(stage.PixelAt(30, 41), kBlue);
    EXPECT_EQ(stage.PixelAt(30, 42), kWhite);
    EXPECT_EQ(stage.PixelAt(60, 40), kWhite) << "a surface cuts what goes beyond it";
    surface.PaintPicture(Plain(5, 5, kBlue), {40 * row.unit, 0});
    EXPECT_EQ(stage.PixelAt(54, 14), kBlue);
    EXPECT_EQ(stage.PixelAt(55, 14), kWhite);
    surface.Clear();
    EXPECT_EQ(stage.Count(kWhite), 10000);
  }
}

TEST(Rasteriser, ButtonsContainTheirPictures) {
  const struct {
    const char* why;
    int width;
    int height;
    PixelRect shown;  // in a button of 40 by 40 at 10, 10
  } rows[] = {
      {"a small picture is not enlarged", 10, 6, {25, 27, 10, 6}},
      {"a wide one is made smaller, not narrower", 80, 20, {10, 25, 40, 10}},
      {"a high one too", 20, 80, {25, 10, 10, 40}},
      {"one that fits", 40, 40, {10, 10, 40, 40}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.why);
    Stage stage;
    PictureButton button(stage.host, &stage.form, "button");
    Stage::Place(button, 10, 10, 40, 40);
    button.SetPicture(Plain(row.width, row.height, kRed));
    EXPECT_EQ(stage.Count(kRed), row.shown.width * row.shown.height);
    EXPECT_EQ(stage.PixelAt(row.shown.left, row.shown.top), kRed);
    EXPECT_EQ(stage.PixelAt(row.shown.Right() - 1, row.shown.Bottom() - 1), kRed);
    button.SetEnabled(false);
    EXPECT_EQ(stage.Count(kRed), 0) << "a disabled one is pale";
    EXPECT_EQ(stage.PixelAt(row.shown.left, row.shown.top) >> 16U, 0xFFFFU) << "but still red";
  }
}

TEST(Rasteriser, TransparentPixelsOfAPictureLetThrough) {
  Covered stage;
  PictureButton button(stage.host, &stage.form, "button");
  Stage::Place(button, 0, 0, 10, 10);
  button.SetPicture(Plain(10, 10, 0x000000FFU));
  EXPECT_EQ(stage.PixelAt(5, 5), kRed);
  button.SetPicture(Plain(10, 10, 0x800000FFU));
  EXPECT_EQ(stage.PixelAt(5, 5), 0xFF7F0080U) << "half of both";
}

TEST(Rasteriser, TextsAndPagesFillWhatTheyCover) {
  Covered stage;
  RichText text(stage.host, &stage.form, "text");
  Stage::Place(text, 0, 0, 20, 20);
  text.SetBackColor(kBlueControl);
  EXPECT_EQ(stage.PixelAt(2, 2), kRed) << "a text control without text is not seen";
  text.SetText(" ");
  EXPECT_EQ(stage.PixelAt(2, 2), kBlue);
  HtmlPane pane(stage.host, &stage.form, "pane");
  Stage::Place(pane, 30, 0, 20, 20);
  EXPECT_EQ(stage.PixelAt(40, 10), kWhite) << "an empty pane is white";
  pane.LoadHtml("<body style='background:blue'>");
  stage.platform->RunPosted();
  EXPECT_EQ(stage.PixelAt(40, 10), kBlue);
}

TEST(Rasteriser, WritesTheWholeFormAsAFile) {
  Covered stage;
  const auto picture = DecodePicture(FormAsPng(stage.form), "form");
  EXPECT_EQ(picture->WidthPixels(), 100);
  EXPECT_EQ(picture->HeightPixels(), 100);
  EXPECT_EQ(picture->pixels()[49 * 100 + 49], kRed);
  EXPECT_EQ(picture->pixels()[50 * 100 + 50], kWhite);
}

}  // namespace
}  // namespace zav

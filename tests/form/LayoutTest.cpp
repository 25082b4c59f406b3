// Where the parts of an item stand once it is shown.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "form/FormCore.h"
#include "support/SmallItem.h"

namespace zav {
namespace {

TEST(StemPane, IsAsHighAsItsTextButNoMoreThanHalf) {
  std::string lines;
  for (int i = 0; i < 60; ++i) lines += "&lt;br>line";
  for (const bool isLong : {false, true}) {
    ItemFixture item(SmallItem({{"What goes where?", isLong ? lines : "Short"}}));
    const HtmlPane& stem = item.form().controls.txtItemStem;
    const float content = static_cast<float>(stem.ContentHeightPixels()) * 15;
    const float height = item.form().controls.spSplitter.Pane("ItemStem").rect.height;
    // Half of 11520 less ten pixels; or the text and ten pixels, but at least 600.
    EXPECT_EQ(height, isLong ? 5760 - 150 : std::max(content + 150, 600.0F));
    EXPECT_EQ(stem.scrollsItself(), isLong);
  }
}

TEST(WorkPicture, StandsInTheMiddleOrAtTheLeft) {
  const struct {
    const char* why;
    const char* width;
    float left;  // the work area's scroller is 15120 - 90 - 2775 = 12255 wide
  } rows[] = {
      {"narrower than its scroller", "Width=\"7500\"", (12255 - 7500 - 150) / 2.0F},
      {"with its margin it just fits", "Width=\"12105\"", 0},
      {"wider", "Width=\"13500\"", 0},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem({{"Width=\"7500\"", row.width}}));
    EXPECT_EQ(item.form().controls.scrWork.width(), 12255) << row.why;
    EXPECT_EQ(item.form().controls.pcWork.left(), row.left) << row.why;
  }
}

TEST(SourceItems, StandUnderTheirHeadingAndBlankOnesTakeNoRoom) {
  for (const char* location : {"\"Left\"", "\"Top\""}) {
    ItemFixture item(SmallItem({{"\"Left\"", location}, {"<Body>one</Body>", "<Body>  </Body>"}}));
    const FormControls& controls = item.form().controls;
    EXPECT_FALSE(controls.txtSource[1].visible()) << location;
    EXPECT_EQ(controls.txtSource[1].height(), 0) << location;
    const auto cover = [&](int source) { return controls.imgSourceCover[source].rect(); };
    const auto heading = [&](int group) { return controls.txtSourceHeading[group].rect(); };
    for (const int source : {2, 3, 6}) {
      EXPECT_GT(cover(source).top, heading(1).Bottom()) << location << source;
      EXPECT_LE(cover(source).Right(), heading(1).Right()) << location << source;
      EXPECT_EQ(cover(source).width, 1500) << location << source;
    }
    for (const int source : {4, 5}) {
      EXPECT_GT(cover(source).top, heading(2).Bottom()) << location << source;
      EXPECT_GE(cover(source).left, heading(2).left) << location << source;
    }
    const bool above = heading(2).top >= cover(6).Bottom();
    EXPECT_EQ(above, location == std::string("\"Left\"")) << "below each other, or side by side";
  }
}

TEST(GroupHeadings, AreAsHighAsTheirPagesAtTheirWidths) {
  const std::string words = "All that goes into the first row or right below it: Group ";
  for (const char* location : {"\"Left\"", "\"Top\""}) {
    ItemFixture item(SmallItem({{"\"Left\"", location}, {"&gt;Group ", "&gt;" + words}}));
    for (const int width : {1024, 533, 900}) {
      item.host.Resize(width, 600);
      for (const int group : {1, 2}) {
        const HtmlPane& heading = item.form().controls.txtSourceHeading[group];
        EXPECT_EQ(heading.height(), static_cast<float>(heading.ContentHeightPixels()) * 15)
            << location << " " << width << " " << group;
      }
    }
  }
}

TEST(Splitter, StaysAsTheCandidateLeftIt) {
  ItemFixture item(SmallItem());
  item.candidate.DragSplitter("ItemStem", 200);
  item.candidate.DragSplitter("SourceArea", 300);
  item.host.Resize(1200, 900);
  const Splitter& splitter = item.form().controls.spSplitter;
  EXPECT_EQ(splitter.Pane("ItemStem").rect.height, 3000);
  EXPECT_EQ(splitter.Pane("SourceArea").rect.width, 4500);
  EXPECT_EQ(item.form().controls.scrWork.rect().Bottom(),
            item.form().controls.pcWorkContainer.height());
}

// Cards, wells and frames stand out of an item by a pixel at its left and three above, and end with
// it at the right and below.
TEST(ItemFrame, EndsWithItsItem) {
  ItemFixture item(SmallItem());
  const FormControls& controls = item.form().controls;
  const auto has = [](const PictureBox& surface, const Rect& rect) {
    const auto& drawn = surface.drawn();
    return std::any_of(drawn.begin(), drawn.end(), [&](const DrawnShape& shape) {
      return shape.kind == DrawnShape::Kind::FilledBox && shape.x1 == rect.left &&
             shape.y1 == rect.top && shape.x2 == rect.Right() && shape.y2 == rect.Bottom();
    });
  };
  EXPECT_TRUE(has(controls.pcWork, {39, 17, 101, 43})) << "target A: 100 by 40 at 40, 20";
  const PictureButton& source = controls.imgSource[1];
  EXPECT_TRUE(has(controls.pcSource, {source.left() - 15, source.top() - 45, 1515, 645}));
}

}  // namespace
}  // namespace zav

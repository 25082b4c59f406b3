// What a candidate does with the pointer and with Delete, as short stories. After every story the
// item has to be sound: see Faults.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "form/FormCore.h"
#include "form/interaction/DragPicture.h"
#include "support/SmallItem.h"

namespace zav {
namespace {

constexpr float kPixel = 15;
constexpr KeyEvent kDelete{46, false};

// A place of the host's window, as many pixels from a control's corner.
Point At(const Control& control, float x, float y) {
  const Point origin = control.OriginInForm();
  return {origin.x + x * kPixel, origin.y + y * kPixel};
}

const PictureButton& Cover(ItemFixture& item, std::string_view name) {
  const FormControls& controls = item.form().controls;
  if (name[0] == 's') return controls.imgSourceCover[name.back() - '0'];
  return controls.imgTargetCover[name.back() - '@'];
}

void Place(ItemFixture& item, std::string_view source, std::string_view target) {
  item.Drag(source).To(target).Release();
}

bool Dragging(ItemFixture& item) { return item.form().controls.pcDrag.visible(); }

TEST(Threshold, IsMoreThanFourPixelsOnEitherAxis) {
  const struct {
    const char* why;
    float x, y;  // pixels from the press
    bool starts;
  } rows[] = {
      {"no movement", 0, 0, false},           {"exactly four to the right", 4, 0, false},
      {"the fifth to the right", 5, 0, true}, {"exactly four up", 0, -4, false},
      {"the fifth up", 0, -5, true},          {"four on both axes", -4, 4, false},
  };
  for (const char* origin : {"source 2", "target A"}) {
    for (const auto& row : rows) {
      ItemFixture item(SmallItem());
      Place(item, "source 1", "target A");
      const PictureButton& cover = Cover(item, origin);
      item.host.platform().Press(At(cover, 10, 10));
      item.host.platform().MoveTo(At(cover, 10 + row.x, 10 + row.y));
      EXPECT_EQ(Dragging(item), row.starts) << origin << ": " << row.why;
      item.Release().Wait(2000);
      EXPECT_EQ(item.Responses(), "A1") << origin << ": " << row.why;
      EXPECT_EQ(Faults(item), "") << origin << ": " << row.why;
    }
  }
}

TEST(SourceDrag, PlacesGlidesBackOrReplaces) {
  const struct {
    const char* why;
    std::vector<const char*> placed;  // before: source and target of each
    const char* source;
    const char* place;
    std::string want;
    bool glides;
  } rows[] = {
      {"an empty target of its group", {}, "source 1", "target A", "A1", false},
      {"the other group's target refuses it", {}, "source 1", "target D", "", true},
      {"beside every target", {}, "source 1", "nowhere", "", true},
      {"over the source area", {}, "source 1", "source-area", "", true},
      {"an answer value of two digits", {}, "source 5", "target E", "E12", false},
      {"an occupied target: the occupant leaves",
       {"source 1", "target A"},
       "source 3",
       "target A",
       "A3",
       false},
      {"the same item once more", {"source 2", "target A"}, "source 2", "target A", "A2", false},
      {"an item of two uses, twice",
       {"source 2", "target A"},
       "source 2",
       "target C",
       "A2 C2",
       false},
      {"a replacement is written last",
       {"source 1", "target A", "source 2", "target B"},
       "source 3",
       "target A",
       "B2 A3",
       false},
      {"an item of no uses is let through once", {}, "source 6", "target A", "A6", false},
  };
  for (const auto& row : rows) {
    for (const bool left : {true, false}) {
      ItemFixture item(
          SmallItem({{"Location=\"Left\"", left ? "Location=\"top\"" : "Location=\"Top\""}}));
      ASSERT_EQ(item.form().tables.SourceAreaOnLeft, left);
      for (std::size_t i = 0; i < row.placed.size(); i += 2) {
        Place(item, row.placed[i], row.placed[i + 1]);
      }
      Place(item, row.source, row.place);
      EXPECT_EQ(Dragging(item), row.glides) << row.why;
      item.Wait(2000);
      EXPECT_EQ(item.Responses(), row.want) << row.why;
      EXPECT_EQ(Faults(item), "") << row.why;
    }
  }
}

TEST(SourceDrag, ShowsWhatADropWouldDo) {
  const struct {
    const char* why;
    const char* source;
    const char* place;
    Pointer cover;
    Pointer itself;
    int highlighted;
    std::string hint;
  } rows[] = {
      {"an empty target", "source 3", "target C", Pointer::Custom, Pointer::Arrow, 3, ""},
      {"another item's target", "source 3", "target A", Pointer::Custom, Pointer::Arrow, 1,
       "Replace"},
      {"the very item's target", "source 2", "target B", Pointer::Custom, Pointer::Arrow, 2, ""},
      {"the other group's", "source 3", "target D", Pointer::NoDrop, Pointer::NoDrop, 4, ""},
      {"no target", "source 3", "nowhere", Pointer::Custom, Pointer::Default, 0, ""},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    Place(item, "source 1", "target A");
    Place(item, "source 2", "target B");
    item.Drag(row.source).To("target A").To(row.place);
    const FormControls& controls = item.form().controls;
    const int index = row.source[7] - '0';
    EXPECT_EQ(controls.imgSourceCover[index].pointer(), row.cover) << row.why;
    EXPECT_EQ(controls.imgSource[index].pointer(), row.itself) << row.why;
    EXPECT_EQ(controls.txtSource[index].pointer(), row.itself) << row.why;
    EXPECT_EQ(item.form().drag.HighlightedTarget, row.highlighted) << row.why;
    EXPECT_EQ(controls.pcdroptext.visible() ? controls.lblDropText.caption() : "", row.hint)
        << row.why;
    item.Release().Wait(2000);
    EXPECT_EQ(controls.imgSource[index].pointer(), Pointer::Default) << row.why;
    EXPECT_FALSE(controls.pcdroptext.visible()) << row.why;
    EXPECT_EQ(Faults(item), "") << row.why;
  }
}

TEST(ReplaceHint, TurnsIntoANoticeThatFades) {
  ItemFixture item(SmallItem());
  Place(item, "source 1", "target A");
  item.Drag("source 3").To("target A").Release();
  const FormControls& controls = item.form().controls;
  EXPECT_TRUE(controls.pcdroptext.visible());
  EXPECT_EQ(controls.lblDropText.caption(), "Replaced");
  item.Wait(749);
  EXPECT_TRUE(controls.pcdroptext.visible());
  item.Wait(1);
  EXPECT_FALSE(controls.pcdroptext.visible());
  EXPECT_TRUE(controls.imgSourceCover[1].enabled()) << "the occupant can be used again";
  EXPECT_FALSE(controls.imgSourceCover[3].enabled());
}

TEST(ReplaceHint, StandsInTheVisiblePartOfTheWorkArea) {
  const struct {
    const char* why;
    const char* edit;
    float left, top;  // pixels of the work picture
  } rows[] = {
      // The item is 100 x 40, the hint 150 x 24, the work area 500 x 300 or more.
      {"centred below, five pixels away", R"(Top="300" Left="600")", 15, 65},
      {"pushed back from the left edge", R"(Top="300" Left="0")", 0, 65},
      {"pushed back from the right edge", R"(Top="300" Left="6000")", 350, 65},
      {"above, where the picture ends below", R"(Top="3900" Left="600")", 15, 231},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem({{R"(Top="300" Left="600")", row.edit}}));
    Place(item, "source 1", "target A");
    item.Drag("source 3").To("target A");
    const PictureBox& hint = item.form().controls.pcdroptext;
    EXPECT_EQ(hint.left(), row.left) << row.why;
    EXPECT_EQ(hint.top(), row.top) << row.why;
  }
  ItemFixture item(SmallItem({{R"(Top="300" Left="600")", R"(Top="3900" Left="600")"}}),
                   OnScreen(1024, 520));
  item.candidate.ScrollToEnd(Area::Work);
  Place(item, "source 1", "target A");
  item.Drag("source 3").To("target A");
  const FormControls& controls = item.form().controls;
  EXPECT_EQ(controls.pcdroptext.top() + controls.pcdroptext.height(), 255)
      << "above, where there is no room below";
}

TEST(UseCount, RefusesAnItemThatIsPlacedMoreOftenThanAllowed) {
  const struct {
    const char* why;
    std::int16_t allowed, counted;
    bool refused;
    const char* message;
  } rows[] = {
      {"fewer than allowed", 2, 1, false, ""},
      {"as often as allowed", 2, 2, false, ""},
      {"more often", 2, 3, true, "Number of times that this item may be used: 2."},
      {"a number of two digits", 12, 13, true, "Number of times that this item may be used: 12."},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    item.form().tables.SourceUses(2, 1) = row.allowed;
    item.form().tables.SourceUses(2, 2) = row.counted;
    Place(item, "source 2", "target A");
    item.Wait(2000);
    EXPECT_EQ(item.Responses(), row.refused ? "" : "A2") << row.why;
    EXPECT_FALSE(Dragging(item)) << row.why;
    EXPECT_EQ(item.form().drag.HighlightedTarget, 0) << row.why;
    const std::vector<ShownMessage>& messages = item.host.parent().messages();
    ASSERT_EQ(messages.size(), row.refused ? 1U : 0U) << row.why;
    if (!row.refused) continue;
    EXPECT_EQ(messages[0].text, row.message) << row.why;
    EXPECT_EQ(messages[0].style, 0) << row.why;
    EXPECT_EQ(messages[0].title, "Drag and drop question") << row.why;
  }
}

TEST(UsedUpItem, IsGreyAndDisabledUntilAnUseIsFree) {
  ItemFixture item(SmallItem());
  const FormControls& controls = item.form().controls;
  Place(item, "source 2", "target A");
  EXPECT_TRUE(controls.imgSourceCover[2].enabled()) << "one of two uses is left";
  Place(item, "source 2", "target B");
  EXPECT_EQ(controls.txtSource[2].backColor(), color::kButtonFace);
  EXPECT_EQ(controls.txtSource[2].foreColor(), color::kWhite);
  EXPECT_EQ(controls.imgSource[2].backColor(), color::kButtonFace);
  EXPECT_FALSE(controls.imgSource[2].enabled());
  EXPECT_FALSE(controls.imgSourceCover[2].enabled());
  Place(item, "source 2", "target C");
  EXPECT_EQ(item.Responses(), "A2 B2") << "what is disabled cannot be dragged";
  item.Delete("target A");
  EXPECT_EQ(controls.txtSource[2].backColor(), color::kWhite);
  EXPECT_EQ(controls.txtSource[2].foreColor(), color::kBlack);
  EXPECT_TRUE(controls.imgSource[2].enabled());
  EXPECT_TRUE(controls.imgSourceCover[2].enabled());
  EXPECT_EQ(Faults(item), "");
}

TEST(TargetDrag, MovesReplacesOrEmpties) {
  const struct {
    const char* why;
    const char* from;
    const char* to;
    std::string want;       // A1 B2 C2 D4 before
    std::vector<int> uses;  // of sources 1, 2 and 4
  } rows[] = {
      {"its own target", "target A", "target A", "A1 B2 C2 D4", {1, 2, 1}},
      {"an empty target", "target D", "target E", "A1 B2 C2 E4", {1, 2, 1}},
      {"an occupied target: its item leaves", "target A", "target B", "C2 D4 B1", {1, 1, 1}},
      {"a target that holds the same item", "target B", "target C", "A1 D4 C2", {1, 1, 1}},
      {"a target of the other group", "target A", "target E", "A1 B2 C2 D4", {1, 2, 1}},
      {"the source area", "target A", "source-area", "B2 C2 D4", {0, 2, 1}},
      {"outside every target", "target C", "nowhere", "A1 B2 D4", {1, 1, 1}},
      {"from an empty target nothing is dragged", "target E", "target D", "A1 B2 C2 D4", {1, 2, 1}},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    Place(item, "source 1", "target A");
    Place(item, "source 2", "target B");
    Place(item, "source 2", "target C");
    Place(item, "source 4", "target D");
    Place(item, row.from, row.to);
    item.Wait(2000);
    EXPECT_EQ(item.Responses(), row.want) << row.why;
    EXPECT_EQ((std::vector{UsesOf(item, 1), UsesOf(item, 2), UsesOf(item, 4)}), row.uses)
        << row.why;
    EXPECT_EQ(Faults(item), "") << row.why;
  }
}

TEST(TargetDrag, GlidesToWhereTheItemBelongs) {
  const struct {
    const char* why;
    const char* to;
    const char* home;
  } rows[] = {
      {"refused: back onto its target", "target D", "target A"},
      {"given back: to its source item", "nowhere", "source 1"},
      {"over the source area too", "source-area", "source 1"},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    Place(item, "source 1", "target A");
    item.Drag("target A").To(row.to).Release();
    const Point home = Cover(item, row.home).OriginInForm();
    EXPECT_TRUE(item.form().controls.tmTimer.enabled()) << row.why;
    EXPECT_NEAR(static_cast<float>(item.form().drag.AnimEndLeft), home.x, 1) << row.why;
    EXPECT_NEAR(static_cast<float>(item.form().drag.AnimEndTop), home.y, 1) << row.why;
    item.Wait(2000);
    EXPECT_FALSE(Dragging(item)) << row.why;
    EXPECT_EQ(Faults(item), "") << row.why;
  }
}

TEST(DeleteKey, EmptiesAnOccupiedTargetAndNothingElse) {
  const struct {
    const char* why;
    const char* target;
    KeyEvent key;
    std::string want;
  } rows[] = {
      {"Delete on an occupied target", "target A", kDelete, "B2"},
      {"Delete on an empty target", "target C", kDelete, "A1 B2"},
      {"Backspace", "target A", {8, false}, "A1 B2"},
      {"a letter", "target A", {68, false}, "A1 B2"},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    Place(item, "source 1", "target A");
    Place(item, "source 2", "target B");
    item.candidate.Focus(*ReadSpot(row.target));
    item.candidate.Key(row.key);
    EXPECT_EQ(item.Responses(), row.want) << row.why;
    EXPECT_EQ(Faults(item), "") << row.why;
  }
}

// What can come between a press and its release. Source 1 lies on target A.
TEST(Interruption, LosesAndDoublesNothing) {
  using Action = std::function<void(ItemFixture&)>;
  const auto free = [](ItemFixture& item) {
    item.host.platform().LoseRelease();
    item.host.platform().MoveTo({0, 0});
  };
  const struct {
    const char* why;
    Action action;
    std::string want;  // what a drag of source 3 to C, then released, adds, comes after it
  } rows[] = {
      {"the release is lost, and the pointer comes by again",
       [&](ItemFixture& item) {
         free(item);
         item.host.platform().MoveTo(At(Cover(item, "source 2"), 5, 5));
       },
       "A1"},
      {"the release is lost, and the pointer comes over a target",
       [&](ItemFixture& item) {
         free(item);
         item.host.platform().MoveTo(At(Cover(item, "target C"), 5, 5));
       },
       "A1"},
      {"the release is lost, and another source item is dragged",
       [](ItemFixture& item) {
         item.host.platform().LoseRelease();
         Place(item, "source 6", "target B");
       },
       "A1 B6"},
      {"the release is lost, and another target's item is dragged",
       [](ItemFixture& item) {
         item.host.platform().LoseRelease();
         Place(item, "target A", "target B");
       },
       "B1"},
      {"the system takes the pointer", [](ItemFixture& item) { item.host.platform().Cancel(); },
       "A1"},
      {"a second press, then the drag goes on",
       [](ItemFixture& item) {
         item.host.platform().Press({7000, 5000});
         item.To("nowhere").Release().Wait(2000);
       },
       ""},
      {"the item is hidden and shown again",
       [](ItemFixture& item) {
         item.host.Hide();
         EXPECT_FALSE(Dragging(item));
         item.host.Show();
       },
       "A1"},
      {"another state comes in",
       [](ItemFixture& item) {
         item.host.SetState("<State><Responses><Response>B1</Response></Responses></State>");
         item.host.Show();
       },
       "B1"},
      {"the item is built anew",
       [](ItemFixture& item) { item.host.item().Redisplay(0, 0, 15360, 11520); }, "A1"},
      {"Delete while the button is down",
       [](ItemFixture& item) {
         item.candidate.Focus(*ReadSpot("target A"));
         item.candidate.Key(kDelete);
         item.host.platform().Cancel();
       },
       "A1"},
  };
  for (const char* origin : {"source 2", "target A"}) {
    for (const auto& row : rows) {
      const std::string story = std::string(origin) + ": " + row.why;
      ItemFixture item(SmallItem());
      Place(item, "source 1", "target A");
      item.Drag(origin).To("target D");
      row.action(item);
      item.Release().Wait(2000);
      const bool dragged = row.want.empty();  // the drag went on: a source item glides back
      const std::string want = dragged ? (origin[0] == 's' ? "A1" : "") : row.want;
      EXPECT_EQ(item.Responses(), want) << story;
      EXPECT_EQ(Faults(item), "") << story;
      Place(item, "source 3", "target C");
      EXPECT_EQ(item.Responses(), want + (want.empty() ? "C3" : " C3")) << story;
      EXPECT_EQ(Faults(item), "") << story;
    }
  }
}

// What is carried without a button goes back when something else changes the placements.
TEST(Interruption, OfCarryingGivesTheItemBack) {
  const struct {
    const char* why;
    void (*act)(ItemFixture&);
    std::string want;
  } rows[] = {
      {"Reset", [](ItemFixture& item) { item.candidate.ClickButton("btnReset"); }, ""},
      {"Set Answers", [](ItemFixture& item) { item.candidate.ClickButton("btnSetAnswers"); },
       "A1 B2 D12"},
      {"another state",
       [](ItemFixture& item) {
         item.host.SetState("<State><Responses><Response>B1</Response></Responses></State>");
         item.host.Show();
       },
       "B1"},
      {"a drag", [](ItemFixture& item) { Place(item, "source 2", "target B"); }, "A3 B2"},
  };
  for (const char* carried : {"target A", "source 1"}) {
    for (const auto& row : rows) {
      ItemFixture item(SmallItem(), WithOptions(0x10));
      Place(item, "source 3", "target A");
      item.Click(carried);
      row.act(item);
      item.Click("target C");
      EXPECT_EQ(item.Responses(), row.want) << carried << ": " << row.why;
      EXPECT_EQ(Faults(item), "") << carried << ": " << row.why;
    }
  }
}

TEST(Interruption, OfAGlideEndsIt) {
  ItemFixture item(SmallItem());
  item.Drag("source 1").To("target D").Release().Wait(50);
  EXPECT_TRUE(Dragging(item));
  item.Drag("source 2").To("target A");
  EXPECT_FALSE(item.form().controls.tmTimer.enabled()) << "the next drag has the picture";
  item.Release();
  EXPECT_EQ(item.Responses(), "A2");
  item.Drag("source 1").To("target D").Release().Wait(50);
  for (const char* target : {"target B", "target C"}) {
    item.candidate.Focus(*ReadSpot(target));
    item.candidate.Key({13, false});
  }
  EXPECT_EQ(item.Responses(), "A2") << "an empty target gives nothing to carry";
  EXPECT_EQ(Faults(item), "");
  item.Wait(2000);
  item.Drag("source 1").To("target D").Release().Wait(50);
  item.host.Hide();
  EXPECT_FALSE(Dragging(item));
  EXPECT_EQ(Faults(item), "");
}

TEST(DropPlace, IsWhereThePointerIsWhateverIsScrolled) {
  const struct {
    const char* why;
    int width, height;
    bool left, scrolled;
    const char* source;
    const char* target;
    std::string want;
  } rows[] = {
      {"roomy, at the left", 1024, 768, true, false, "source 4", "target D", "D4"},
      {"roomy, on top", 1024, 768, false, false, "source 4", "target D", "D4"},
      {"narrow, scrolled to the end", 640, 480, true, true, "source 4", "target D", "D4"},
      {"low, scrolled to the end", 900, 480, false, true, "source 4", "target D", "D4"},
      {"both areas scrolled", 600, 420, true, true, "source 6", "target C", "C6"},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem({{"\"Left\"", row.left ? "\"Left\"" : "\"Top\""}}),
                     OnScreen(row.width, row.height));
    if (row.scrolled) {
      item.candidate.ScrollToEnd(Area::Work);
      item.candidate.ScrollToEnd(Area::Source);
    }
    Place(item, row.source, row.target);
    EXPECT_EQ(item.Responses(), row.want) << row.why;
    // The item lies where it was dropped, and can be taken from there.
    item.Drag(row.target).To("source-area").Release().Wait(2000);
    EXPECT_EQ(item.Responses(), "") << row.why;
    EXPECT_EQ(Faults(item), "") << row.why;
  }
}

TEST(DropPlace, ReachesAsFarAsTheSnapMargins) {
  const struct {
    const char* why;
    char target;
    float x, y;  // pixels from the target's corner; the target is 100 x 40
    std::string want;
  } rows[] = {
      {"just inside the left margin of half the width", 'C', -49, 20, "C1"},
      {"exactly on it is outside", 'C', -50, 20, ""},
      {"just inside the lower margin of half the height", 'C', 50, 59, "C1"},
      {"exactly on it is outside", 'C', 50, 60, ""},
      {"between A and B, which are close: A ends at its edge", 'A', 99, 20, "A1"},
      {"the edge itself is nobody's", 'A', 100, 20, ""},
      {"the gap is nobody's", 'A', 120, 20, ""},
      {"B begins behind its edge", 'A', 141, 20, "B1"},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    item.Drag("source 1").To("nowhere");
    item.host.platform().MoveTo(At(Cover(item, std::string("target ") + row.target), row.x, row.y));
    item.Release().Wait(2000);
    EXPECT_EQ(item.Responses(), row.want) << row.why;
  }
}

TEST(Glide, TakesATenthOfTheWayATick) {
  const struct {
    const char* why;
    Point from;
    std::int32_t left, top;
    int ticks;
    std::int32_t stepX, stepY;
    Point after;  // one tick; 0,0 when the glide has ended
  } rows[] = {
      {"both axes", {100, 100}, 1100, 600, 9, 100, 50, {200, 150}},
      {"backwards", {1100, 600}, 100, 100, 9, 100, 50, {1000, 550}},
      {"less than ten twips on one axis: ends at once", {100, 100}, 104, 1100, 1, 0, 100, {0, 0}},
      {"2.5 is rounded to even", {0, 0}, 25, 1000, 9, 2, 100, {2, 100}},
      {"3.5 too", {0, 0}, 35, 1000, 8, 4, 100, {4, 100}},
      {"no way at all", {100, 100}, 100, 100, 1, 0, 0, {0, 0}},
  };
  for (const auto& row : rows) {
    ItemFixture item(SmallItem());
    FormControls& controls = item.form().controls;
    DragPicture picture(item.form());
    picture.MoveTo(row.from);
    picture.Show();
    picture.Animate(false, controls.pcDrag, row.left, row.top);
    EXPECT_EQ(item.form().drag.AnimStepX, row.stepX) << row.why;
    EXPECT_EQ(item.form().drag.AnimStepY, row.stepY) << row.why;
    EXPECT_EQ(controls.pcDrag.tag(), "Dragging") << row.why;
    item.Wait(25);
    EXPECT_EQ(controls.pcDrag.left(), row.after.x) << row.why;
    EXPECT_EQ(controls.pcDrag.top(), row.after.y) << row.why;
    int ticks = 1;
    for (; controls.tmTimer.enabled() && ticks < 100; ++ticks) item.Wait(25);
    EXPECT_EQ(ticks, row.ticks) << row.why;
    EXPECT_FALSE(controls.pcDrag.visible()) << row.why;
    EXPECT_EQ(controls.pcDrag.left() + controls.pcDrag.top(), 0) << row.why;
  }
}

TEST(Glide, ToASourceItemGoesWhereItIsScrolledTo) {
  ItemFixture item(SmallItem());
  item.form().controls.scrSource.SetScrollX(40);
  item.form().controls.scrSource.SetScrollY(300);
  DragPicture(item.form()).Animate(true, item.form().controls.pcDrag, 1000, 2000);
  EXPECT_EQ(item.form().drag.AnimEndLeft, 960);
  EXPECT_EQ(item.form().drag.AnimEndTop, 1700);
}

TEST(ScrollPrompts, FlashWhereThereIsMoreToSee) {
  ItemFixture item(SmallItem(), OnScreen(640, 480));
  FormControls& controls = item.form().controls;
  const auto prompts = [&] {
    std::string shown;
    if (controls.ssWorkScroll.visible()) shown += "work ";
    if (controls.ssSourceScroll.visible()) shown += "source ";
    if (controls.ssScrollItemStem.visible()) shown += "stem ";
    return shown;
  };
  item.candidate.ScrollToEnd(Area::Source);
  item.host.Status();
  EXPECT_EQ(prompts(), "") << "the first tick shows them";
  item.Wait(25);
  EXPECT_EQ(prompts(), "work ");
  item.Wait(49 * 25);
  EXPECT_EQ(prompts(), "work ") << "the 50th tick";
  item.Wait(25);
  EXPECT_EQ(prompts(), "");
  EXPECT_TRUE(controls.scrWork.visible());
  EXPECT_FALSE(controls.tmFlash.enabled());
}

}  // namespace
}  // namespace zav

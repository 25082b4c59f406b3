// What changed about the controls of a platform, as one flat sequence of words that the page
// applies. It decides what the page has to know at all: a control that was never seen has no
// element, and is described in full when it comes into sight.
//
// A change is a kind, a control's id, and the values below; a number with a fraction stands in its
// word as a 32-bit float, a text as its offset and length in bytes (UTF-8) within the texts. All
// lengths are CSS pixels, colours 0x00RRGGBB.
//
//   Create   kind, container's id (0: a form), whether it stands in the frame of its container and
//            does not scroll with it, whether it takes the focus, index in its array, name. The
//            control is visible and enabled, a button black and without anything on it.
//   Remove
//   Place    left, top, width, height
//   Visible  0 or 1
//   Order    z-index among the siblings
//   Look     enabled, back colour, fore colour, pointer, pointer picture's number
//   Font     size in points (float), 1 bold | 2 italic | 4 underlined, name
//   Button   picture's number, whether it has a face, caption alignment, caption
//   Label    alignment, caption
//   Pane     margin, whether it has a border, whether it scrolls itself
//   RichText whether it is HTML, text
//   Scroll   width and height of what is scrolled, left and top offset
//   Bars     count, then for each bar: left, top, width, height, whether it is upright
//   Surface  whether it begins anew (else the shapes are drawn over those before), picture's
//            number, count, then for each shape: kind, x1, y1, x2, y2 (floats), pen width, colour,
//            picture's number
//   Form     caption
//
// A picture's number is 0 where there is none.
#pragma once

#include <cstdint>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Control.h"
#include "platform/Font.h"
#include "platform/Picture.h"

namespace zav {

class PictureBox;

// A picture that the page has decoded and knows by a number, 1 or more.
class NumberedPicture : public Picture {
 public:
  NumberedPicture(std::int32_t number, int widthPixels, int heightPixels)
      : Picture(widthPixels, heightPixels), number_(number) {}
  [[nodiscard]] std::int32_t number() const { return number_; }

 private:
  std::int32_t number_;
};

enum class Change : std::int32_t {
  Create = 1,
  Remove,
  Place,
  Visible,
  Order,
  Look,
  Font,
  Button,
  Label,
  Pane,
  RichText,
  Scroll,
  Bars,
  Surface,
  Form,
};

class ChangeBuffer {
 public:
  // Lays out the changes of one Present call; what the call before left is gone.
  void Write(std::span<Control* const> changed, std::span<const ControlId> removed);

  [[nodiscard]] std::span<const std::int32_t> Words() const { return words_; }
  [[nodiscard]] std::string_view Texts() const { return texts_; }

 private:
  // fresh: what was described in full in this call.
  void Announce(const Control& control, std::set<ControlId>& fresh);
  void Describe(const Control& control, unsigned what);
  void DescribePlace(const Control& control);
  void DescribeLook(const Control& control);
  void DescribeFont(const Control& control);
  void DescribeOwnLook(const Control& control);
  // isWhole: nothing of it is known to the page.
  void DescribeContent(const Control& control, bool isWhole);
  void DescribeSurface(const PictureBox& surface, bool isWhole);
  void DescribeBars(const Control& control);

  void Begin(Change change, const Control& control);
  void Put(std::int32_t word) { words_.push_back(word); }
  void PutFloat(float number);
  void PutText(std::string_view text);
  void PutPicture(const PictureRef& picture);

  std::vector<std::int32_t> words_;
  std::string texts_;
  std::set<ControlId> announced_;
};

}  // namespace zav

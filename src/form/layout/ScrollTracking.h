// What the candidate has seen of the item: the end of the stem, and the full width and height of
// the work area and of the source area. Kept in the state section as it grows.
#pragma once

#include "form/StateRecorder.h"

namespace zav {

class ScrollTracking {
 public:
  ScrollTracking(FormCore& form, StateRecorder& recorder) : form_(form), recorder_(recorder) {}

  // After a layout: what is seen now without scrolling. Reports under "SetScrollFlags".
  void SetScrollFlags();

  // The candidate scrolled.
  void scrSource_HScroll();
  void scrSource_VScroll();
  void scrWork_HScroll();
  void scrWork_VScroll();
  void txtItemStem_Scroll();

  // Whether everything has been seen.
  [[nodiscard]] bool ViewedWhole() const;

 private:
  [[nodiscard]] bool ItemStemAtEnd() const;
  [[nodiscard]] static std::int32_t SeenAtOnce(const ScrollFrame& frame);
  void AddSeen(std::int32_t& value, std::int32_t bit, const char* name);
  void WriteValues();

  FormCore& form_;
  StateRecorder& recorder_;
};

}  // namespace zav

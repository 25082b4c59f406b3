// The drag picture: the copy of an item that follows the pointer, and that glides back when the
// item is refused or returned. It stands in twips on the form.
#pragma once

#include <string>

#include "form/FormCore.h"

namespace zav {

// One step of a glide along one axis, from position towards end, and whether it has arrived there.
struct GlideAxis {
  std::int32_t position;
  std::int32_t end;
  std::int32_t step;

  void Advance();
  [[nodiscard]] bool Arrived() const;
};

class DragPicture {
 public:
  explicit DragPicture(FormCore& form) : form_(form) {}

  struct Content {
    PictureRef picture;
    Size pictureSize;  // twips
    std::string pictureTag;
    std::string text;  // exported; "" for none
    Size textSize;     // twips
    std::string textTag;
  };
  // Picture above, text below it. A glide under way ends.
  void Build(const Content& content);
  // Hidden it goes to the form's corner.
  void Show() { form_.controls.pcDrag.Show(); }
  void Hide();
  void MoveTo(Point topLeft) { form_.controls.pcDrag.MoveTo(topLeft.x, topLeft.y); }
  void CentreOn(Point point);
  [[nodiscard]] bool Visible() const { return form_.controls.pcDrag.visible(); }
  [[nodiscard]] bool Gliding() const { return form_.controls.tmTimer.enabled(); }

  // Starts the glide to a place in twips on the form; for a place in the source area, its scroll
  // values are taken off. Reports under "Animate".
  void Animate(bool fromSource, Control& object, std::int32_t x, std::int32_t y);
  // Reports under "tmTimer_Timer".
  void tmTimer_Timer();
  // Ends a glide at once where it was to end.
  void FinishGlide();

 private:
  FormCore& form_;
};

}  // namespace zav

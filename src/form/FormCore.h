// What every room of the form stands on: its controls, tables and states, the owner and the way to
// report an error.
#pragma once

#include "form/DragState.h"
#include "form/FormControls.h"
#include "form/FormOptions.h"
#include "form/ItemTables.h"
#include "form/LayoutState.h"
#include "host/clsErrorDisplay.h"

namespace zav {

class FormCore {
 public:
  FormCore(ControlHost& controlHost, Form& form, clsErrorDisplay& errorDisplay)
      : host(controlHost), controls(controlHost, form), errorDisplay_(errorDisplay) {}

  ControlHost& host;
  FormControls controls;
  ItemTables tables;
  DragState drag;
  LayoutState layout;
  FormOptions options;

  // Null while the form has no owner.
  void SetOwner(ItemOwner* owner) { owner_ = owner; }
  // Raises 91 while the form has no owner.
  [[nodiscard]] ItemOwner& Owner() const;
  [[nodiscard]] zav::DataIO& Document() const { return Owner().DataIO(); }

  // Runs a procedure that reports its errors under that name and then ends normally.
  void Trap(const char* routine, Procedure procedure);

  // Pixels of the running display and twips.
  [[nodiscard]] float TwipsX() const { return static_cast<float>(host.twipsPerPixel().x); }
  [[nodiscard]] float TwipsY() const { return static_cast<float>(host.twipsPerPixel().y); }

  // The size of a group's items in pixels.
  [[nodiscard]] Size ItemPixels(const clsGroup& group) const {
    return {static_cast<float>(group.ItemWidth) / TwipsX(),
            static_cast<float>(group.ItemHeight) / TwipsY()};
  }

 private:
  clsErrorDisplay& errorDisplay_;
  ItemOwner* owner_ = nullptr;
};

}  // namespace zav

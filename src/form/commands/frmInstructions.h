// The instructions of an item, in a window of their own.
#pragma once

#include <string>

#include "controls/Form.h"
#include "controls/HtmlPane.h"

namespace zav {

class frmInstructions : public Form {
 public:
  explicit frmInstructions(ControlHost& controlHost);

  HtmlPane txtInstructions;

  // HTML, its pictures named by full path.
  void SetInstText(std::string text);

 protected:
  void SizeChanged() override { PlacePane(); }

 private:
  void PlacePane();
};

}  // namespace zav

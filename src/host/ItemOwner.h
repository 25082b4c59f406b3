// What the form and the error reporter need of the object that owns them.
#pragma once

#include <string>
#include <vector>

#include "automation/Object.h"
#include "controls/Form.h"
#include "document/DataIO.h"
#include "platform/Font.h"

namespace zav {

class clsErrorDisplay;

// What is called module-level state. Each component has its own, so that a host can prepare the
// next item while one is shown.
struct ModuleState {
  std::string gApplicationTitle;             // the caption of every message box
  clsErrorDisplay* gErrorDisplay = nullptr;  // outlives everything that reports to it
  std::vector<Form*> loadedForms;            // in the order in which they were loaded
};

class ItemOwner {
 public:
  ItemOwner() = default;
  ItemOwner(const ItemOwner&) = delete;
  ItemOwner& operator=(const ItemOwner&) = delete;
  virtual ~ItemOwner() = default;

  // The item document. Raises 91 once the item was freed.
  virtual zav::DataIO& DataIO() = 0;
  virtual ObjectRef ExternalSupport() = 0;  // the host's support object, or nothing
  virtual ObjectRef ExtParent() = 0;        // the host's parent object (mExtParent), or nothing
  virtual WindowHandle ParentWnd() = 0;     // mlParenthWnd
  virtual const Font& FontReg() = 0;        // mFontReg
  virtual ModuleState& Module() = 0;
};

// The host's path for a picture or a page, from one of its objects' GetGraphicsPath.
std::string GetGraphicsPath(const ObjectRef& hostObject, const std::string& fileName);

}  // namespace zav

// Finds controls in a form: by the place that they cover, and by id.
#pragma once

#include "controls/Form.h"

namespace zav {

// The control that is seen at a point of the form, in twips from the form's corner: nothing of a
// control shows outside its container, and of siblings the one that lies over the others counts.
// Disabled controls are seen too. Null for a form that is hidden and for a point beside it.
Control* ControlAt(Form& form, Point at);

// The control of that id among the form and all that it holds, or null.
Control* FindControl(Form& form, ControlId id);

}  // namespace zav

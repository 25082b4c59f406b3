// What becomes of the events that happen in the form's pages: no text can be selected, and no key
// but those with Alt goes further.
#pragma once

#include "controls/HtmlPane.h"

namespace zav {

void SuppressPageEvent(PageEvent& event);

}  // namespace zav

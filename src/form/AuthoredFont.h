// The font and colour that an element of the item gives its text.
#pragma once

#include <cstdint>

#include "document/DataIO.h"
#include "platform/Font.h"

namespace zav {

// From the attributes FontName, FontSize, FontBold, FontItalic and FontUnderline of the current
// element. A name or a size that is missing leaves the default. Raises 13 for a value that does
// not convert.
Font AuthoredFont(const DataIO& document);

}  // namespace zav

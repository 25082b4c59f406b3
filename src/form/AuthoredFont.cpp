#include "form/AuthoredFont.h"

#include "automation/Conversions.h"

namespace zav {

Font AuthoredFont(const DataIO& document) {
  Font font;
  const std::string name = ToText(document.GetAttribute("FontName"));
  if (!name.empty()) font.name = name;
  font.bold = ToBoolean(document.GetAttribute("FontBold"));
  const float size = ToSingle(document.GetAttribute("FontSize"));
  if (size > 0) font.size = size;
  font.underline = ToBoolean(document.GetAttribute("FontUnderline"));
  font.italic = ToBoolean(document.GetAttribute("FontItalic"));
  return font;
}

}  // namespace zav

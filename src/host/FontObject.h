// A font as hosts see it: an automation object with its properties by name.
#pragma once

#include "automation/Object.h"
#include "platform/Font.h"

namespace zav {

class FontObject : public Object {
 public:
  explicit FontObject(Font initial) : font(std::move(initial)) {}

  Font font;

  // Name, Size, Bold, Italic, Underline: read and stored.
  Variant Invoke(std::string_view name, std::span<Variant> arguments,
                 InvokeKind kind = InvokeKind::Call) override;
};

}  // namespace zav

// A value that was read from a document, or none, with the place where it stands.
//
// What cannot be made of a value is refused with an error that begins with the place and the value:
//
//   Target 3: GroupID "x" is no number
//   Group 2, TargetSettings, Caption: missing ForeColor is no colour
//
// The place is looked up only then. Elements are numbered from 1 where several of one name stand
// side by side. Values are the document's own, good until it changes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/FunctionRef.h"
#include "automation/Variant.h"
#include "document/XmlTree.h"

namespace zav {

class DocumentValue {
 public:
  // Of the element's attribute, or, without a name, of the element itself. Null is no value.
  DocumentValue(const XmlTree& tree, XmlTree::NodeId element, std::string_view attribute,
                const std::string* value)
      : tree_(&tree), element_(element), attribute_(attribute), value_{value} {}

  // Empty when there is no value.
  [[nodiscard]] std::string_view View() const { return value_.View(); }
  [[nodiscard]] OptionalText Text() const { return value_; }
  operator Variant() const { return value_; }

  // Raises an error with this number; what is wrong follows place and value in its description.
  [[noreturn]] void Refuse(std::int32_t number, std::string_view problem,
                           std::string_view source = {}) const;
  // Makes something of the value. An error that this raises becomes one of the same number that
  // refuses the value: a number that does not fit "is out of range", everything else is the
  // problem.
  void Use(Procedure make, std::string_view problem = "is no number") const;

 private:
  const XmlTree* tree_;
  XmlTree::NodeId element_;
  std::string_view attribute_;
  OptionalText value_;
};

// The conversions of Conversions.h; what does not convert is refused.
std::int16_t ToInt16(const DocumentValue& value);
std::int32_t ToInt32(const DocumentValue& value);
float ToSingle(const DocumentValue& value);
bool ToBoolean(const DocumentValue& value);
std::int32_t ToColor(const DocumentValue& value);
inline std::string ToText(const DocumentValue& value) { return std::string(value.View()); }

// Round a number that was made of the value, which is refused when the result does not fit.
std::int16_t RoundToInt16(double number, const DocumentValue& value);
std::int32_t RoundToInt32(double number, const DocumentValue& value);

}  // namespace zav

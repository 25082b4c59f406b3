// Judges the prefixes of an XML document's names while its elements open and close.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "document/XmlTree.h"

namespace zav {

class XmlNamespaces {
 public:
  // Takes up the element's declarations, then checks its name and its attributes'. The result says
  // what is wrong and is empty when nothing is.
  std::string Open(std::string_view name, const std::vector<XmlAttribute>& attributes);
  // Drops the declarations that Open took up from the same attributes.
  void Close(const std::vector<XmlAttribute>& attributes);

 private:
  std::string Declare(const XmlAttribute& attribute);
  [[nodiscard]] std::string CheckName(std::string_view name) const;
  [[nodiscard]] std::string CheckSameNames(const std::vector<XmlAttribute>& attributes) const;
  [[nodiscard]] const std::string* Find(std::string_view prefix) const;

  // For each prefix the namespaces that open elements bind it to, innermost last.
  std::map<std::string, std::vector<std::string>, std::less<>> bindings_;
};

// The prefix that the attribute declares, or nothing when it is no declaration of a prefix.
std::string_view DeclaredPrefix(const XmlAttribute& attribute);

}  // namespace zav

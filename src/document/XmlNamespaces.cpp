#include "document/XmlNamespaces.h"

#include <set>
#include <utility>

#include "automation/Text.h"

namespace zav {

namespace {

constexpr std::string_view kDeclaration = "xmlns:";
constexpr std::string_view kXmlNamespace = "http://www.w3.org/XML/1998/namespace";

struct QualifiedName {
  std::string_view prefix;  // empty when there is none
  std::string_view local;
};

QualifiedName Split(std::string_view name) {
  const std::size_t colon = name.find(':');
  if (colon == std::string_view::npos) return {{}, name};
  return {name.substr(0, colon), name.substr(colon + 1)};
}

// Any other colon would be taken for the end of a prefix by some reader.
bool HasStrayColon(std::string_view name) {
  return name.front() == ':' || name.back() == ':' || name.find(':') != name.rfind(':');
}

// What is wrong with the text, as it can stand in a message.
std::string Problem(std::string_view what, std::string_view text, std::string_view rest = {}) {
  return Concatenate({what, " \"", text, "\"", rest});
}

std::string StrayColon(std::string_view name) {
  return Problem("expected a name with at most one prefix, found", name);
}

}  // namespace

std::string_view DeclaredPrefix(const XmlAttribute& attribute) {
  const std::string_view name = attribute.name;
  return name.starts_with(kDeclaration) ? name.substr(kDeclaration.size()) : std::string_view();
}

std::string XmlNamespaces::Open(std::string_view name,
                                const std::vector<XmlAttribute>& attributes) {
  std::string problem;
  for (const XmlAttribute& attribute : attributes) {
    if (problem.empty() && !DeclaredPrefix(attribute).empty()) problem = Declare(attribute);
  }
  if (problem.empty()) problem = CheckName(name);
  for (const XmlAttribute& attribute : attributes) {
    const bool isDeclaration = !DeclaredPrefix(attribute).empty();
    if (problem.empty() && !isDeclaration) problem = CheckName(attribute.name);
  }
  return problem.empty() ? CheckSameNames(attributes) : problem;
}

void XmlNamespaces::Close(const std::vector<XmlAttribute>& attributes) {
  for (const XmlAttribute& attribute : attributes) {
    const auto binding = bindings_.find(DeclaredPrefix(attribute));
    if (binding == bindings_.end()) continue;
    binding->second.pop_back();
    if (binding->second.empty()) bindings_.erase(binding);
  }
}

std::string XmlNamespaces::Declare(const XmlAttribute& attribute) {
  if (HasStrayColon(attribute.name)) return StrayColon(attribute.name);
  const std::string_view prefix = DeclaredPrefix(attribute);
  const bool isXml = prefix == "xml";
  if (prefix == "xmlns" || isXml != (attribute.value == kXmlNamespace)) {
    return Problem("expected no other meaning of a reserved prefix or namespace, found",
                   attribute.name);
  }
  if (attribute.value.empty()) {
    return Problem("expected a namespace, found nothing in", attribute.name);
  }
  bindings_[std::string(prefix)].push_back(attribute.value);
  return {};
}

std::string XmlNamespaces::CheckName(std::string_view name) const {
  if (HasStrayColon(name)) return StrayColon(name);
  const std::string_view prefix = Split(name).prefix;
  if (prefix.empty() || Find(prefix) != nullptr) return {};
  return Problem("expected a declared prefix, found", name);
}

// Two prefixes may be bound to one namespace: then a:x and b:x are the same attribute twice.
std::string XmlNamespaces::CheckSameNames(const std::vector<XmlAttribute>& attributes) const {
  std::set<std::pair<std::string_view, std::string_view>> seen;
  for (const XmlAttribute& attribute : attributes) {
    const QualifiedName name = Split(attribute.name);
    const std::string* space = name.prefix.empty() ? nullptr : Find(name.prefix);
    if (space != nullptr && !seen.emplace(*space, name.local).second) {
      return Problem("expected each attribute once, found", attribute.name, " under two prefixes");
    }
  }
  return {};
}

const std::string* XmlNamespaces::Find(std::string_view prefix) const {
  static const std::string xmlNamespace(kXmlNamespace);
  if (prefix == "xml") return &xmlNamespace;
  const auto binding = bindings_.find(prefix);
  return binding == bindings_.end() ? nullptr : &binding->second.back();
}

}  // namespace zav

#include <utility>

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "automation/MemberTable.h"
#include "document/DataIO.h"

namespace zav {

namespace {

using Arguments = std::span<Variant>;

// What late-bound callers get as a node. It has no members.
class NodeObject : public Object {
 public:
  explicit NodeObject(NodeHandle node) : node_(node) {}

  [[nodiscard]] NodeHandle Node() const { return node_; }

  Variant Invoke(std::string_view name, Arguments /*arguments*/, InvokeKind /*kind*/) override {
    RaiseNoSuchMember(name);
  }

 private:
  NodeHandle node_;
};

// Nothing designates no element.
NodeHandle ToNode(const Variant& value) {
  const ObjectRef object = ToObject(value);
  if (!object) return {};
  const auto* node = dynamic_cast<const NodeObject*>(object.get());
  if (node == nullptr) RaiseError(error_number::kTypeMismatch, "Type mismatch");
  return node->Node();
}

// Rows of the table from functions that are simpler than it wants them; none has a state.
template <typename Action>
constexpr MemberTable<DataIO>::Function Procedure(Action /*action*/) {
  return [](DataIO& document, Arguments arguments) {
    Action()(document, arguments);
    return Variant();
  };
}

template <typename Operation>
constexpr MemberTable<DataIO>::Function Result(Operation /*operation*/) {
  return [](DataIO& document, Arguments arguments) -> Variant {
    return Operation()(document, arguments);
  };
}

// In the order of the interface's slots.
MemberTable<DataIO> Members() {
  using D = DataIO;
  using A = Arguments;
  static constexpr MemberTable<DataIO>::Member kMembers[] = {
      {"SetOwner", 1, Procedure([](D& d, A a) { d.SetOwner(ToObject(a[0]).get()); }), {}},
      {"GetFromRoot", 0, Result([](D& d, A) { return d.GetFromRoot(); }), {}},
      {"SetFromRoot", 1, Procedure([](D& d, A a) { d.SetFromRoot(ToBoolean(a[0])); }), {}},
      {"LoadXml", 1, Procedure([](D& d, A a) { d.LoadXml(ToText(a[0])); }), {}},
      {"MoveToChild", 1, Result([](D& d, A a) { return d.MoveToChild(ToInt32(a[0])); }), {}},
      {"MoveToTop", 0, Result([](D& d, A) { return d.MoveToTop(); }), {}},
      {"MoveToParent", 0, Result([](D& d, A) { return d.MoveToParent(); }), {}},
      {"Clear", 0, Procedure([](D& d, A) { d.Clear(); }), {}},
      {"RemoveNode", 1, Result([](D& d, A a) { return d.RemoveNode(ToText(a[0])); }), {}},
      {"InsertXml",
       2,
       Result([](D& d, A a) { return d.InsertXml(ToText(a[0]), ToText(a[1])); }),
       {}},
      {"GetXml", 0, Result([](D& d, A) { return d.GetXml(); }), {}},
      {"GetNodeXml", 1, Result([](D& d, A a) { return d.GetNodeXml(ToText(a[0])); }), {}},
      {"FindNode", 1, Result([](D& d, A a) { return d.FindNode(ToText(a[0])); }), {}},
      {"HasAttribute", 1, Result([](D& d, A a) { return d.HasAttribute(ToText(a[0])); }), {}},
      {"GetAttribute", 1, Result([](D& d, A a) { return d.GetAttribute(ToText(a[0])); }), {}},
      {"GetText", 0, Result([](D& d, A) { return d.GetText(); }), {}},
      {"SetText", 1, Result([](D& d, A a) { return d.SetText(ToText(a[0])); }), {}},
      {"GetChildText", 1, Result([](D& d, A a) { return d.GetChildText(ToInt32(a[0])); }), {}},
      {"ChildCount", 0, Result([](D& d, A) { return d.ChildCount(); }), {}},
      {"GetChildAttributeByName",
       2,
       Result([](D& d, A a) { return d.GetChildAttributeByName(ToText(a[0]), ToText(a[1])); }),
       {}},
      {"GetChildAttribute",
       2,
       Result([](D& d, A a) { return d.GetChildAttribute(ToInt32(a[0]), ToText(a[1])); }),
       {}},
      {"SetAttribute",
       2,
       Result([](D& d, A a) { return d.SetAttribute(ToText(a[0]), ToText(a[1])); }),
       {}},
      {"AddNode", 2, Result([](D& d, A a) { return d.AddNode(ToText(a[0]), ToText(a[1])); }), {}},
      {"SetCurrentNode", 1, Procedure([](D& d, A a) { d.SetCurrentNode(ToNode(a[0])); }), {}},
      {"GetCurrentNode",
       0,
       Result([](D& d, A) { return ObjectRef(std::make_shared<NodeObject>(d.GetCurrentNode())); }),
       {}},
  };
  return MemberTable<DataIO>(kMembers);
}

}  // namespace

Variant DataIO::Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind kind) {
  return Members().Invoke(*this, name, arguments, kind);
}

}  // namespace zav

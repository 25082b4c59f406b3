#include "host/FontObject.h"

#include "automation/Conversions.h"
#include "automation/MemberTable.h"

namespace zav {
namespace {

using Table = MemberTable<FontObject>;

template <typename Value, Value Font::*kField, Value (*kConvert)(const Variant&)>
constexpr Table::Member Property(std::string_view name) {
  return {name, 0,
          [](FontObject& object, std::span<Variant>) -> Variant { return object.font.*kField; },
          [](FontObject& object, std::span<Variant> arguments) -> Variant {
            object.font.*kField = kConvert(arguments[0]);
            return {};
          }};
}

constexpr Table::Member kMembers[] = {Property<std::string, &Font::name, ToText>("Name"),
                                      Property<float, &Font::size, ToSingle>("Size"),
                                      Property<bool, &Font::bold, ToBoolean>("Bold"),
                                      Property<bool, &Font::italic, ToBoolean>("Italic"),
                                      Property<bool, &Font::underline, ToBoolean>("Underline")};

}  // namespace

Variant FontObject::Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind kind) {
  return Table(kMembers).Invoke(*this, name, arguments, kind);
}

}  // namespace zav

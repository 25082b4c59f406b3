#include "host/FontObject.h"

#include "automation/Conversions.h"
#include "automation/MemberTable.h"

namespace zav {
namespace {

using Table = MemberTable<FontObject>;

template <typename T, typename Convert>
Table::Member Property(const char* name, T Font::*field, Convert convert) {
  return {name, 0,
          [field](FontObject& object, std::span<Variant>) -> Variant { return object.font.*field; },
          [field, convert](FontObject& object, std::span<Variant> arguments) -> Variant {
            object.font.*field = convert(arguments[0]);
            return {};
          }};
}

const Table& Members() {
  static const Table table(
      {Property("Name", &Font::name, ToText), Property("Size", &Font::size, ToSingle),
       Property("Bold", &Font::bold, ToBoolean), Property("Italic", &Font::italic, ToBoolean),
       Property("Underline", &Font::underline, ToBoolean)});
  return table;
}

}  // namespace

Variant FontObject::Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind kind) {
  return Members().Invoke(*this, name, arguments, kind);
}

}  // namespace zav

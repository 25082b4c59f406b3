// A late-bound object's members as one ordered table of names.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "automation/AutomationError.h"
#include "automation/Object.h"
#include "automation/Text.h"

namespace zav {

template <typename T>
class MemberTable {
 public:
  using Function = Variant (*)(T&, std::span<Variant>);

  struct Member {
    std::string_view name;
    std::size_t argumentCount;  // of the call; a put always takes one
    Function call;              // null where the member cannot be read or called
    Function put;               // null where the member cannot be stored
  };

  // The members are not owned: they are constants beside the table.
  constexpr explicit MemberTable(std::span<const Member> members) : members_(members) {}

  [[nodiscard]] constexpr std::span<const Member> Members() const { return members_; }

  // Raises 438 for an unknown name or a kind that the member does not have, 450 for a wrong
  // number of arguments.
  Variant Invoke(T& target, std::string_view name, std::span<Variant> arguments,
                 InvokeKind kind) const {
    for (const Member& member : members_) {
      if (!EqualIgnoringCase(member.name, name)) continue;
      const Function function = kind == InvokeKind::Put ? member.put : member.call;
      if (function == nullptr) break;
      if (arguments.size() != (kind == InvokeKind::Put ? 1 : member.argumentCount)) {
        RaiseError(error_number::kWrongArgumentCount, {"Wrong number of arguments: ", member.name});
      }
      return function(target, arguments);
    }
    RaiseNoSuchMember(name);
  }

 private:
  std::span<const Member> members_;
};

}  // namespace zav

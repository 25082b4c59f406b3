// A late-bound object's members as one ordered table of names.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/AutomationError.h"
#include "automation/Object.h"
#include "automation/Text.h"

namespace zav {

template <typename T>
class MemberTable {
 public:
  using Function = std::function<Variant(T&, std::span<Variant>)>;

  struct Member {
    std::string name;
    std::size_t argumentCount;  // of the call; a put always takes one
    Function call;              // empty where the member cannot be read or called
    Function put;               // empty where the member cannot be stored
  };

  explicit MemberTable(std::vector<Member> members) : members_(std::move(members)) {}

  [[nodiscard]] const std::vector<Member>& Members() const { return members_; }

  // Raises 438 for an unknown name or a kind that the member does not have, 450 for a wrong
  // number of arguments.
  Variant Invoke(T& target, std::string_view name, std::span<Variant> arguments,
                 InvokeKind kind) const {
    for (const Member& member : members_) {
      if (!EqualIgnoringCase(member.name, name)) continue;
      const Function& function = kind == InvokeKind::Put ? member.put : member.call;
      if (!function) break;
      if (arguments.size() != (kind == InvokeKind::Put ? 1 : member.argumentCount)) {
        throw AutomationError(error_number::kWrongArgumentCount,
                              "Wrong number of arguments: " + member.name);
      }
      return function(target, arguments);
    }
    throw AutomationError(error_number::kNoSuchMember,
                          "Object does not support this member: " + std::string(name));
  }

 private:
  std::vector<Member> members_;
};

}  // namespace zav

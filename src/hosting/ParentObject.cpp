#include "hosting/ParentObject.h"

#include <utility>

#include "automation/Conversions.h"
#include "automation/MemberTable.h"
#include "host/clsErrorDisplay.h"

namespace zav {
namespace {

// The low digit of a style says which buttons a message has; 0 is OK alone.
bool AsksSomething(std::int16_t style) { return style % 16 != 0; }

}  // namespace

Variant ParentObject::Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind kind) {
  static constexpr MemberTable<ParentObject>::Member kMembers[] = {
      {"LogError",
       6,
       [](ParentObject& self, std::span<Variant> called) -> Variant {
         self.Log({ToInt32(called[0]), ToText(called[1]), ToText(called[2]), ToText(called[3]),
                   ToText(called[4]), ToInt32(called[5])});
         return {};
       },
       {}},
      {"ShowMessage",
       3,
       [](ParentObject& self, std::span<Variant> called) -> Variant {
         return self.Show({ToText(called[0]), ToInt16(called[1]), ToText(called[2]), 0});
       },
       {}},
      {"GetGraphicsPath",
       1,
       [](ParentObject& self, std::span<Variant> called) -> Variant {
         return self.item_.GraphicsPath(ToText(called[0]));
       },
       {}},
  };
  record_.Add("parent", name, arguments);
  return MemberTable<ParentObject>(kMembers).Invoke(*this, name, arguments, kind);
}

void ParentObject::Log(LogEntry entry) {
  log_.push_back(std::move(entry));
  if (onLogError) onLogError(log_.back());
}

std::int16_t ParentObject::Show(ShownMessage message) {
  const std::int16_t answer = TakeAnswer(message.style);
  message.answer = answer;
  messages_.push_back(std::move(message));
  if (onShowMessage) onShowMessage(messages_.back());
  return answer;
}

std::int16_t ParentObject::TakeAnswer(std::int16_t style) {
  if (!AsksSomething(style) || answers_.empty()) return message_answer::kOk;
  const std::int16_t answer = answers_.front();
  answers_.pop_front();
  return answer;
}

}  // namespace zav

// What was called on the host's objects, in order.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/Conversions.h"
#include "automation/Variant.h"

namespace zav {

struct RecordedCall {
  std::string object;
  std::string member;                  // as the caller wrote it
  std::vector<std::string> arguments;  // as texts; arrays and objects say only what they are
};

class CallRecord {
 public:
  void Add(std::string_view object, std::string_view member, std::span<const Variant> arguments) {
    RecordedCall call{std::string(object), std::string(member), {}};
    for (const Variant& argument : arguments) call.arguments.push_back(TextOf(argument));
    calls_.push_back(std::move(call));
  }

  [[nodiscard]] const std::vector<RecordedCall>& Calls() const { return calls_; }
  void Clear() { calls_.clear(); }

  // The calls as one text each: support.GetGraphicsPath(heart.png).
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const RecordedCall& call : calls_) {
      std::string text = call.object + "." + call.member + "(";
      for (const std::string& argument : call.arguments) {
        if (text.back() != '(') text += ", ";
        text += argument;
      }
      texts.push_back(text + ")");
    }
    return texts;
  }

 private:
  static std::string TextOf(const Variant& argument) {
    if (std::holds_alternative<ObjectRef>(argument)) return "object";
    if (std::holds_alternative<SafeArray>(argument)) return "array";
    return ToText(argument);
  }

  std::vector<RecordedCall> calls_;
};

}  // namespace zav

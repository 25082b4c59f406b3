// Objects of both sides: those that live in JavaScript, as the component calls them, and those of
// the component, as JavaScript keeps them.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/AutomationError.h"
#include "automation/Object.h"
#include "host/PendingAnswer.h"
#include "platform/web/Browser.h"
#include "platform/web/VariantCodec.h"

namespace zav {

class PageObjects final : public ObjectNumbers {
 public:
  // The browser outlives it, and it outlives every object that it makes.
  explicit PageObjects(Browser& browser) : browser_(browser) {}

  std::int32_t PageNumberOf(const Object& object) override;
  ObjectRef PageObject(std::int32_t number) override;
  std::int32_t KeepNative(const ObjectRef& object) override;
  ObjectRef NativeObject(std::int32_t number) override;
  ObjectRef Question(std::int32_t number) override;

  void ReleaseNative(std::int32_t number) { natives_.erase(number); }
  // Nothing happens for a question that nobody waits for.
  void Answer(std::int32_t question, std::int16_t answer);

  // A call from JavaScript: the answer says 0, then the result and the arguments as the member left
  // them; or what was raised: its number, source and description. Raises nothing.
  std::vector<std::uint8_t> InvokeNative(std::int32_t number, std::string_view member,
                                         std::span<const std::uint8_t> arguments, InvokeKind kind);

  // The other way round. Raises what the JavaScript object threw.
  Variant InvokePage(std::int32_t number, std::string_view member, std::span<Variant> arguments,
                     InvokeKind kind);
  void ReleasePage(std::int32_t number) { browser_.ReleaseObject(number); }

 private:
  Browser& browser_;
  std::map<std::int32_t, ObjectRef> natives_;
  std::map<std::int32_t, std::weak_ptr<PendingAnswer>> questions_;
  std::int32_t lastNative_ = 0;
};

}  // namespace zav

#include "platform/web/PageObjects.h"

#include <utility>

namespace zav {
namespace {

// An object that lives in JavaScript. The page keeps it until this one goes.
class JavaScriptObject final : public Object {
 public:
  JavaScriptObject(PageObjects& objects, std::int32_t number)
      : objects_(objects), number_(number) {}
  ~JavaScriptObject() override { objects_.ReleasePage(number_); }

  [[nodiscard]] std::int32_t number() const { return number_; }

  Variant Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind kind) override {
    return objects_.InvokePage(number_, name, arguments, kind);
  }

 private:
  PageObjects& objects_;
  std::int32_t number_;
};

}  // namespace

std::int32_t PageObjects::PageNumberOf(const Object& object) {
  const auto* page = dynamic_cast<const JavaScriptObject*>(&object);
  return page == nullptr ? 0 : page->number();
}

ObjectRef PageObjects::PageObject(std::int32_t number) {
  return std::make_shared<JavaScriptObject>(*this, number);
}

std::int32_t PageObjects::KeepNative(const ObjectRef& object) {
  natives_[++lastNative_] = object;
  return lastNative_;
}

ObjectRef PageObjects::NativeObject(std::int32_t number) {
  const auto found = natives_.find(number);
  return found == natives_.end() ? nullptr : found->second;
}

ObjectRef PageObjects::Question(std::int32_t number) {
  auto question = std::make_shared<PendingAnswer>();
  question->onDropped = [this, number] {
    questions_.erase(number);
    browser_.DropQuestion(number);
  };
  questions_[number] = question;
  return question;
}

void PageObjects::Answer(std::int32_t question, std::int16_t answer) {
  const auto found = questions_.extract(question);
  if (found.empty()) return;
  if (const auto pending = found.mapped().lock()) pending->Answer(answer);
}

std::vector<std::uint8_t> PageObjects::InvokeNative(std::int32_t number, std::string_view member,
                                                    std::span<const std::uint8_t> arguments,
                                                    InvokeKind kind) {
  VariantWriter answer(*this);
  try {
    VariantReader reader(*this, arguments);
    std::vector<Variant> values;
    while (!reader.AtEnd()) values.push_back(reader.Read());
    const ObjectRef object = NativeObject(number);
    const Variant result = Require(object).Invoke(member, values, kind);
    answer.WriteNumber(0);
    answer.Write(result);
    for (const Variant& value : values) answer.Write(value);
    return answer.Bytes();
  } catch (...) {
    const AutomationError error = CurrentError();
    VariantWriter raised(*this);
    raised.WriteNumber(error.Number());
    raised.WriteText(error.Source());
    raised.WriteText(error.Description());
    return raised.Bytes();
  }
}

Variant PageObjects::InvokePage(std::int32_t number, std::string_view member,
                                std::span<Variant> arguments, InvokeKind kind) {
  VariantWriter writer(*this);
  for (const Variant& argument : arguments) writer.Write(argument);
  const std::vector<std::uint8_t> bytes =
      browser_.Invoke(number, member, writer.Bytes(), kind == InvokeKind::Put);
  VariantReader reader(*this, bytes);
  if (const std::int32_t raised = reader.ReadNumber(); raised != 0) {
    std::string source = reader.ReadText();
    RaiseError(raised, reader.ReadText(), std::move(source));
  }
  Variant result = reader.Read();
  for (Variant& argument : arguments) argument = reader.Read();
  return result;
}

}  // namespace zav

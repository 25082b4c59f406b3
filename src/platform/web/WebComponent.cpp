#include "platform/web/WebComponent.h"

#include <string>

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "hosting/CaseStudy.h"
#include "hosting/ScoreEngine.h"

namespace zav {

std::shared_ptr<WebComponent> WebComponent::Make(Browser& browser, PageObjects& objects,
                                                 ComponentNumber number) {
  auto component = std::make_shared<WebComponent>(browser, objects, number);
  component->item_->KeepWith(component);
  return component;
}

WebComponent::WebComponent(Browser& browser, PageObjects& objects, ComponentNumber number)
    : objects_(objects), platform_(browser, number), pointer_(platform_) {
  RegisterScoreEngine(classes_, [this](const std::string& message) { LogScoring(message); });
  RegisterCaseStudy(classes_, platform_.platform());
  item_ = std::make_shared<clsDragDrop>(platform_.platform(), classes_);
}

WebComponent::~WebComponent() {
  try {
    item_->FreeExternalDisplay();
  } catch (...) {  // who wants to know frees the item before
  }
}

void WebComponent::RegisterClass(std::string_view progId, std::int32_t factory) {
  const ObjectRef maker = objects_.PageObject(factory);
  classes_.Register(progId, [maker] { return ToObject(maker->Call("Create")); });
}

void WebComponent::LogScoring(const std::string& message) {
  Require(item_->mExtParent)
      .Call("LogError", error_number::kInvalidArgument, message, std::string("ScoreEngine"),
            std::string(), std::string("CalculateScore"), std::int32_t{0});
}

}  // namespace zav

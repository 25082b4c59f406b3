// One item on a page: the component, the platform under it, and the classes that it may create.
//
// The reference scoring engine and the reference case study serve where the page registers none of
// its own.
#pragma once

#include <memory>
#include <string_view>

#include "automation/ClassRegistry.h"
#include "host/clsDragDrop.h"
#include "platform/web/PageObjects.h"
#include "platform/web/PointerInput.h"
#include "platform/web/WebPlatform.h"

namespace zav {

class WebComponent {
 public:
  // Lives until it is let go and nothing of the item is on the stack any more.
  static std::shared_ptr<WebComponent> Make(Browser& browser, PageObjects& objects,
                                            ComponentNumber number);
  // Both outlive it.
  WebComponent(Browser& browser, PageObjects& objects, ComponentNumber number);
  WebComponent(const WebComponent&) = delete;
  WebComponent& operator=(const WebComponent&) = delete;
  // Frees the item, whatever its host says to that.
  ~WebComponent();

  [[nodiscard]] WebPlatform& platform() { return platform_; }
  [[nodiscard]] PointerInput& pointer() { return pointer_; }
  [[nodiscard]] const std::shared_ptr<clsDragDrop>& item() const { return item_; }

  // Objects of that class come from the page: its function of that number makes them.
  void RegisterClass(std::string_view progId, std::int32_t factory);

 private:
  void LogScoring(const std::string& message);

  PageObjects& objects_;
  WebPlatform platform_;
  PointerInput pointer_;
  ClassRegistry classes_;
  std::shared_ptr<clsDragDrop> item_;
};

}  // namespace zav

// How item HTML and chrome pages get into a pane: pictures first, then the page.
#pragma once

#include <string>

#include "form/FormCore.h"

namespace zav {

class PageLoading {
 public:
  explicit PageLoading(FormCore& form) : form_(form) {}

  // Where the form's own pictures and temporary pages live; ends with a separator.
  std::string SupportDir;

  // The page with every picture reference replaced by a full path. Raises what the host raises.
  [[nodiscard]] std::string RewriteGraphicsPaths(const std::string& html) const;
  void Load(HtmlPane& pane, const std::string& page) const {
    pane.LoadHtml(RewriteGraphicsPaths(page));
  }

  // A picture of the item, by the path that the host gives for its file name.
  PictureRef LoadGraphic(const ObjectRef& hostObject, const std::string& fileName,
                         std::string* path = nullptr) const;

 private:
  FormCore& form_;
};

}  // namespace zav

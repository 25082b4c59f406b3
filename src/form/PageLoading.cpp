#include "form/PageLoading.h"

#include "form/GraphicsPaths.h"

namespace zav {

std::string PageLoading::RewriteGraphicsPaths(const std::string& html) const {
  const ObjectRef support = form_.Owner().ExternalSupport();
  return zav::RewriteGraphicsPaths(
      html, [&](const std::string& name) { return GetGraphicsPath(support, name); }, SupportDir);
}

PictureRef PageLoading::LoadGraphic(const ObjectRef& hostObject, const std::string& fileName,
                                    std::string* path) const {
  const std::string fullPath = GetGraphicsPath(hostObject, fileName);
  if (path != nullptr) *path = fullPath;
  return form_.host.services().LoadPicture(fullPath);
}

}  // namespace zav

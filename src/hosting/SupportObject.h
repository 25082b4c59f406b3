// The host's support object over an item folder: it tells where files are.
//
//   GetLocalizePath(fileName)  of a file of texts: its path in the folder, "" when it is not there
//   GetGraphicsPath(fileName)  of an item's picture: ItemFolder::GraphicsPath
//   GetSupportFileDir("")      the support folder, which ends with a separator
#pragma once

#include <string>
#include <string_view>

#include "automation/Object.h"
#include "hosting/CallRecord.h"
#include "hosting/ItemFolder.h"

namespace zav {

// Where a component puts the files that it makes for itself.
class SupportFolder {
 public:
  // An empty path makes a fresh folder, which goes with the object; any other has to be there.
  // Raises InputError when it is not.
  explicit SupportFolder(std::string path = {});
  SupportFolder(const SupportFolder&) = delete;
  SupportFolder& operator=(const SupportFolder&) = delete;
  ~SupportFolder();

  [[nodiscard]] const std::string& path() const { return path_; }  // ends with a separator

 private:
  bool isFresh_;
  std::string path_;
};

class SupportObject : public Object {
 public:
  // All of them outlive it.
  SupportObject(const ItemFolder& item, const SupportFolder& support, CallRecord& record)
      : item_(item), support_(support), record_(record) {}

  Variant Invoke(std::string_view name, std::span<Variant> arguments,
                 InvokeKind kind = InvokeKind::Call) override;

 private:
  const ItemFolder& item_;
  const SupportFolder& support_;
  CallRecord& record_;
};

}  // namespace zav

#include "hosting/SupportObject.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "automation/Conversions.h"
#include "automation/MemberTable.h"
#include "hosting/InputError.h"

namespace zav {
namespace {

namespace fs = std::filesystem;

std::string MakeFreshFolder() {
  std::string path = (fs::temp_directory_path() / "zavdragdrop-XXXXXX").string();
  if (mkdtemp(path.data()) == nullptr) {
    throw InputError(fs::temp_directory_path().string(), "expected a folder that can be written");
  }
  return path;
}

}  // namespace

SupportFolder::SupportFolder(std::string path)
    : isFresh_(path.empty()), path_(isFresh_ ? MakeFreshFolder() : std::move(path)) {
  std::error_code error;
  if (!fs::is_directory(path_, error)) throw InputError(path_, "expected a folder");
  if (path_.back() != '/') path_ += '/';
}

SupportFolder::~SupportFolder() {
  std::error_code ignored;
  if (isFresh_) fs::remove_all(path_, ignored);
}

Variant SupportObject::Invoke(std::string_view name, std::span<Variant> arguments,
                              InvokeKind kind) {
  static constexpr MemberTable<SupportObject>::Member kMembers[] = {
      {"GetLocalizePath",
       1,
       [](SupportObject& self, std::span<Variant> called) -> Variant {
         return self.item_.LocalizePath(ToText(called[0]));
       },
       {}},
      {"GetGraphicsPath",
       1,
       [](SupportObject& self, std::span<Variant> called) -> Variant {
         return self.item_.GraphicsPath(ToText(called[0]));
       },
       {}},
      {"GetSupportFileDir",
       1,
       [](SupportObject& self, std::span<Variant>) -> Variant { return self.support_.path(); },
       {}},
  };
  record_.Add("support", name, arguments);
  return MemberTable<SupportObject>(kMembers).Invoke(*this, name, arguments, kind);
}

}  // namespace zav

// A host in C++: shows an item folder on the headless platform, puts a candidate's state into it,
// and prints what a host gets: status, responses, records and score.
//
// usage: example_cpp_host items/heart
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/AutomationError.h"
#include "automation/ClassRegistry.h"
#include "automation/Conversions.h"
#include "automation/MemberTable.h"
#include "automation/Text.h"
#include "host/clsDragDrop.h"
#include "hosting/ScoreEngine.h"
#include "hosting/SupportObject.h"
#include "platform/headless/HeadlessPlatform.h"

namespace {

namespace fs = std::filesystem;

using Arguments = std::span<zav::Variant>;

// [support]
std::string PicturePath(const fs::path& folder, const zav::Variant& name) {
  return (folder / "graphics" / zav::ToText(name)).string();
}

// Tells the component where files are.
class Support : public zav::Object {
 public:
  explicit Support(fs::path folder) : folder_(std::move(folder)) {}

  zav::Variant Invoke(std::string_view name, Arguments arguments, zav::InvokeKind kind) override {
    static constexpr zav::MemberTable<Support>::Member kMembers[] = {
        {"GetLocalizePath", 1, &LocalizePath, {}},
        {"GetGraphicsPath", 1, &GraphicsPath, {}},
        {"GetSupportFileDir", 1, &SupportFileDir, {}},
    };
    return zav::MemberTable<Support>(kMembers).Invoke(*this, name, arguments, kind);
  }

 private:
  static zav::Variant LocalizePath(Support& self, Arguments a) {
    return (self.folder_ / zav::ToText(a[0])).string();
  }
  static zav::Variant GraphicsPath(Support& self, Arguments a) {
    return PicturePath(self.folder_, a[0]);
  }
  static zav::Variant SupportFileDir(Support& self, Arguments /*a*/) {
    return self.scratch_.path();
  }

  fs::path folder_;
  zav::SupportFolder scratch_;  // a fresh folder for the component's own files; goes with it
};
// [/support]

// [parent]
// Is told of errors and messages, and names pictures too.
class Parent : public zav::Object {
 public:
  explicit Parent(fs::path folder) : folder_(std::move(folder)) {}

  zav::Variant Invoke(std::string_view name, Arguments arguments, zav::InvokeKind kind) override {
    static constexpr zav::MemberTable<Parent>::Member kMembers[] = {
        {"LogError", 6, &LogError, {}},
        {"ShowMessage", 3, &ShowMessage, {}},
        {"GetGraphicsPath", 1, &GraphicsPath, {}},
    };
    return zav::MemberTable<Parent>(kMembers).Invoke(*this, name, arguments, kind);
  }

 private:
  // lNumber, sDescription, sSource, sExtra, sRoutine, lLineNumber
  static zav::Variant LogError(Parent& /*self*/, Arguments a) {
    std::cout << "error " << zav::ToText(a[0]) << " in " << zav::ToText(a[4]) << ": "
              << zav::ToText(a[1]) << '\n';
    return {};
  }

  // sMessage, nStyle, sTitle; gives the answer, 1 OK or 2 Cancel.
  static zav::Variant ShowMessage(Parent& /*self*/, Arguments a) {
    const bool isError = zav::ToInt16(a[1]) == 16;  // which Log has printed already
    if (!isError) std::cout << "message: " << zav::ToText(a[0]) << '\n';
    return std::int16_t{1};
  }

  static zav::Variant GraphicsPath(Parent& self, Arguments a) {
    return PicturePath(self.folder_, a[0]);
  }

  fs::path folder_;
};
// [/parent]

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path.string() + ": cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

// [arrays]
zav::SafeArray ToArray(std::string_view text) { return zav::SafeArray(zav::Utf8ToUtf16Le(text)); }

std::int32_t SizeOf(const zav::SafeArray& array) {
  return static_cast<std::int32_t>(array.Bytes().size());
}

zav::SafeArray ArrayOf(std::int32_t size) {
  return zav::SafeArray(std::vector<std::uint8_t>(static_cast<std::size_t>(size)));
}

// What the component fills may be shorter than the array: the rest of lBytes is zero.
std::string ToText(const zav::SafeArray& array) {
  const std::string text = zav::Utf16LeToUtf8(array.Bytes());
  return text.substr(0, text.find('\0'));
}
// [/arrays]

// [state]
std::string ReadState(zav::clsDragDrop& item) {
  zav::SafeArray state = ArrayOf(item.GetExternalStateBytes());
  item.GetExternalStateArray(state, SizeOf(state));
  return ToText(state);
}

void PutState(zav::clsDragDrop& item, std::string_view xml) {
  const zav::SafeArray state = ToArray(xml);
  item.SetExternalStateArray(state, SizeOf(state));
}
// [/state]

// [records]
constexpr std::int32_t kKey = 0;
constexpr std::int32_t kResponses = 1;

std::string ReadRecord(zav::clsDragDrop& item, std::int32_t type) {
  bool isAscii = false;
  zav::SafeArray record = ArrayOf(item.GetResponseBytes(type, isAscii));
  return item.GetResponse(type, record, SizeOf(record)) ? ToText(record) : std::string();
}
// [/records]

// [score]
void PrintScore(zav::clsDragDrop& item) {
  std::int16_t items = 0;
  float most = 0;
  float least = 0;
  zav::ScoreCounts counts;
  item.GetScoreInfo(items, most, least);
  if (!item.ScoreExternalDisplay(counts)) return;  // the parent was told why
  std::cout << "score: " << counts.fRawScore << " of " << most << '\n';
}
// [/score]

void PrintStatus(zav::clsDragDrop& item) {
  std::int32_t state = 0;
  bool viewedAll = false;
  std::string message;
  item.GetExternalDisplayStatus(state, viewedAll, message);
  std::cout << "status: " << state << (viewedAll ? ", all seen" : ", not all seen") << '\n';
}

void Run(const fs::path& folder) {
  // [load]
  constexpr std::int32_t kTwipsPerPixel = 15;
  const auto platform = zav::MakeHeadlessPlatform();
  zav::ClassRegistry classes;
  zav::RegisterScoreEngine(classes);
  zav::clsDragDrop item(platform->platform(), classes);

  item.mExtParent = std::make_shared<Parent>(folder);
  item.SetExternalSupport(std::make_shared<Support>(folder));
  item.SetParentWnd(platform->CreateHostWindow("Exam"));
  const zav::SafeArray xml = ToArray(ReadFile(folder / "item.xml"));
  if (!item.InitExternalDisplay(xml, SizeOf(xml), 0)) return;  // the parent was told why
  item.ShowExternalDisplay(0, 0, 1024 * kTwipsPerPixel, 768 * kTwipsPerPixel);
  platform->RunPosted();  // time stands still here: lets the pages of the item load
  // [/load]
  PrintStatus(item);

  PutState(item,
           "<State><Responses><Response>A1</Response><Response>B2</Response>"
           "<Response>C7</Response></Responses></State>");
  platform->RunPosted();
  PrintStatus(item);
  std::cout << "state: " << ReadState(item) << '\n';
  std::cout << "responses: " << ReadRecord(item, kResponses) << '\n';
  std::cout << "key: " << ReadRecord(item, kKey) << '\n';
  PrintScore(item);

  // [fail]
  // A member that fails returns False, and the parent has been told why, under the member's name.
  const zav::SafeArray broken = ToArray("<DragAndDropItem><Targets></DragAndDropItem>");
  if (!item.InitExternalDisplay(broken, SizeOf(broken), 0)) std::cout << "refused\n";
  // [/fail]
  item.FreeExternalDisplay();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: example_cpp_host ITEM_FOLDER\n";
    return 2;
  }
  try {
    Run(argv[1]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}

// A late-bound host: knows the component by names only. It creates the item through the class
// registry, calls every member with Invoke, hears the events by their dispatch identifiers, and
// brings a scoring engine of its own.
//
// usage: example_late_bound_host items/heart
#include <cstdint>
#include <exception>
#include <iostream>
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
#include "automation/EventSource.h"
#include "automation/MemberTable.h"
#include "automation/Object.h"
#include "automation/Text.h"
#include "host/clsDragDrop.h"
#include "hosting/CallRecord.h"
#include "hosting/ItemFolder.h"
#include "hosting/ParentObject.h"
#include "hosting/SupportObject.h"
#include "platform/headless/HeadlessPlatform.h"

namespace {

using Arguments = std::span<zav::Variant>;

// [events]
// Told of every event, with its arguments by reference.
class EventPrinter : public zav::EventSink {
 public:
  void OnEvent(std::int32_t dispatchId, Arguments arguments) override {
    static const char* const kNames[] = {"", "RefreshDisplay", "ResizeDisplay", "SetState",
                                         "LoadState"};
    std::cout << "event " << dispatchId << ' ' << kNames[dispatchId];
    for (const zav::Variant& argument : arguments) std::cout << ' ' << zav::ToText(argument);
    std::cout << '\n';
  }
};
// [/events]

// [engine]
// Half a point for every response. The document has members by name too: those of DataIO.
class HalfPoints : public zav::Object {
 public:
  zav::Variant Invoke(std::string_view name, Arguments arguments, zav::InvokeKind kind) override {
    static constexpr zav::MemberTable<HalfPoints>::Member kMembers[] = {
        {"Document", 0, &Read, &Store},
        {"CalculateScore", 1, &Calculate, {}},
        {"MaxScore", 1, &Most, {}},
        {"MinScore", 1, &Least, {}},
    };
    return zav::MemberTable<HalfPoints>(kMembers).Invoke(*this, name, arguments, kind);
  }

 private:
  static zav::Variant Read(HalfPoints& self, Arguments /*a*/) { return self.document_; }
  static zav::Variant Store(HalfPoints& self, Arguments a) {
    self.document_ = zav::ToObject(a[0]);
    return {};
  }
  static zav::Variant Calculate(HalfPoints& self, Arguments a) {
    a[0] = 0.5 * self.Children("Responses");
    return {};
  }
  static zav::Variant Most(HalfPoints& self, Arguments a) {
    a[0] = 0.5 * self.Children("Answers");
    return {};
  }
  static zav::Variant Least(HalfPoints& /*self*/, Arguments a) {
    a[0] = 0.0;
    return {};
  }

  std::int32_t Children(const std::string& element) {
    zav::Object& document = zav::Require(document_);
    if (!zav::ToBoolean(document.Call("FindNode", element))) return 0;
    return zav::ToInt32(document.Call("ChildCount"));
  }

  zav::ObjectRef document_;
};
// [/engine]

std::string TextOf(const zav::SafeArray& array) {
  const std::string text = zav::Utf16LeToUtf8(array.Bytes());
  return text.substr(0, text.find('\0'));
}

// [by-reference]
// A member stores in the caller's variants what it passes by reference.
void PrintStatus(zav::Object& item) {
  zav::Variant status[] = {0, false, ""};
  item.Invoke("DisplayInt_GetExternalDisplayStatus", status);
  std::cout << "status: " << zav::ToText(status[0]) << ", viewed all: " << zav::ToText(status[1])
            << '\n';
}

void PrintResponses(zav::Object& item) {
  constexpr std::int32_t kResponses = 1;
  zav::Variant size[] = {kResponses, false};
  const std::int32_t bytes = zav::ToInt32(item.Invoke("DisplayInt_GetResponseBytes", size));
  zav::Variant record[] = {
      kResponses, zav::SafeArray(std::vector<std::uint8_t>(static_cast<std::size_t>(bytes))),
      bytes};
  item.Invoke("DisplayInt_GetResponse", record);
  std::cout << "responses: " << TextOf(std::get<zav::SafeArray>(record[1])) << '\n';
}

void Rescore(zav::Object& item, std::string_view responses) {
  const zav::SafeArray record(zav::Utf8ToUtf16Le(responses));
  const auto bytes = static_cast<std::int32_t>(record.Bytes().size());
  // Correct, incorrect, not attempted, not scored, raw score.
  zav::Variant score[] = {record, bytes, 0, 0, 0, 0, 0.0F};
  item.Invoke("DisplayInt_RescoreExternalDisplay", score);
  zav::Variant info[] = {0, 0.0F, 0.0F};  // items, most, least
  item.Invoke("DisplayInt_GetScoreInfo", info);
  std::cout << "score: " << zav::ToText(score[6]) << " of " << zav::ToText(info[1]) << '\n';
}
// [/by-reference]

void PutState(zav::Object& item, std::string_view xml) {
  const zav::SafeArray state(zav::Utf8ToUtf16Le(xml));
  item.Call("DisplayInt_SetExternalStateArray", state,
            static_cast<std::int32_t>(state.Bytes().size()));
}

void Run(const std::string& path) {
  const zav::ItemFolder folder(path);
  const zav::SupportFolder scratch;
  zav::CallRecord calls;
  const auto parent = std::make_shared<zav::ParentObject>(folder, calls);
  const auto support = std::make_shared<zav::SupportObject>(folder, scratch, calls);
  EventPrinter sink;

  // [create]
  const auto platform = zav::MakeHeadlessPlatform();
  zav::ClassRegistry classes;
  classes.Register("ZavScoring.ScoreEngine", [] { return std::make_shared<HalfPoints>(); });
  classes.Register("ZavDragDrop.clsDragDrop", [&] {
    auto made = std::make_shared<zav::clsDragDrop>(platform->platform(), classes);
    made->Events().Advise(sink);
    return made;
  });

  const zav::ObjectRef item = classes.Create("ZavDragDrop.clsDragDrop");
  std::cout << "version " << zav::ToText(item->Call("AppVersion")) << '\n';
  // [/create]

  // [members]
  item->Put("mExtParent", zav::ObjectRef(parent));
  item->Put("DisplayInt_ExternalSupport", zav::ObjectRef(support));
  item->Call("DisplayInt_SetParentWnd", platform->CreateHostWindow("Exam"));
  const std::vector<std::uint8_t> xml = folder.ItemBytes();
  const auto size = static_cast<std::int32_t>(xml.size());
  if (!zav::ToBoolean(item->Call("DisplayInt_InitExternalDisplay", zav::SafeArray(xml), size, 0))) {
    throw std::runtime_error(parent->log().back().description);
  }
  item->Call("DisplayInt_ShowExternalDisplay", 0, 0, 15360, 11520);
  platform->RunPosted();
  // [/members]
  PrintStatus(*item);

  PutState(*item, "<State><Responses><Response>A1</Response></Responses></State>");
  platform->RunPosted();
  PrintStatus(*item);
  PrintResponses(*item);
  Rescore(*item, "A1,B2,C7");
  PrintResponses(*item);

  // [errors]
  try {
    item->Call("DisplayInt_Show");
  } catch (const zav::AutomationError& error) {
    std::cout << "error " << error.Number() << ": " << error.Description() << '\n';
  }
  // [/errors]
  item->Call("DisplayInt_FreeExternalDisplay");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: example_late_bound_host ITEM_FOLDER\n";
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

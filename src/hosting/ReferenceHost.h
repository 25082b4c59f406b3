// A host for builds without one: loads an item folder into the component, on a headless platform of
// its own, and drives it through its item interface.
//
// Sizes are pixels of that platform's screen. The item stands in the upper left corner of the
// host's window. After every call the pages that it started have loaded.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/ClassRegistry.h"
#include "form/frmMain.h"
#include "host/clsDragDrop.h"
#include "hosting/CallRecord.h"
#include "hosting/ItemFolder.h"
#include "hosting/ParentObject.h"
#include "hosting/SupportObject.h"
#include "platform/headless/HeadlessPlatform.h"

namespace zav {

struct HostOptions {
  std::int32_t lOptions = 0;  // 0x1 read-only, 0x10 show answers, 0x100 calculator
  HeadlessOptions screen;
  std::string supportFolder;  // empty: a fresh one, which goes with the host
  // Stands between the component and a host object ("support" or "parent"), such as to make a call
  // fail.
  std::function<ObjectRef(std::string_view name, ObjectRef object)> wrapHostObject;
  // Makes classes of the host's own known, instead of the reference ones.
  std::function<void(ClassRegistry& classes)> registerClasses;
};

struct DisplayStatus {
  std::int32_t lDispState = 0;  // 2 no response yet, 3 fewer than the item asks for, 100 answered
  bool bViewedAll = false;
  std::string sStateMsg;
};

struct ScoreInfo {
  std::int16_t nItems = 0;
  float fMaxScore = 0;
  float fMinScore = 0;
};

class ReferenceHost {
 public:
  explicit ReferenceHost(ItemFolder folder, HostOptions options = {});
  ReferenceHost(const ReferenceHost&) = delete;
  ReferenceHost& operator=(const ReferenceHost&) = delete;
  ~ReferenceHost();

  // What the component's members of these names give. Show takes the screen's size at first, then
  // the last one that Resize was given. What the component raises reaches the caller.
  bool Init();
  bool Show();
  bool Resize(int widthPixels, int heightPixels);
  bool Hide();
  bool Free();
  // Lets the component go; nothing can be asked of it after that.
  void Release() { item_.reset(); }
  [[nodiscard]] bool HasItem() const { return item_ != nullptr; }
  DisplayStatus Status();

  // The state snapshot as text; empty when there is none.
  std::string State();
  void SetState(std::string_view xml);
  // The responses that stand in the state snapshot, such as A3.
  std::vector<std::string> Responses();

  // A record in the item's format.
  enum class Record { Key = 0, Responses = 1 };
  std::string GetRecord(Record record);
  ScoreCounts Score();
  ScoreCounts Rescore(std::string_view record);
  ScoreInfo GetScoreInfo();

  // Lets time pass: timers tick, pages load.
  void Wait(std::chrono::milliseconds time);

  // The host's window, with all that stands in it, as a PNG file. It is as large as the item was
  // last shown.
  std::vector<std::uint8_t> Picture();

  [[nodiscard]] clsDragDrop& item() { return *item_; }
  // Raises 91 before the item was initialised and after it was freed.
  [[nodiscard]] frmMain& form();
  [[nodiscard]] HeadlessPlatform& platform() { return *platform_; }
  [[nodiscard]] ParentObject& parent() { return *parent_; }
  [[nodiscard]] WindowHandle window() const { return window_; }
  // What the component called on the support and the parent object.
  [[nodiscard]] CallRecord& calls() { return calls_; }

 private:
  ObjectRef Wrap(std::string_view name, ObjectRef object) const;
  void RegisterClasses();
  [[nodiscard]] std::int32_t Twips(int pixels) const;
  template <typename Call>
  auto AndLoadPages(Call call);

  ItemFolder folder_;
  HostOptions options_;
  int widthPixels_;
  int heightPixels_;
  SupportFolder supportFolder_;
  CallRecord calls_;
  std::unique_ptr<HeadlessPlatform> platform_;
  WindowHandle window_;
  ClassRegistry classes_;
  std::shared_ptr<SupportObject> support_;
  std::shared_ptr<ParentObject> parent_;
  std::shared_ptr<clsDragDrop> item_;
  bool isInitialised_ = false;
};

}  // namespace zav

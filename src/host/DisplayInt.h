// The item interface by which a host drives an item, in the order of its slots.
//
// Expected order: ExternalSupport, SetParentWnd, InitExternalDisplay, ShowExternalDisplay; then any
// mixture of the others; at the end FreeExternalDisplay. Sizes and places are twips. Byte arrays
// hold UTF-16LE text without a byte-order mark or a terminator. Parameters that are references come
// in and go out.
//
// A member that returns a Boolean returns False when it failed; it has then reported why, through
// the host's parent object, under its own name. hwnd, GetExternalDisplayStatus, GetScoreInfo,
// FreeExternalDisplay and SetParentWnd raise AutomationError instead. So does every member when
// reporting itself fails.
#pragma once

#include <cstdint>
#include <string>

#include "automation/Object.h"
#include "platform/Services.h"

namespace zav {

// What a host is told of a score. The item is one scored unit.
struct ScoreCounts {
  std::int16_t nCorrect = 0;
  std::int16_t nIncorrect = 0;
  std::int16_t nNotAttempted = 0;
  std::int16_t nNotScored = 0;
  float fRawScore = 0;
};

class DisplayInt {
 public:
  DisplayInt() = default;
  DisplayInt(const DisplayInt&) = delete;
  DisplayInt& operator=(const DisplayInt&) = delete;
  virtual ~DisplayInt() = default;

  // The window of the item while it is visible, else 0.
  virtual WindowHandle hwnd() = 0;
  // Keeps the host's support object: GetLocalizePath, GetGraphicsPath, GetSupportFileDir.
  virtual void SetExternalSupport(const ObjectRef& support) = 0;
  // lDispState: 2 no response yet, 3 fewer than the item asks for, 100 answered.
  virtual void GetExternalDisplayStatus(std::int32_t& lDispState, bool& bViewedAll,
                                        std::string& sStateMsg) = 0;
  // The size of the state snapshot, 12 bytes more than its text takes.
  virtual std::int32_t GetExternalStateBytes() = 0;
  // Fills lBytes of the host's array with the snapshot and zeroes what is left of them; bytes after
  // those stay.
  virtual void GetExternalStateArray(SafeArray& arState, std::int32_t lBytes) = 0;
  // lRespType: 0 the key, 1 the responses, in the item's record format.
  virtual bool GetResponse(std::int32_t lRespType, SafeArray& arResponse, std::int32_t lBuffer) = 0;
  virtual std::int32_t GetResponseBytes(std::int32_t lRespType, bool& bIsASCII) = 0;
  virtual bool GetScoreInfo(std::int16_t& nItems, float& fMaxScore, float& fMinScore) = 0;
  virtual bool HideExternalDisplay() = 0;
  virtual bool FreeExternalDisplay() = 0;
  // arInit holds the item's XML. lOptions: 0x1 read-only, 0x10 show answers, 0x100 calculator.
  virtual bool InitExternalDisplay(const SafeArray& arInit, std::int32_t lInitBytes,
                                   std::int32_t lOptions) = 0;
  // Scores a response record and makes it the item's state. A record that cannot be read leaves the
  // counts as they were.
  virtual bool RescoreExternalDisplay(const SafeArray& arResponse, std::int32_t lRespBytes,
                                      ScoreCounts& counts) = 0;
  // The same for a record that is a Responses element already. XMLBA and lArrayLen are not used.
  virtual bool RescoreExternalDisplayQuick(const SafeArray& arResponse, std::int32_t lRespBytes,
                                           ScoreCounts& counts, SafeArray& XMLBA,
                                           std::int32_t& lArrayLen) = 0;
  // The width is raised to 8000 twips, the height to 4500.
  virtual bool ResizeExternalDisplay(std::int32_t lLeft, std::int32_t lTop, std::int32_t lWidth,
                                     std::int32_t lHeight) = 0;
  virtual bool ScoreExternalDisplay(ScoreCounts& counts) = 0;
  // Replaces the item's state by a snapshot; a blank one leaves the item without a state.
  virtual void SetExternalStateArray(const SafeArray& arState, std::int32_t lBytes) = 0;
  virtual WindowHandle SetParentWnd(WindowHandle hParentWnd) = 0;
  virtual bool ShowExternalDisplay(std::int32_t lLeft, std::int32_t lTop, std::int32_t lWidth,
                                   std::int32_t lHeight) = 0;
};

}  // namespace zav

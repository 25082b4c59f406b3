// Tells how far the candidate has answered the item.
#pragma once

#include <cstdint>

#include "automation/Variant.h"
#include "document/DataIO.h"

namespace zav {

namespace answer_status {
inline constexpr std::int32_t kNoResponse = 2;
inline constexpr std::int32_t kTooFewResponses = 3;  // fewer than the item asks for
inline constexpr std::int32_t kAnswered = 100;
}  // namespace answer_status

struct clsStatus {
  // Neither is owned. The owner of the item sets both, and takes the document away again before it
  // goes.
  Object* Owner = nullptr;
  zav::DataIO* DataIO = nullptr;

  // One of answer_status as a 32-bit integer. Gives the document's cursor and flag back. Raises 91
  // without a document, 13 for a least number of responses that is no number.
  [[nodiscard]] Variant AnswerStatus() const;
};

}  // namespace zav

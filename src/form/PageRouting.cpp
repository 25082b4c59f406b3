#include "form/PageRouting.h"

namespace zav {
namespace {

constexpr int kBlankKey = 32;

void Swallow(PageEvent& event) {
  event.cancelBubble = true;
  event.returnValue = false;
}

}  // namespace

void SuppressPageEvent(PageEvent& event) {
  if (event.type == "selectstart") {
    event.clearSelection = true;
    Swallow(event);
  } else if (event.type == "keydown" && !event.altKey) {
    Swallow(event);
    event.keyCode = kBlankKey;
  }
}

}  // namespace zav

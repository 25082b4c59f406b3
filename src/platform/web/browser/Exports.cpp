// The calls from the page into the component, one thin function each. exports.txt lists them.
//
// A component goes by the number that zav_create was given. Texts are UTF-8 in memory that the
// page owns; a control's number is its id; places are CSS pixels of the window of the element.
// Nothing is raised to the page.
#include <emscripten.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "controls/HtmlPane.h"
#include "controls/ScrollFrame.h"
#include "controls/Splitter.h"
#include "platform/web/PageObjects.h"
#include "platform/web/WebComponent.h"
#include "platform/web/browser/PageBrowser.h"

namespace zav {
namespace {

// What the page may ask for; the same numbers stand in Runtime.js.
enum class PointerAct { Press, Move, Release, Cancel, LoseRelease, Click };

namespace page_event_flag {
constexpr int kSuppressed = 1;  // the page's own reaction is left out
constexpr int kClearSelection = 2;
constexpr int kStopped = 4;  // nobody else hears of it
}  // namespace page_event_flag

// All that lives in the module, for as long as the page lives.
struct Module {
  PageBrowser browser;
  PageObjects objects{browser};
  std::map<ComponentNumber, std::shared_ptr<WebComponent>> components;
};

Module& TheModule() {
  static Module& module = *new Module;  // never destroyed: the page may call until it goes
  return module;
}

// Null for a number that there is no component of, or no longer.
std::shared_ptr<WebComponent> ComponentOf(ComponentNumber number) {
  const auto found = TheModule().components.find(number);
  return found == TheModule().components.end() ? nullptr : found->second;
}

std::string_view Text(const char* text, int size) { return {text, static_cast<std::size_t>(size)}; }

// Errors that come this far have been reported as far as they could be.
template <typename Action>
void Quietly(Action&& action) {
  try {
    action();
  } catch (...) {
  }
}

// The component stays until the action ends, also where it is disposed of meanwhile.
template <typename Action>
void With(ComponentNumber number, Action&& action) {
  Quietly([&] {
    if (const auto component = ComponentOf(number)) action(*component);
  });
}

template <typename Action>
void WithControl(ComponentNumber number, int id, Action&& action) {
  With(number, [&](WebComponent& component) {
    if (Control* control = component.platform().Find(static_cast<ControlId>(id))) action(*control);
  });
}

template <typename T, typename Action>
void WithControl(ComponentNumber number, int id, ControlKind kind, Action&& action) {
  WithControl(number, id, [&](Control& control) {
    if (control.kind() == kind) action(static_cast<T&>(control));
  });
}

}  // namespace
}  // namespace zav

using namespace zav;  // NOLINT(google-build-using-namespace): everything below is one interface

extern "C" {

// Gives the number of the item as an object that zav_invoke takes; 0 when there is no memory left.
EMSCRIPTEN_KEEPALIVE int zav_create(int number) {
  int item = 0;
  Quietly([&] {
    Module& module = TheModule();
    const auto component = WebComponent::Make(module.browser, module.objects, number);
    module.components[number] = component;
    item = module.objects.KeepNative(component->item());
  });
  return item;
}

EMSCRIPTEN_KEEPALIVE void zav_dispose(int number) {
  Quietly([&] { TheModule().components.erase(number); });
}

// Whether an entry is on the stack.
EMSCRIPTEN_KEEPALIVE int zav_busy(int number) {
  const auto component = ComponentOf(number);
  return component && component->item()->busy() ? 1 : 0;
}

EMSCRIPTEN_KEEPALIVE int zav_host_window(int number) {
  const auto component = ComponentOf(number);
  return component ? component->platform().hostWindow() : 0;
}

EMSCRIPTEN_KEEPALIVE void zav_add_picture(int number, const char* path, int size, int picture,
                                          int width, int height) {
  With(number, [&](WebComponent& component) {
    component.platform().AddPicture(Text(path, size), picture, width, height);
  });
}

EMSCRIPTEN_KEEPALIVE void zav_add_resource(int number, const char* tag, int size, int picture,
                                           int width, int height) {
  With(number, [&](WebComponent& component) {
    component.platform().AddResourcePicture(Text(tag, size), picture, width, height);
  });
}

EMSCRIPTEN_KEEPALIVE void zav_add_file(int number, const char* path, int size,
                                       const unsigned char* bytes, int count) {
  With(number, [&](WebComponent& component) {
    component.platform().AddFile(Text(path, size), {bytes, bytes + count});
  });
}

EMSCRIPTEN_KEEPALIVE void zav_register_class(int number, const char* progId, int size,
                                             int factory) {
  With(number,
       [&](WebComponent& component) { component.RegisterClass(Text(progId, size), factory); });
}

// The answer is in memory that the page frees: its size in the first four bytes, then what
// PageObjects::InvokeNative gives.
EMSCRIPTEN_KEEPALIVE unsigned char* zav_invoke(int object, const char* member, int memberSize,
                                               const unsigned char* arguments, int size,
                                               int isPut) {
  unsigned char* buffer = nullptr;
  Quietly([&] {
    const std::vector<std::uint8_t> answer = TheModule().objects.InvokeNative(
        object, Text(member, memberSize), {arguments, static_cast<std::size_t>(size)},
        isPut != 0 ? InvokeKind::Put : InvokeKind::Call);
    const auto count = static_cast<std::int32_t>(answer.size());
    buffer = static_cast<unsigned char*>(std::malloc(sizeof count + answer.size()));
    if (buffer == nullptr) return;
    std::memcpy(buffer, &count, sizeof count);
    std::memcpy(buffer + sizeof count, answer.data(), answer.size());
  });
  return buffer;
}

EMSCRIPTEN_KEEPALIVE void zav_release(int object) {
  Quietly([&] { TheModule().objects.ReleaseNative(object); });
}

EMSCRIPTEN_KEEPALIVE void zav_answer(int question, int answer) {
  Quietly([&] { TheModule().objects.Answer(question, static_cast<std::int16_t>(answer)); });
}

EMSCRIPTEN_KEEPALIVE void zav_pointer(int number, int act, int control, float x, float y) {
  With(number, [&](WebComponent& component) {
    PointerInput& pointer = component.pointer();
    const auto under = static_cast<ControlId>(control);
    switch (static_cast<PointerAct>(act)) {
      case PointerAct::Press:
        return pointer.Press(under, {x, y});
      case PointerAct::Move:
        return pointer.Move(under, {x, y});
      case PointerAct::Release:
        return pointer.Release({x, y});
      case PointerAct::Cancel:
        return pointer.Cancel();
      case PointerAct::LoseRelease:
        return pointer.LoseRelease();
      case PointerAct::Click:
        if (Control* clicked = component.platform().Find(under)) PointerInput::Click(*clicked);
        return;
    }
  });
}

EMSCRIPTEN_KEEPALIVE void zav_key(int number, int id, int keyCode, int alt) {
  WithControl(number, id, [&](Control& control) { control.RaiseKeyDown({keyCode, alt != 0}); });
}

EMSCRIPTEN_KEEPALIVE void zav_focus(int number, int id) {
  WithControl(number, id, [](Control& control) { control.RaiseFocus(); });
}

// Gives the flags of page_event_flag.
EMSCRIPTEN_KEEPALIVE int zav_page_event(int number, int id, const char* type, int typeSize,
                                        const char* element, int elementSize, int alt,
                                        int keyCode) {
  PageEvent event{std::string(Text(type, typeSize)), std::string(Text(element, elementSize)),
                  alt != 0, keyCode};
  WithControl<HtmlPane>(number, id, ControlKind::HtmlPane,
                        [&](HtmlPane& pane) { pane.RaisePageEvent(event); });
  return (event.returnValue ? 0 : page_event_flag::kSuppressed) |
         (event.clearSelection ? page_event_flag::kClearSelection : 0) |
         (event.cancelBubble ? page_event_flag::kStopped : 0);
}

EMSCRIPTEN_KEEPALIVE void zav_page_loaded(int number, int ticket) {
  With(number, [&](WebComponent& component) { component.platform().PageLoaded(ticket); });
}

EMSCRIPTEN_KEEPALIVE void zav_timer(int number, int timer) {
  With(number, [&](WebComponent& component) {
    component.platform().TimerTicked(static_cast<ControlId>(timer));
  });
}

// The offset of what a frame shows, in pixels.
EMSCRIPTEN_KEEPALIVE void zav_scroll(int number, int id, float x, float y) {
  WithControl<ScrollFrame>(number, id, ControlKind::ScrollFrame, [&](ScrollFrame& frame) {
    const TwipsPerPixel twips = frame.host().twipsPerPixel();
    frame.ScrollTo(x * static_cast<float>(twips.x), y * static_cast<float>(twips.y));
  });
}

// A bar, by its place among the splitter's, was moved by that many pixels.
EMSCRIPTEN_KEEPALIVE void zav_drag_bar(int number, int id, int bar, float pixels) {
  WithControl<Splitter>(number, id, ControlKind::Splitter, [&](Splitter& splitter) {
    const std::vector<Splitter::Bar> bars = splitter.Bars();
    if (bar < 0 || static_cast<std::size_t>(bar) >= bars.size()) return;
    const Splitter::Bar& dragged = bars[static_cast<std::size_t>(bar)];
    const Rect& pane = splitter.Pane(dragged.key).rect;
    const TwipsPerPixel twips = splitter.host().twipsPerPixel();
    const float moved = pixels * static_cast<float>(dragged.upright ? twips.x : twips.y);
    splitter.DragBar(dragged.key, (dragged.upright ? pane.width : pane.height) + moved);
  });
}

EMSCRIPTEN_KEEPALIVE void zav_close_window(int number, int window) {
  With(number, [&](WebComponent& component) { component.platform().CloseWindow(window); });
}

EMSCRIPTEN_KEEPALIVE void zav_raise_window(int number, int window) {
  With(number, [&](WebComponent& component) { component.platform().RaiseWindow(window); });
}

}  // extern "C"

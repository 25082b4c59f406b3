// The calls from the component into the page, one thin function each.
//
// The page hands its object over as Module.page. What it throws must not pass through the
// component: every function answers for that case too.
#include <emscripten.h>

#include <cstdlib>
#include <memory>

#include "platform/web/browser/PageBrowser.h"

// clang-format off
EM_JS(void, zav_present, (int component, const int* words, int count, const char* texts, int size), {
  try { Module.page.present(component, words, count, texts, size); } catch (e) { Module.page.failed(e); }
});
EM_JS(void, zav_arrange_windows, (int component, const int* words, int count), {
  try { Module.page.arrangeWindows(component, words, count); } catch (e) { Module.page.failed(e); }
});
EM_JS(int, zav_rich_text_height, (int component, int isHtml, const char* text, int size,
                                  float points, int style, const char* font, int fontSize, int width), {
  try { return Module.page.richTextHeight(component, isHtml, text, size, points, style, font, fontSize, width); } catch (e) { Module.page.failed(e); return 0; }
});
EM_JS(void, zav_load_page, (int component, int pane, const char* html, int size, int ticket), {
  try { Module.page.loadPage(component, pane, html, size, ticket); } catch (e) { Module.page.failed(e); }
});
EM_JS(void, zav_drop_page, (int component, int pane), {
  try { Module.page.dropPage(component, pane); } catch (e) { Module.page.failed(e); }
});
EM_JS(int, zav_page_content_height, (int component, int pane, int width, int margin), {
  try { return Module.page.pageContentHeight(component, pane, width, margin); } catch (e) { Module.page.failed(e); return 0; }
});
EM_JS(int, zav_page_scroll_top, (int component, int pane), {
  try { return Module.page.pageScrollTop(component, pane); } catch (e) { Module.page.failed(e); return 0; }
});
EM_JS(void, zav_start_timer, (int component, int timer, int milliseconds), {
  try { Module.page.startTimer(component, timer, milliseconds); } catch (e) { Module.page.failed(e); }
});
EM_JS(void, zav_stop_timer, (int component, int timer), {
  try { Module.page.stopTimer(component, timer); } catch (e) { Module.page.failed(e); }
});
EM_JS(void, zav_name_picture, (int component, const char* path, int size, int picture), {
  try { Module.page.namePicture(component, path, size, picture); } catch (e) { Module.page.failed(e); }
});
// Gives a buffer that the caller frees, the size of what it holds in *answerSize; null when the
// page could not even say what went wrong.
EM_JS(unsigned char*, zav_invoke_page, (int object, const char* member, int memberSize,
                                        const unsigned char* values, int size, int isPut, int* answerSize), {
  try { return Module.page.invoke(object, member, memberSize, values, size, isPut, answerSize); } catch (e) { Module.page.failed(e); return 0; }
});
EM_JS(void, zav_release_object, (int object), {
  try { Module.page.releaseObject(object); } catch (e) { Module.page.failed(e); }
});
EM_JS(void, zav_drop_question, (int question), {
  try { Module.page.dropQuestion(question); } catch (e) { Module.page.failed(e); }
});
// clang-format on

namespace zav {
namespace {

int SizeOf(std::string_view text) { return static_cast<int>(text.size()); }
int IdOf(ControlId id) { return static_cast<int>(id); }

int StyleOf(const Font& font) {
  return (font.bold ? 1 : 0) | (font.italic ? 2 : 0) | (font.underline ? 4 : 0);
}

}  // namespace

void PageBrowser::Present(ComponentNumber component, std::span<const std::int32_t> words,
                          std::string_view texts) {
  zav_present(component, words.data(), static_cast<int>(words.size()), texts.data(), SizeOf(texts));
}

void PageBrowser::ArrangeWindows(ComponentNumber component, std::span<const ShownWindow> windows) {
  std::vector<int> words;
  for (const ShownWindow& window : windows) {
    words.insert(words.end(), {window.handle, IdOf(window.form), window.visible ? 1 : 0});
  }
  zav_arrange_windows(component, words.data(), static_cast<int>(words.size()));
}

int PageBrowser::RichTextHeight(ComponentNumber component, const RichContent& content,
                                int widthPixels) {
  return zav_rich_text_height(component, content.isHtml ? 1 : 0, content.text.data(),
                              SizeOf(content.text), content.font.size, StyleOf(content.font),
                              content.font.name.data(), SizeOf(content.font.name), widthPixels);
}

void PageBrowser::LoadPage(ComponentNumber component, ControlId pane, std::string_view html,
                           std::int32_t ticket) {
  zav_load_page(component, IdOf(pane), html.data(), SizeOf(html), ticket);
}

void PageBrowser::DropPage(ComponentNumber component, ControlId pane) {
  zav_drop_page(component, IdOf(pane));
}

int PageBrowser::PageContentHeight(ComponentNumber component, ControlId pane, int widthPixels,
                                   int marginPixels) {
  return zav_page_content_height(component, IdOf(pane), widthPixels, marginPixels);
}

int PageBrowser::PageScrollTop(ComponentNumber component, ControlId pane) {
  return zav_page_scroll_top(component, IdOf(pane));
}

void PageBrowser::StartTimer(ComponentNumber component, ControlId timer, int milliseconds) {
  zav_start_timer(component, IdOf(timer), milliseconds);
}

void PageBrowser::StopTimer(ComponentNumber component, ControlId timer) {
  zav_stop_timer(component, IdOf(timer));
}

void PageBrowser::NamePicture(ComponentNumber component, std::string_view path,
                              std::int32_t picture) {
  zav_name_picture(component, path.data(), SizeOf(path), picture);
}

std::vector<std::uint8_t> PageBrowser::Invoke(std::int32_t object, std::string_view member,
                                              std::span<const std::uint8_t> arguments, bool isPut) {
  int size = 0;
  const std::unique_ptr<std::uint8_t, decltype(&std::free)> answer(
      zav_invoke_page(object, member.data(), SizeOf(member), arguments.data(),
                      static_cast<int>(arguments.size()), isPut ? 1 : 0, &size),
      &std::free);
  if (!answer) return {};
  return {answer.get(), answer.get() + size};
}

void PageBrowser::ReleaseObject(std::int32_t object) { zav_release_object(object); }

void PageBrowser::DropQuestion(std::int32_t question) { zav_drop_question(question); }

}  // namespace zav

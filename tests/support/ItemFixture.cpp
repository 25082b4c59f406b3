#include "support/ItemFixture.h"

#include <optional>
#include <sstream>
#include <utility>

#include "hosting/InputError.h"
#include "zavdragdrop/Player.h"

namespace zav {
namespace {

Spot SpotOf(std::string_view words) {
  const std::optional<Spot> spot = ReadSpot(words);
  if (!spot) throw InputError(std::string(words), "expected a place, such as \"target A\"");
  return *spot;
}

}  // namespace

ItemFolder EditedItem(const std::string& folder, const std::vector<ItemEdit>& edits) {
  ItemFolder item(folder);
  std::string xml = item.itemXml();
  for (const ItemEdit& edit : edits) {
    std::size_t at = xml.find(edit.part);
    if (at == std::string::npos) throw InputError(folder, "the item has no " + edit.part);
    while (at != std::string::npos) {
      xml.replace(at, edit.part.size(), edit.replacement);
      at = xml.find(edit.part, at + edit.replacement.size());
    }
  }
  item.SetItemXml(std::move(xml));
  return item;
}

ItemFixture::ItemFixture(ItemFolder folder, HostOptions options)
    : host(std::move(folder), std::move(options)) {
  if (host.Init()) host.Show();
}

ItemFixture& ItemFixture::Drag(std::string_view item) {
  candidate.Press(SpotOf(item));
  return *this;
}

ItemFixture& ItemFixture::To(std::string_view place) {
  candidate.MoveTo(SpotOf(place));
  return *this;
}

ItemFixture& ItemFixture::Release() {
  candidate.Release();
  return *this;
}

ItemFixture& ItemFixture::Click(std::string_view place) {
  candidate.Click(SpotOf(place));
  return *this;
}

ItemFixture& ItemFixture::Delete(std::string_view target) {
  candidate.Delete(SpotOf(target));
  return *this;
}

ItemFixture& ItemFixture::Wait(int milliseconds) {
  host.Wait(std::chrono::milliseconds(milliseconds));
  return *this;
}

ItemFixture& ItemFixture::Play(std::string_view script) {
  std::ostringstream ignored;
  Transcript transcript(ignored, Transcript::Format::Text);
  Player(host, transcript).Play(ReadPlayScript(script, "script"));
  return *this;
}

std::string ItemFixture::Responses() {
  std::string text;
  for (const std::string& response : host.Responses()) {
    text += (text.empty() ? "" : " ") + response;
  }
  return text;
}

std::vector<std::string> ItemFixture::Log() {
  std::vector<std::string> log;
  for (const LogEntry& entry : host.parent().log()) {
    log.push_back(entry.routine + ": " + entry.description + " (" + std::to_string(entry.number) +
                  ")");
  }
  return log;
}

std::vector<std::string> ItemFixture::Messages() {
  std::vector<std::string> texts;
  for (const ShownMessage& message : host.parent().messages()) texts.push_back(message.text);
  return texts;
}

}  // namespace zav

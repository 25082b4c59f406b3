#include "zavdragdrop/PlayCommand.h"

#include <filesystem>
#include <utility>

#include "hosting/TextFile.h"
#include "zavdragdrop/Player.h"

namespace zav {
namespace {

constexpr const char* kJustLook = "show\nstatus\n";

ItemFolder OpenFolder(const PlayOptions& options) {
  ItemFolder folder(options.folder);
  folder.Check();
  if (!options.language.empty()) folder.SetLanguage(options.language);
  return folder;
}

PlayScript OpenScript(const PlayOptions& options) {
  std::string file = options.script;
  if (file.empty()) {
    file = (std::filesystem::path(options.folder) / "play.txt").string();
    if (!std::filesystem::exists(file)) return ReadPlayScript(kJustLook, "no script");
  }
  return ReadPlayScript(ReadTextFile(file), file);
}

}  // namespace

bool Play(const PlayOptions& options, std::ostream& out) {
  ItemFolder folder = OpenFolder(options);
  const PlayScript script = OpenScript(options);
  ReferenceHost host(std::move(folder), options.host);
  Transcript transcript(out, options.format);
  Player player(host, transcript);
  if (player.Load()) player.Play(script);
  if (!options.picture.empty()) WriteBinaryFile(options.picture, host.Picture());
  player.End();
  return !transcript.HasErrors();
}

}  // namespace zav

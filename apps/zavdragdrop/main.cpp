#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>
#include <string>

#include "automation/AutomationError.h"
#include "hosting/InputError.h"
#include "zavdragdrop/PlayCommand.h"
#include "zavdragdrop/PlayScript.h"
#include "zavdragdrop/ServeCommand.h"

namespace {

constexpr int kDone = 0;
constexpr int kErrorsLogged = 1;
constexpr int kBadInput = 2;
constexpr int kMostPixels = 8192;
constexpr int kMostPort = 65535;

// What the options say beside the fields of PlayOptions.
struct PlayFlags {
  bool json = false;
  bool readOnly = false;
  bool showAnswers = false;
  bool calculator = false;
  std::string screen;
};

std::string CheckScreen(const std::string& text) {
  int width = 0;
  int height = 0;
  char rest = 0;
  const int read = std::sscanf(text.c_str(), "%5dx%5d%c", &width, &height, &rest);
  const auto fits = [](int pixels) { return pixels > 0 && pixels <= kMostPixels; };
  return read == 2 && fits(width) && fits(height)
             ? ""
             : "expected a size in pixels, such as 1024x768, instead of \"" + text + "\"";
}

void ReadScreen(const std::string& text, zav::HeadlessOptions& screen) {
  std::sscanf(text.c_str(), "%5dx%5d", &screen.widthPixels, &screen.heightPixels);
}

CLI::App& AddPlay(CLI::App& program, zav::PlayOptions& options, PlayFlags& flags) {
  CLI::App& play = *program.add_subcommand("play", "Plays an item folder with a script of steps");
  play.add_option("FOLDER", options.folder, "The item's folder")->required();
  play.add_option("SCRIPT", options.script,
                  "The script; without it FOLDER/play.txt, or else a look at the item");
  play.add_option("--picture", options.picture, "Write what is seen at the end to this PNG file");
  play.add_flag("--read-only", flags.readOnly, "The candidate cannot change anything");
  play.add_flag("--show-answers", flags.showAnswers, "The footer offers the answers");
  play.add_flag("--calculator", flags.calculator, "The footer offers the calculator");
  play.add_option("--options", options.host.lOptions, "Further bits for the component's options");
  play.add_option("--language", options.language, "Play the item in this language");
  play.add_option("--screen", flags.screen, "Size of the screen in pixels, such as 1024x768")
      ->check(CheckScreen);
  play.add_flag("--json", flags.json, "Write JSON lines");
  play.footer("Steps of a script:\n" + zav::PlayScriptWords());
  return play;
}

CLI::App& AddServe(CLI::App& program, zav::ServeOptions& options) {
  CLI::App& serve =
      *program.add_subcommand("serve", "Shows item folders in browsers of this machine");
  serve.add_option("FOLDER", options.folders, "Item folders, and folders that hold item folders")
      ->required();
  serve
      .add_option("--port", options.port,
                  "Listen at this port, 0 at any free one; without it at 8080, if that is free")
      ->check(CLI::Range(0, kMostPort));
  serve.add_option("--package", options.package,
                   "Folder of the built web package; without it build/web/package of the checkout");
  serve.add_option("--player", options.player,
                   "Folder of the player's page; without it web/player of the checkout");
  return serve;
}

void Apply(const PlayFlags& flags, zav::PlayOptions& options) {
  if (flags.readOnly) options.host.lOptions |= 0x1;
  if (flags.showAnswers) options.host.lOptions |= 0x10;
  if (flags.calculator) options.host.lOptions |= 0x100;
  if (flags.json) options.format = zav::Transcript::Format::JsonLines;
  if (!flags.screen.empty()) ReadScreen(flags.screen, options.host.screen);
}

int Fail(const std::string& message) {
  std::cout.flush();
  std::cerr << "zavdragdrop: " << message << '\n';
  return kBadInput;
}

int Run(int argc, char** argv) {
  CLI::App program("Plays drag-and-drop exam items without a screen, or shows them in a browser");
  program.require_subcommand(1);
  zav::PlayOptions options;
  PlayFlags flags;
  AddPlay(program, options, flags);
  zav::ServeOptions serveOptions;
  const CLI::App& serve = AddServe(program, serveOptions);
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? kDone : kBadInput;
  }
  if (serve.parsed()) {
    zav::Serve(serveOptions, std::cout, std::cerr);
    return kDone;
  }
  Apply(flags, options);
  return zav::Play(options, std::cout) ? kDone : kErrorsLogged;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const zav::InputError& error) {
    return Fail(error.what());
  } catch (const std::exception& error) {
    return Fail(error.what());
  }
}

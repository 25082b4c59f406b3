#include "zavdragdrop/ServeCommand.h"

#include <pthread.h>

#include <csignal>
#include <filesystem>
#include <utility>

#include "hosting/InputError.h"
#include "hosting/ItemFolder.h"
#include "zavdragdrop/ServedItems.h"

namespace zav {
namespace {

namespace fs = std::filesystem;

constexpr int kUsualPort = 8080;
constexpr const char* kStartPage = "/player/index.html";
constexpr const char* kPackageScript = "/package/zav-drag-drop.js";

// Blocks the signals that end a process, so that Wait gets them. Threads that are started later
// block them too.
class EndingSignals {
 public:
  EndingSignals() {
    sigemptyset(&signals_);
    sigaddset(&signals_, SIGINT);
    sigaddset(&signals_, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals_, &before_);
  }
  EndingSignals(const EndingSignals&) = delete;
  EndingSignals& operator=(const EndingSignals&) = delete;
  ~EndingSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

  void Wait() const {
    int signal = 0;
    sigwait(&signals_, &signal);
  }

 private:
  sigset_t signals_{};
  sigset_t before_{};
};

// The program stands in build/PRESET/bin.
std::string InCheckout(const char* path) {
  const fs::path bin = fs::canonical("/proc/self/exe").parent_path();
  return (bin / "../../.." / path).lexically_normal().string();
}

std::string OrElse(const std::string& given, const char* inCheckout) {
  return given.empty() ? InCheckout(inCheckout) : given;
}

void AddPackage(ServedFiles& files, const std::string& folder) {
  const std::string expected =
      "the built web package, with zav-drag-drop.js in it; run "
      "tools/build-web";
  files.AddFolder("/package/", folder, expected);
  if (!files.Find(kPackageScript)) throw InputError(folder, "expected " + expected);
}

void Listen(LoopbackServer& server, std::optional<int> port) {
  if (server.Listen(port.value_or(kUsualPort))) return;
  if (port || !server.Listen(0)) {
    throw InputError("port " + std::to_string(port.value_or(0)),
                     "expected one that no other program listens at");
  }
}

void Warn(const std::vector<std::string>& folders, std::ostream& warnings) {
  for (const ServedItem& item : FindItems(folders)) {
    try {
      ItemFolder(item.folder).Check();
    } catch (const InputError& error) {
      warnings << "zavdragdrop: warning: " << error.what() << std::endl;
    }
  }
}

}  // namespace

ServedContent OpenContent(const ServeOptions& options) {
  ServedContent content;
  content.startPage = kStartPage;
  std::vector<ServedItem> items = FindItems(options.folders);
  for (const ServedItem& item : items) {
    content.files.AddFolder("/items/" + item.name + "/", item.folder, "an item folder");
  }
  content.files.AddFolder("/player/", OrElse(options.player, "web/player"),
                          "the files of the player's page");
  AddPackage(content.files, OrElse(options.package, "build/web/package"));
  content.listItems = [items = std::move(items)] { return ListItems(items); };
  return content;
}

void Serve(const ServeOptions& options, std::ostream& out, std::ostream& warnings) {
  const EndingSignals signals;
  LoopbackServer server(OpenContent(options));
  Warn(options.folders, warnings);
  Listen(server, options.port);
  out << "Open http://127.0.0.1:" << server.port() << "/ (Ctrl-C ends it)" << std::endl;
  signals.Wait();
}

}  // namespace zav

#include "zavdragdrop/LoopbackServer.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include "automation/AutomationError.h"
#include "platform/headless/LocalFiles.h"

namespace zav {
namespace {

namespace fs = std::filesystem;
using httplib::Request;
using httplib::Response;

constexpr const char* kThisMachine = "127.0.0.1";
constexpr int kNotModified = 304;
constexpr int kForbidden = 403;
constexpr int kNotFound = 404;
constexpr int kMethodNotAllowed = 405;
constexpr int kIdleSeconds = 1;  // how long an open connection delays the end
constexpr int kRequestsOfConnection = 1000;

httplib::Headers AlwaysSent() {
  return {
      {"Content-Security-Policy",
       "default-src 'none'; script-src 'self' 'wasm-unsafe-eval'; style-src 'self'; "
       "img-src 'self'; connect-src 'self'; base-uri 'none'; form-action 'none'; "
       "frame-ancestors 'self'"},
      {"Cross-Origin-Resource-Policy", "same-origin"},
      {"X-Content-Type-Options", "nosniff"},
      {"Referrer-Policy", "no-referrer"},
      {"Cache-Control", "no-cache"},
  };
}

// Without more: the library would let a second server listen at the same port.
void ReuseAddress(socket_t socket) {
  const int yes = 1;
  setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

bool IsThisMachine(const std::string& host) {
  const std::string name = host.substr(0, host.find(':'));
  return name == kThisMachine || name == "localhost";
}

// Changes with every new version of the file.
std::string Tag(const fs::path& file) {
  std::error_code error;
  const auto time = fs::last_write_time(file, error).time_since_epoch().count();
  return "\"" + std::to_string(time) + "-" + std::to_string(fs::file_size(file, error)) + "\"";
}

// Given piecemeal it is not compressed, which on the way to the same machine only costs time. The
// library does not check ranges of such a body, and it tells no length of an empty one.
void SetBody(const Request& request, Response& response, std::vector<std::uint8_t> bytes,
             const std::string& type) {
  if (bytes.empty() || !request.ranges.empty()) {
    return response.set_content(std::string(bytes.begin(), bytes.end()), type);
  }
  const std::size_t size = bytes.size();
  response.set_content_provider(
      size, type,
      [all = std::move(bytes)](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
        const std::span<const std::uint8_t> part = std::span(all).subspan(offset, length);
        return sink.write(reinterpret_cast<const char*>(part.data()), part.size());
      });
}

void Refuse(Response& response, int status, const std::string& why) {
  response.status = status;
  response.set_content(why + "\n", "text/plain; charset=utf-8");
}

}  // namespace

LoopbackServer::LoopbackServer(ServedContent content) : content_(std::move(content)) {
  server_.set_default_headers(AlwaysSent());
  server_.set_socket_options(ReuseAddress);
  server_.set_keep_alive_timeout(kIdleSeconds);
  server_.set_keep_alive_max_count(kRequestsOfConnection);
  // Before the library's own routing, which knows more methods and reads bodies.
  server_.set_pre_routing_handler([this](const Request& request, Response& response) {
    Answer(request, response);
    return httplib::Server::HandlerResponse::Handled;
  });
}

LoopbackServer::~LoopbackServer() {
  server_.stop();
  if (thread_.joinable()) thread_.join();
}

bool LoopbackServer::Listen(int port) {
  if (port == 0) {
    port_ = server_.bind_to_any_port(kThisMachine);
  } else {
    port_ = server_.bind_to_port(kThisMachine, port) ? port : -1;
  }
  if (port_ < 0) return false;
  thread_ = std::thread([this] { server_.listen_after_bind(); });
  // A server that does not run yet cannot be stopped.
  while (!server_.is_running()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return true;
}

void LoopbackServer::Answer(const Request& request, Response& response) const {
  if (request.method != "GET" && request.method != "HEAD") {
    response.set_header("Allow", "GET, HEAD");
    Refuse(response, kMethodNotAllowed, "Only GET and HEAD are taken");
  } else if (!IsThisMachine(request.get_header_value("Host"))) {
    Refuse(response, kForbidden, "Only requests for 127.0.0.1 and localhost are answered");
  } else if (request.path == "/items/") {
    response.set_content(content_.listItems(), "application/json");
  } else {
    AnswerWithFile(request, response);
  }
}

void LoopbackServer::AnswerWithFile(const Request& request, Response& response) const {
  const std::optional<fs::path> file =
      content_.files.Find(request.path == "/" ? content_.startPage : request.path);
  if (!file) return Refuse(response, kNotFound, "There is no such file");
  const std::string tag = Tag(*file);
  response.set_header("ETag", tag);
  if (request.get_header_value("If-None-Match") == tag) {
    response.status = kNotModified;
    return;
  }
  try {
    SetBody(request, response, local_files::Read(file->string()), ContentType(*file));
  } catch (const AutomationError& error) {
    Refuse(response, kForbidden, error.Description());
  }
}

}  // namespace zav

// Serves files over HTTP to this machine only.
//
// It listens on 127.0.0.1 and answers only requests for a host of that name, so that no page from
// elsewhere gets at the files through a name of its own. GET and HEAD are all that it takes; it
// answers 405 to anything else. Every answer carries a content security policy under which a page
// loads from this server only.
#pragma once

#include <httplib.h>

#include <functional>
#include <string>
#include <thread>

#include "zavdragdrop/ServedFiles.h"

namespace zav {

struct ServedContent {
  ServedFiles files;
  std::string startPage;                   // the address of the file that "/" stands for
  std::function<std::string()> listItems;  // JSON, asked for anew by each request for "/items/"
};

class LoopbackServer {
 public:
  explicit LoopbackServer(ServedContent content);
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;
  // Waits for requests that are under way.
  ~LoopbackServer();

  // Once only. Answers from a thread of its own; 0 takes any free port. False when that port is
  // not free.
  bool Listen(int port);
  [[nodiscard]] int port() const { return port_; }

 private:
  void Answer(const httplib::Request& request, httplib::Response& response) const;
  void AnswerWithFile(const httplib::Request& request, httplib::Response& response) const;

  ServedContent content_;
  httplib::Server server_;
  std::thread thread_;
  int port_ = 0;
};

}  // namespace zav

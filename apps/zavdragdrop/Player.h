// Plays a script: the host's steps through the item interface, the candidate's with pointer and
// keys.
#pragma once

#include <functional>

#include "hosting/Candidate.h"
#include "hosting/ReferenceHost.h"
#include "zavdragdrop/PlayScript.h"
#include "zavdragdrop/Transcript.h"

namespace zav {

class Player {
 public:
  // Both outlive the player; what happens is written to the transcript.
  Player(ReferenceHost& host, Transcript& transcript);
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;
  ~Player();

  // Initialises the item. False when that failed; nothing can be played then.
  bool Load();
  // Plays every step. Raises InputError, naming the line, at one that cannot be done, such as for a
  // target that is out of sight. An error that the component raises to its host is written, and the
  // play goes on.
  void Play(const PlayScript& script);
  // Writes the responses and the state that the play ends with, and frees the item.
  void End();

 private:
  void Do(const Step& step);
  void DoAsCandidate(const Step& step);
  void DoAsHost(const Step& step);
  void Report(bool accepted);
  void Guard(const std::function<void()>& action);

  ReferenceHost& host_;
  Transcript& transcript_;
  Candidate candidate_;
};

}  // namespace zav

// Fills the item with the placements that its answer key asserts.
#pragma once

#include <string>

#include "form/StateRestorer.h"
#include "form/commands/FooterCommands.h"
#include "keys/modSetAnswers.h"

namespace zav {

class SetAnswersCommand {
 public:
  struct Rooms {
    FooterCommands& commands;
    StateRestorer& restorer;
    AreaRefresh& refresh;
  };
  SetAnswersCommand(FormCore& form, const Rooms& rooms) : form_(form), rooms_(rooms) {}

  // Reports under "cmdSetAnswers_Click".
  void cmdSetAnswers_Click();

 private:
  void ApplyAnswers();
  void ApplyKey(std::string key);
  void ApplyTerm(const std::string& term, const std::string& key, std::string& applied);

  FormCore& form_;
  Rooms rooms_;
  modSetAnswers evaluator_;
};

}  // namespace zav

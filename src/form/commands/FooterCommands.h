// What the footer's buttons do: Reset, Calculator and Instructions.
#pragma once

#include <memory>
#include <string>

#include "automation/Handler.h"
#include "form/AreaRefresh.h"
#include "form/PageLoading.h"
#include "form/commands/frmInstructions.h"
#include "form/interaction/Placement.h"
#include "host/Question.h"

namespace zav {

class FooterCommands {
 public:
  struct Rooms {
    Placement& placement;
    SourceLook& sourceLook;
    AreaRefresh& refresh;
    PageLoading& pages;
  };
  FooterCommands(FormCore& form, const Rooms& rooms)
      : form_(form), rooms_(rooms), question_(form.host) {}

  // On while Set Answers clears the item: nothing is asked, and the areas are not refreshed.
  bool ResetWithoutConfirm = false;
  // Connects the events of the instructions' page.
  Handler<void(HtmlPane&)> onInstructionsLoaded;

  // Each reports under its own name.
  void cmdReset_Click();
  void cmdCalculator_Click();
  void cmdInstructions_Click();

  // Empties every target; every source item has all its uses again.
  void Reset();

  // Takes a question that is open back, as if it had been cancelled.
  void DropQuestion() { question_.Drop(); }

  // The open instructions window, or null.
  [[nodiscard]] frmInstructions* InstructionsForm() const { return InstructionsForm_.get(); }

  // Closes both windows, the calculator's after giving it its parent back.
  void CloseWindows();

 private:
  void SetCalc();
  // The open window, which then is none of the loaded ones any more; or null.
  std::unique_ptr<frmInstructions> TakeInstructions();
  void CloseInstructions();
  void OpenInstructions();
  [[nodiscard]] std::string InstructionsText() const;

  FormCore& form_;
  Rooms rooms_;
  Question question_;
  WindowHandle CalcWindow_ = 0;
  WindowHandle CalcPreviousParent_ = 0;
  std::unique_ptr<frmInstructions> InstructionsForm_;
  WindowHandle InstructionsPreviousParent_ = 0;
};

}  // namespace zav

#include "form/commands/FooterCommands.h"

#include <utility>

#include "automation/Conversions.h"
#include "host/StaticMessages.h"

namespace zav {

void FooterCommands::cmdReset_Click() {
  form_.Trap("cmdReset_Click", [&] {
    if (ResetWithoutConfirm) {
      Reset();
      return;
    }
    question_.Ask(form_.Owner(), GetStaticMsg(form_.Owner(), "msgClearAll"),
                  message_style::kOkCancel, [this](std::int16_t answer) {
                    if (answer == message_answer::kOk) Reset();
                    rooms_.refresh.RefreshSourceArea();
                    rooms_.refresh.RefreshWorkArea();
                  });
  });
}

void FooterCommands::Reset() {
  form_.Trap("Reset", [&] {
    for (int t = 1; t <= form_.controls.imgTarget.UpperBound(); ++t) {
      rooms_.placement.ClearTarget(t);
    }
    for (int s = 1; s <= form_.controls.imgSource.UpperBound(); ++s) {
      form_.tables.SourceUses(s, 2) = 0;
      form_.drag.SourceUsedUp = false;
      // The outline stands round the whole item, as it does everywhere: round the text alone it
      // would cross an item with a picture above its text.
      rooms_.sourceLook.ShowUsable(s);
    }
  });
}

void FooterCommands::cmdCalculator_Click() {
  form_.Trap("cmdCalculator_Click", [&] { SetCalc(); });
}

void FooterCommands::SetCalc() {
  form_.Trap("SetCalc", [&] {
    Services& services = form_.host.services();
    if (CalcWindow_ != 0 && services.IsWindow(CalcWindow_)) {
      services.BringWindowToTop(CalcWindow_);
      return;
    }
    services.Shell(GetGraphicsPath(form_.Owner().ExternalSupport(), "dcalc.exe"));
    CalcWindow_ = services.FindWindow("SciCalc", "Calculator");
    if (CalcWindow_ == 0) return;
    CalcPreviousParent_ = services.SetParent(CalcWindow_, form_.Owner().ParentWnd());
    services.BringWindowToTop(CalcWindow_);
    services.RestoreWindow(CalcWindow_);
  });
}

void FooterCommands::cmdInstructions_Click() {
  form_.Trap("cmdInstructions_Click", [&] {
    TakeInstructions().reset();
    OpenInstructions();
  });
}

void FooterCommands::OpenInstructions() {
  const std::string text = InstructionsText();
  auto window = std::make_unique<frmInstructions>(form_.host);
  InstructionsPreviousParent_ =
      form_.host.services().SetParent(window->hwnd(), form_.Owner().ParentWnd());
  const Form& main = form_.controls.form;
  window->MoveTo((main.scaleWidth() - window->width()) / 2,
                 (main.scaleHeight() - window->height()) / 2);
  window->SetCaption(ButtonText(form_.Owner(), "cmdShowInstruction"));
  if (onInstructionsLoaded) onInstructionsLoaded(window->txtInstructions);
  window->onClose = [this] { CloseInstructions(); };
  window->SetInstText(rooms_.pages.RewriteGraphicsPaths(text));
  window->Show();
  form_.Owner().Module().loadedForms.push_back(window.get());
  InstructionsForm_ = std::move(window);
}

std::string FooterCommands::InstructionsText() const {
  DataIO& document = form_.Document();
  const CursorScope keep(document);
  document.SetFromRoot(true);
  const bool found = document.FindNode("Instructions");
  document.SetFromRoot(true);
  if (!found || !document.FindNode("Text")) {
    RaiseError(error_number::kObjectNotSet, "The item has no instructions");
  }
  return ToText(document.GetText());
}

std::unique_ptr<frmInstructions> FooterCommands::TakeInstructions() {
  if (InstructionsForm_) {
    std::erase(form_.Owner().Module().loadedForms, InstructionsForm_.get());
  }
  return std::move(InstructionsForm_);
}

// It is the window itself that asks to be closed.
void FooterCommands::CloseInstructions() { form_.host.KeepUntilIdle(TakeInstructions()); }

void FooterCommands::CloseWindows() {
  Services& services = form_.host.services();
  if (CalcWindow_ > 0 && services.IsWindow(CalcWindow_)) {
    services.SetParent(CalcWindow_, CalcPreviousParent_);
    services.SendClose(CalcWindow_);
  }
  CalcWindow_ = 0;
  form_.host.KeepUntilIdle(std::move(InstructionsForm_));
}

}  // namespace zav

#include "zavdragdrop/Player.h"

#include <chrono>
#include <map>
#include <string>

#include "host/clsErrorDisplay.h"
#include "hosting/InputError.h"
#include "hosting/TextFile.h"
#include "zavdragdrop/KeyNames.h"

namespace zav {
namespace {

Area AreaOf(const std::string& name) {
  if (name == "stem") return Area::Stem;
  return name == "source-area" ? Area::Source : Area::Work;
}

const char* PaneOf(const std::string& name) { return name == "stem" ? "ItemStem" : "SourceArea"; }

const std::string& ButtonOf(const std::string& name) {
  static const std::map<std::string, std::string> ids = {{"reset", "btnReset"},
                                                         {"instructions", "btnInstructions"},
                                                         {"calculator", "btnCalculator"},
                                                         {"set-answers", "btnSetAnswers"}};
  return ids.at(name);
}

}  // namespace

Player::Player(ReferenceHost& host, Transcript& transcript)
    : host_(host), transcript_(transcript), candidate_(host) {
  host_.parent().onLogError = [this](const LogEntry& entry) { transcript_.AddLogEntry(entry); };
  host_.parent().onShowMessage = [this](const ShownMessage& message) {
    transcript_.AddMessage(message);
  };
}

Player::~Player() {
  host_.parent().onLogError = {};
  host_.parent().onShowMessage = {};
}

void Player::Guard(const std::function<void()>& action) {
  try {
    action();
  } catch (const AutomationError& error) {
    transcript_.AddError(error);
  }
}

void Player::Report(bool accepted) {
  if (!accepted) transcript_.AddRefusal();
}

bool Player::Load() {
  transcript_.AddStep(0, "load");
  bool loaded = false;
  Guard([&] { Report(loaded = host_.Init()); });
  return loaded;
}

void Player::Play(const PlayScript& script) {
  for (const Step& step : script.steps) {
    transcript_.AddStep(step.line, step.text);
    try {
      Guard([&] { Do(step); });
    } catch (const InputError& error) {
      throw InputError(script.name + ", line " + std::to_string(step.line), error.what());
    }
    Guard([&] { transcript_.AddResponses(host_.Responses()); });
  }
}

void Player::End() {
  transcript_.AddStep(0, "end");
  Guard([&] {
    transcript_.AddResponses(host_.Responses());
    transcript_.AddText("state", host_.State());
  });
  Guard([&] { Report(host_.Free()); });
}

void Player::Do(const Step& step) {
  DoAsCandidate(step);
  DoAsHost(step);
}

void Player::DoAsCandidate(const Step& step) {
  switch (step.word) {
    case Word::Drag:
      return candidate_.Drag(step.spots[0], step.spots[1]);
    case Word::Press:
      return candidate_.Press(step.spots[0]);
    case Word::Move:
      return candidate_.MoveTo(step.spots[0]);
    case Word::Release:
      return candidate_.Release();
    case Word::Click:
      return candidate_.Click(step.spots[0]);
    case Word::ClickButton:
      return candidate_.ClickButton(ButtonOf(step.names[0]));
    case Word::Focus:
      return candidate_.Focus(step.spots[0]);
    case Word::Delete:
      return candidate_.Delete(step.spots[0]);
    case Word::PressKey:
      return candidate_.Key(*ReadKey(step.names[0]));
    case Word::ScrollTo:
      return step.names[1] == "end" ? candidate_.ScrollToEnd(AreaOf(step.names[0]))
                                    : candidate_.ScrollToStart(AreaOf(step.names[0]));
    case Word::ScrollBy:
      return candidate_.ScrollBy(AreaOf(step.names[0]), step.numbers[0],
                                 step.numbers.size() > 1 ? step.numbers[1] : 0);
    case Word::Splitter:
      return candidate_.DragSplitter(PaneOf(step.names[0]), step.numbers[0]);
    case Word::CloseWindow:
      return candidate_.CloseWindow();
    default:
      return;
  }
}

void Player::DoAsHost(const Step& step) {
  switch (step.word) {
    case Word::Show:
      return Report(host_.Show());
    case Word::Hide:
      return Report(host_.Hide());
    case Word::Resize:
      return Report(host_.Resize(step.numbers[0], step.numbers[1]));
    case Word::Answer:
      return host_.parent().WillAnswer(step.names[0] == "OK" ? message_answer::kOk
                                                             : message_answer::kCancel);
    case Word::Wait:
      return host_.Wait(std::chrono::milliseconds(step.numbers[0]));
    case Word::State:
      return transcript_.AddText("state", host_.State());
    case Word::Status:
      return transcript_.AddStatus(host_.Status());
    case Word::Responses:
      return transcript_.AddText("record", host_.GetRecord(ReferenceHost::Record::Responses));
    case Word::Key:
      return transcript_.AddText("key", host_.GetRecord(ReferenceHost::Record::Key));
    case Word::Score:
      return transcript_.AddScore(host_.Score(), host_.GetScoreInfo());
    case Word::Rescore:
      return transcript_.AddScore(host_.Rescore(step.names[0]), host_.GetScoreInfo());
    case Word::SaveState:
      return WriteTextFile(step.names[0], host_.State());
    case Word::LoadState:
      return host_.SetState(ReadTextFile(step.names[0]));
    case Word::Picture:
      return WriteBinaryFile(step.names[0], host_.Picture());
    default:
      return;
  }
}

}  // namespace zav

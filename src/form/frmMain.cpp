#include "form/frmMain.h"

#include "automation/Conversions.h"
#include "form/FormLoader.h"
#include "form/PageRouting.h"
#include "form/Readiness.h"
#include "form/StateRestorer.h"
#include "form/commands/FooterCommands.h"
#include "form/commands/SetAnswersCommand.h"
#include "form/interaction/KeyboardDrag.h"
#include "form/interaction/SourceDrag.h"
#include "form/interaction/TargetDrag.h"

namespace zav {
namespace {

// The owner's events, by their dispatch identifiers.
constexpr std::int32_t kRefreshDisplay = 1;
constexpr std::int32_t kResizeDisplay = 2;
constexpr std::int32_t kLoadState = 4;

Rect DisplayRect(std::span<Variant> arguments) {
  return {static_cast<float>(ToInt32(arguments[0])), static_cast<float>(ToInt32(arguments[1])),
          static_cast<float>(ToInt32(arguments[2])), static_cast<float>(ToInt32(arguments[3]))};
}

}  // namespace

// Every room with the rooms below it that it uses.
struct frmMain::Rooms {
  Rooms(ControlHost& controlHost, Form& form, clsErrorDisplay& errorDisplay)
      : core(controlHost, form, errorDisplay) {}

  FormCore core;
  Drawing drawing{core};
  PageLoading pages{core};
  StateRecorder recorder{core};
  Panes panes{core};
  TargetLook targetLook{core};
  SourceLook sourceLook{core, drawing};
  WorkArea workArea{core, pages, targetLook};
  SourceArea sourceArea{core, pages};
  DropLocation location{core};
  AreaRefresh refresh{core, drawing, sourceLook};
  DragPicture picture{core};
  DragFeedback feedback{core, drawing};
  FlashTimer flash{core};
  ScrollTracking scrolling{core, recorder};
  AreaSizing sizing{core, panes, targetLook, refresh};
  Placement placement{core, {recorder, pages, targetLook, sourceLook, refresh, feedback}};
  DragRooms drags{drawing, location, picture, feedback, placement, refresh, targetLook};
  SourceDrag sourceDrag{core, drags};
  TargetDrag targetDrag{core, drags};
  KeyboardDrag keyboard{core, drags, sourceDrag, targetDrag};
  StateRestorer restorer{core, panes, placement};
  PaneLayout layout{core, panes, sizing, refresh, recorder};
  FormLoader loader{core, {pages, panes, sourceArea, workArea}};
  Readiness readiness{core, {layout, sizing, restorer, scrolling, flash}};
  FooterCommands commands{core, {placement, sourceLook, refresh, pages}};
  SetAnswersCommand setAnswers{core, {commands, restorer, refresh}};
};

frmMain::frmMain(ControlHost& controlHost, clsErrorDisplay& errorDisplay)
    : Form(controlHost, "frmMain"),
      rooms_(std::make_unique<Rooms>(controlHost, *this, errorDisplay)) {
  rooms_->panes.Create();
  WireAreas();
  WireDrags();
  WireScrolling();
  WirePages();
  WireTimers();
  rooms_->loader.Form_Load();
}

frmMain::~frmMain() {
  if (events_ != nullptr) events_->Unadvise(*this);
}

FormCore& frmMain::core() { return rooms_->core; }
void frmMain::SetReadOnly(bool readOnly) { core().options.ReadOnly = readOnly; }
void frmMain::SetShowAnswers(bool showAnswers) { core().options.ShowAnswers = showAnswers; }
void frmMain::SetLorDriver(bool lorDriver) { core().options.LorDriver = lorDriver; }
void frmMain::SetCaseStudy(bool caseStudy) { core().options.CaseStudy = caseStudy; }

void frmMain::SetParentClass(ItemOwner* owner, EventSource* events) {
  if (events_ != nullptr) events_->Unadvise(*this);
  events_ = events;
  if (events_ != nullptr) events_->Advise(*this);
  rooms_->loader.SetParentClass(owner);
}

void frmMain::OnEvent(std::int32_t dispatchId, std::span<Variant> arguments) {
  switch (dispatchId) {
    case kRefreshDisplay:
      EndGesture();
      rooms_->loader.moParent_RefreshDisplay();
      break;
    case kResizeDisplay:
      rooms_->readiness.moParent_ResizeDisplay(DisplayRect(arguments));
      break;
    case kLoadState:
      EndGesture();
      rooms_->readiness.moparent_LoadState();
      break;
    default:
      break;
  }
}

bool frmMain::ViewedAll() { return rooms_->readiness.ViewedAll_Get(); }

void frmMain::EndGesture() {
  rooms_->commands.DropQuestion();
  rooms_->flash.Stop();
  rooms_->feedback.tmFade_Timer();
  if (core().drag.ItemPressed || rooms_->picture.Visible() || rooms_->keyboard.Carrying()) {
    CancelDrag(core(), rooms_->drags);
  }
}

void frmMain::Form_Unload() {
  core().Trap("Form_Unload", [&] {
    EndGesture();
    rooms_->commands.CloseWindows();
    rooms_->loader.Unload();
    core().layout = {};
  });
}

void frmMain::WireAreas() {
  AreaRefresh& refresh = rooms_->refresh;
  core().controls.pcWork.onPaint = [&refresh] { refresh.PaintWorkArea(); };
  core().controls.pcSource.onPaint = [&refresh] { refresh.PaintSourceArea(); };
}

void frmMain::WireDrags() {
  core().controls.imgSourceCover.onLoad = [this](PictureButton& cover, int index) {
    SourceDrag& drag = rooms_->sourceDrag;
    cover.onMouseDown = [&drag, index](const MouseEvent& e) { drag.CoverMouseDown(index, e); };
    cover.onMouseMove = [&drag, index](const MouseEvent& e) { drag.CoverMouseMove(index, e); };
    KeyboardDrag& keyboard = rooms_->keyboard;
    cover.onMouseUp = [&drag, &keyboard, index](const MouseEvent& e) {
      const bool click = keyboard.IsClick();
      drag.CoverMouseUp(index, e);
      if (click) keyboard.SourceClick(index);
    };
    cover.onMouseCancel = [this] { CancelDrag(core(), rooms_->drags); };
    cover.onHover = [&drag, index] { drag.CoverHover(index); };
    cover.onKeyDown = [&keyboard, index](const KeyEvent& e) { keyboard.SourceKey(index, e); };
  };
  core().controls.imgSource.onLoad = [this](PictureButton& picture, int index) {
    picture.onClick = [this, index] { core().controls.imgSourceCover[index].BringToFront(); };
  };
  core().controls.imgTargetCover.onLoad = [this](PictureButton& cover, int index) {
    TargetDrag& drag = rooms_->targetDrag;
    cover.onMouseDown = [&drag, index](const MouseEvent& e) { drag.CoverMouseDown(index, e); };
    cover.onMouseMove = [&drag, index](const MouseEvent& e) { drag.CoverMouseMove(index, e); };
    KeyboardDrag& keyboard = rooms_->keyboard;
    cover.onMouseUp = [&drag, &keyboard, index](const MouseEvent& e) {
      const bool click = keyboard.IsClick() || keyboard.Carrying();
      drag.CoverMouseUp(index, e);
      if (click) keyboard.TargetClick(index);
    };
    cover.onMouseCancel = [this] { CancelDrag(core(), rooms_->drags); };
    cover.onHover = [&drag, index] { drag.CoverHover(index); };
    cover.onKeyDown = [&keyboard, index](const KeyEvent& e) { keyboard.TargetKey(index, e); };
    cover.onFocus = [&drag, index] { drag.CoverFocus(index); };
  };
  // The pointer reaches the drag picture only when a release was lost: it stands on the picture, on
  // the text of an item without one, or beside both.
  FormControls& controls = core().controls;
  for (Control* part :
       {static_cast<Control*>(&controls.imgDrag), static_cast<Control*>(&controls.txtDrag),
        static_cast<Control*>(&controls.pcDrag)}) {
    part->onClick = [this] { rooms_->picture.Hide(); };
    part->onMouseMove = [this](const MouseEvent&) {
      if (!rooms_->picture.Gliding()) CancelDrag(core(), rooms_->drags);
    };
  }
}

void frmMain::WireScrolling() {
  FormControls& controls = core().controls;
  ScrollTracking& scrolling = rooms_->scrolling;
  controls.scrSource.onHorizontalScroll = [&scrolling] { scrolling.scrSource_HScroll(); };
  controls.scrSource.onVerticalScroll = [&scrolling] { scrolling.scrSource_VScroll(); };
  controls.scrWork.onHorizontalScroll = [&scrolling] { scrolling.scrWork_HScroll(); };
  controls.scrWork.onVerticalScroll = [&scrolling] { scrolling.scrWork_VScroll(); };
  controls.pcWorkContainer.onResize = [this] { rooms_->sizing.pcWorkContainer_Resize(); };
  controls.spSplitter.onSplitterEndDrag = [this] {
    rooms_->readiness.spSplitter_SplitterEndDrag();
  };
}

void frmMain::WirePages() {
  FormControls& controls = core().controls;
  for (HtmlPane* pane : controls.HtmlPanes()) {
    pane->onPageLoaded = [this] { rooms_->readiness.IsFullyLoaded(); };
    pane->onPageEvent = SuppressPageEvent;
  }
  controls.txtItemStem.onPageEvent = [this](PageEvent& event) {
    if (event.type == "scroll") rooms_->scrolling.txtItemStem_Scroll();
    SuppressPageEvent(event);
  };
  controls.brwButtons.onPageEvent = [this](PageEvent& event) {
    SuppressPageEvent(event);
    if (event.type != "click") return;
    // A carried item may be used or taken away by a command.
    if (rooms_->keyboard.Carrying()) CancelDrag(core(), rooms_->drags);
    if (event.sourceId == "btnReset" && !core().options.ReadOnly) rooms_->commands.cmdReset_Click();
    if (event.sourceId == "btnInstructions") rooms_->commands.cmdInstructions_Click();
    // Captions are HTML and may bring a button of any name.
    const FormOptions& options = core().options;
    if (event.sourceId == "btnCalculator" && options.LorDriver) {
      rooms_->commands.cmdCalculator_Click();
    }
    if (event.sourceId == "btnSetAnswers" && options.ShowAnswers) {
      rooms_->setAnswers.cmdSetAnswers_Click();
    }
  };
  rooms_->commands.onInstructionsLoaded = [](HtmlPane& pane) {
    pane.onPageEvent = SuppressPageEvent;
  };
}

void frmMain::WireTimers() {
  FormControls& controls = core().controls;
  controls.tmTimer.onTimer = [this] { rooms_->picture.tmTimer_Timer(); };
  controls.tmFade.onTimer = [this] { rooms_->feedback.tmFade_Timer(); };
  controls.tmFlash.onTimer = [this] { rooms_->flash.tmFlash_Timer(); };
}

}  // namespace zav

#include "hosting/Candidate.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "automation/Text.h"
#include "document/ItemTag.h"
#include "hosting/InputError.h"
#include "platform/headless/HitTest.h"

namespace zav {
namespace {

constexpr int kMovesOfAHand = 4;
constexpr int kDeleteKey = 46;
constexpr int kFarPixels = 1'000'000;

// A whole text as a number; nothing for any other.
std::optional<int> ReadNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<Spot> ReadPixel(std::string_view across, std::string_view down) {
  const std::optional<int> x = ReadNumber(across);
  const std::optional<int> y = ReadNumber(down);
  if (!x || !y) return std::nullopt;
  return Spot{Spot::Kind::Pixel, {}, {static_cast<float>(*x), static_cast<float>(*y)}};
}

std::string WordsOf(const Spot& spot) {
  switch (spot.kind) {
    case Spot::Kind::Source:
      return "source " + spot.id;
    case Spot::Kind::Target:
      return "target " + spot.id;
    case Spot::Kind::SourceArea:
      return "source-area";
    case Spot::Kind::Nowhere:
      return "nowhere";
    case Spot::Kind::Pixel:
      break;
  }
  return "the pixel";
}

bool HasLetter(std::string_view tag, std::string_view letter) {
  const std::string answer = GetAnswerId(tag);
  return !letter.empty() && FirstCharacters(answer, 1) == letter;
}

// 0 when there is none.
int IndexOf(const ControlArray<PictureButton>& covers, const Spot& spot) {
  for (int i = 1; i <= covers.UpperBound(); ++i) {
    if (GetObjectId(covers[i].tag()) == spot.id) return i;
  }
  if (spot.kind == Spot::Kind::Source) return 0;
  for (int i = 1; i <= covers.UpperBound(); ++i) {
    if (HasLetter(covers[i].tag(), spot.id)) return i;
  }
  return 0;
}

Rect Intersection(const Rect& a, const Rect& b) {
  const float left = std::max(a.left, b.left);
  const float top = std::max(a.top, b.top);
  return {left, top, std::min(a.Right(), b.Right()) - left, std::min(a.Bottom(), b.Bottom()) - top};
}

// In twips from the form's corner.
Rect BoxInForm(const Control& control) {
  const Point origin = control.OriginInForm();
  const Size size = control.SizeInTwips();
  return {origin.x, origin.y, size.width, size.height};
}

// What its containers let through, in twips from the form's corner.
Rect PartInSight(const Control& control) {
  Rect part = BoxInForm(control);
  for (const Control* each = control.container(); each != nullptr; each = each->container()) {
    part = Intersection(part, BoxInForm(*each));
  }
  return part;
}

const Form& FormOf(const Control& control) {
  const Control* form = &control;
  while (form->container() != nullptr) form = form->container();
  return static_cast<const Form&>(*form);
}

const Form* FormInFrontAt(const HeadlessPlatform& platform, Point at) {
  const std::vector<Form*> forms = platform.Forms();
  const auto found = std::find_if(forms.rbegin(), forms.rend(), [&](const Form* form) {
    return form->visible() && form->rect().Contains(at);
  });
  return found == forms.rend() ? nullptr : *found;
}

float LengthAlong(const Splitter::Bar& bar, const Rect& rect) {
  return bar.upright ? rect.width : rect.height;
}

bool CanBeClosed(const Window& window) {
  if (window.owner == Window::Owner::Program) return window.visible;
  return window.form != nullptr && window.form->visible() &&
         window.form->name() == "frmInstructions";
}

}  // namespace

std::optional<Spot> ReadSpot(std::string_view words) {
  if (words == "source-area") return Spot{Spot::Kind::SourceArea, {}, {}};
  if (words == "nowhere") return Spot{Spot::Kind::Nowhere, {}, {}};
  const std::size_t blank = words.find(' ');
  if (blank == std::string_view::npos) return std::nullopt;
  const std::string_view first = words.substr(0, blank);
  const std::string_view second = TrimBlanks(words.substr(blank));
  if (first == "source") return Spot{Spot::Kind::Source, std::string(second), {}};
  if (first == "target") return Spot{Spot::Kind::Target, std::string(second), {}};
  return ReadPixel(first, second);
}

FormControls& Candidate::Controls() { return host_.form().core().controls; }

float Candidate::TwipsPerPixel() const {
  return static_cast<float>(host_.platform().options().twipsPerPixel);
}

Control& Candidate::ControlOf(const Spot& spot) {
  FormControls& controls = Controls();
  if (spot.kind == Spot::Kind::SourceArea) return controls.scrSource;
  if (spot.kind == Spot::Kind::Nowhere) {
    return controls.brwTitle.ShownInForm() ? controls.brwTitle : controls.brwButtons;
  }
  const auto& covers =
      spot.kind == Spot::Kind::Source ? controls.imgSourceCover : controls.imgTargetCover;
  const int index = IndexOf(covers, spot);
  if (index == 0) throw InputError(WordsOf(spot), "the item has none of that name");
  return covers[index];
}

Point Candidate::PlaceOf(const Spot& spot) {
  if (spot.kind == Spot::Kind::Pixel) {
    return {spot.pixel.x * TwipsPerPixel(), spot.pixel.y * TwipsPerPixel()};
  }
  return PlaceIn(ControlOf(spot), WordsOf(spot));
}

// The middle of what can be seen of it, as a whole pixel of the window.
Point Candidate::PlaceIn(const Control& control, const std::string& name) {
  const Rect part = PartInSight(control);
  if (!control.ShownInForm() || part.width <= 0 || part.height <= 0) {
    throw InputError(name, "is out of sight; scroll to it first");
  }
  const Form& form = FormOf(control);
  const auto wholePixel = [this](float twips) {
    return std::floor(twips / TwipsPerPixel()) * TwipsPerPixel();
  };
  const Point middle{wholePixel(form.left() + part.left + part.width / 2),
                     wholePixel(form.top() + part.top + part.height / 2)};
  if (FormInFrontAt(host_.platform(), middle) != &form) {
    throw InputError(name, "is covered by another window; close it first");
  }
  return middle;
}

void Candidate::MovePointer(Point to) {
  const Point from = at_;
  for (int move = 1; move <= kMovesOfAHand; ++move) {
    const float part = static_cast<float>(move) / kMovesOfAHand;
    at_ = {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
    host_.platform().MoveTo(at_);
  }
}

// What glides or hovers over an item takes the press that is meant for it.
void Candidate::RequireOnTop(const Spot& spot, Point at) {
  if (spot.kind != Spot::Kind::Source && spot.kind != Spot::Kind::Target) return;
  Form& form = host_.form();
  const Control* hit = ControlAt(form, {at.x - form.left(), at.y - form.top()});
  if (hit != &ControlOf(spot)) {
    throw InputError(WordsOf(spot), "is covered by " + hit->name() + "; let it go away first");
  }
}

void Candidate::Press(const Spot& spot) {
  const Point at = PlaceOf(spot);
  RequireOnTop(spot, at);
  at_ = at;
  host_.platform().Press(at_);
  host_.platform().RunPosted();
}

void Candidate::MoveTo(const Spot& spot) {
  MovePointer(PlaceOf(spot));
  host_.platform().RunPosted();
}

void Candidate::Release() {
  host_.platform().Release();
  host_.platform().RunPosted();
}

void Candidate::Drag(const Spot& from, const Spot& to) {
  PlaceOf(to);
  Press(from);
  MoveTo(to);
  Release();
}

void Candidate::Click(const Spot& spot) {
  Press(spot);
  Release();
}

void Candidate::Focus(const Spot& spot) {
  PlaceOf(spot);
  host_.platform().Focus(ControlOf(spot));
}

void Candidate::Key(const KeyEvent& event) {
  host_.platform().Key(event);
  host_.platform().RunPosted();
}

void Candidate::Delete(const Spot& target) {
  Focus(target);
  Key({kDeleteKey});
}

void Candidate::ScrollFrameTo(Area area, Point twips) {
  FormControls& controls = Controls();
  (area == Area::Source ? controls.scrSource : controls.scrWork).ScrollTo(twips.x, twips.y);
}

void Candidate::ScrollBy(Area area, int downPixels, int acrossPixels) {
  FormControls& controls = Controls();
  if (area == Area::Stem) {
    HtmlPane& stem = controls.txtItemStem;
    host_.platform().ScrollPageTo(stem, std::max(0, stem.ScrollTopPixels() + downPixels));
  } else {
    const ScrollFrame& frame = area == Area::Source ? controls.scrSource : controls.scrWork;
    ScrollFrameTo(area, {frame.scrollX() + static_cast<float>(acrossPixels) * TwipsPerPixel(),
                         frame.scrollY() + static_cast<float>(downPixels) * TwipsPerPixel()});
  }
  host_.platform().RunPosted();
}

void Candidate::ScrollToStart(Area area) { ScrollBy(area, -kFarPixels, -kFarPixels); }

void Candidate::ScrollToEnd(Area area) { ScrollBy(area, kFarPixels, kFarPixels); }

void Candidate::DragSplitter(std::string_view pane, int pixels) {
  Splitter& splitter = Controls().spSplitter;
  for (const Splitter::Bar& bar : splitter.Bars()) {
    if (bar.key != pane) continue;
    const Point corner = splitter.OriginInForm();
    const Point middle{host_.form().left() + corner.x + bar.rect.left + bar.rect.width / 2,
                       host_.form().top() + corner.y + bar.rect.top + bar.rect.height / 2};
    const float moved = static_cast<float>(pixels) * TwipsPerPixel() -
                        LengthAlong(bar, splitter.Pane(bar.key).rect);
    host_.platform().Press(middle);
    at_ = middle;
    MovePointer({middle.x + (bar.upright ? moved : 0), middle.y + (bar.upright ? 0 : moved)});
    return Release();
  }
  throw InputError(std::string(pane), "there is no bar of the splitter to drag");
}

void Candidate::ClickButton(std::string_view id) {
  if (!host_.platform().Click(Controls().brwButtons, id)) {
    throw InputError(std::string(id), "the footer shows no such button");
  }
  host_.platform().RunPosted();
}

void Candidate::CloseWindow() {
  HeadlessPlatform& platform = host_.platform();
  const std::vector<WindowHandle>& order = platform.windows().Order();
  const auto inFront = std::find_if(order.rbegin(), order.rend(), [&](WindowHandle handle) {
    return CanBeClosed(*platform.windows().Find(handle));
  });
  if (inFront == order.rend()) {
    throw InputError("close-window", "neither the calculator nor the instructions are open");
  }
  platform.CloseWindow(*inFront);
  platform.RunPosted();
}

}  // namespace zav

#include "hosting/CaseStudy.h"

#include <algorithm>
#include <utility>

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "controls/Label.h"
#include "controls/PictureBox.h"
#include "document/DataIO.h"
#include "form/GraphicsPaths.h"
#include "host/ItemOwner.h"
#include "host/clsDragDrop.h"

namespace zav {
namespace {

constexpr float kBarPixels = 27;
constexpr float kEdgePixels = 8;
constexpr float kHeadingIndentPixels = 8;
constexpr float kHeadingTopPixels = 5;
constexpr float kTextShare = 0.4F;
constexpr int kTextMarginPixels = 10;
constexpr std::int32_t kFrameColor = 0x00674E17;  // as the bars of an item

struct CaseFile {
  std::string heading;
  std::string text;
};

std::string RequireText(DataIO& document, std::string_view name) {
  document.MoveToTop();
  if (!document.FindNode(name)) {
    RaiseError(error_number::kInvalidArgument, {"The case file has no element ", name},
               "CaseStudy");
  }
  return ToText(document.GetText());
}

CaseFile ReadCase(std::span<const std::uint8_t> file) {
  DataIO document(
      [file](const std::string&) { return std::vector<std::uint8_t>(file.begin(), file.end()); });
  document.LoadXml("case file");
  return {RequireText(document, "Heading"), RequireText(document, "Text")};
}

std::span<const std::uint8_t> FirstBytes(const Variant& bytes, std::int32_t count) {
  const auto* array = std::get_if<SafeArray>(&bytes);
  if (array == nullptr) {
    RaiseError(error_number::kTypeMismatch, "The case file is no byte array", "CaseStudy");
  }
  const std::span<const std::uint8_t> all(array->Bytes());
  if (count < 0 || static_cast<std::size_t>(count) > all.size()) {
    RaiseError(
        error_number::kIndexOutOfRange,
        {"The case file has ", std::to_string(all.size()), " bytes, not ", std::to_string(count)},
        "CaseStudy");
  }
  return all.first(static_cast<std::size_t>(count));
}

struct CasePanes {
  Rect heading;
  Rect text;
  Rect questionHeading;
  Rect question;
};

// No side is negative, however small the window.
CasePanes PlacePanes(Size window, Size pixel) {
  const float bar = kBarPixels * pixel.height;
  const float edge = kEdgePixels * pixel.width;
  const float room = std::max(window.width - 3 * edge, 0.0F);
  const float height = std::max(window.height - bar - kEdgePixels * pixel.height, 0.0F);
  CasePanes panes;
  panes.text = {edge, bar, room * kTextShare, height};
  panes.question = {panes.text.Right() + edge, bar, room - panes.text.width, height};
  const auto above = [&](const Rect& pane) {
    const float indent = kHeadingIndentPixels * pixel.width;
    const float top = kHeadingTopPixels * pixel.height;
    return Rect{pane.left + indent, top, std::max(pane.width - indent, 0.0F), bar - top};
  };
  panes.heading = above(panes.text);
  panes.questionHeading = above(panes.question);
  return panes;
}

Size PixelOf(const ControlHost& host) {
  const TwipsPerPixel twips = host.twipsPerPixel();
  return {static_cast<float>(twips.x), static_cast<float>(twips.y)};
}

Rect RectOf(std::span<const Variant> values) {
  const auto number = [&](std::size_t index) { return static_cast<float>(ToInt32(values[index])); };
  return {number(0), number(1), number(2), number(3)};
}

void StoreRect(const Rect& rect, std::span<Variant> values) {
  const float numbers[] = {rect.left, rect.top, rect.width, rect.height};
  for (std::size_t index = 0; index < 4; ++index) values[index] = RoundToInt32(numbers[index]);
}

}  // namespace

struct CaseStudy::Window {
  explicit Window(ControlHost& host)
      : form(host, "frmCaseStudy"),
        frame(host, &form, "pcFrame"),
        heading(host, &frame, "lblHeading"),
        questionHeading(host, &frame, "lblQuestionHeading"),
        text(host, &frame, "brwCase") {
    frame.SetBackColor(kFrameColor);
    for (Label* label : {&heading, &questionHeading}) {
      label->SetFont({"Verdana", 10, true});
      label->SetForeColor(color::kWhite);
    }
    text.SetScrollsItself(true);
    text.SetMargin(kTextMarginPixels);
    text.SetTakesFocus(true);
  }

  void Move(const Rect& rect, const CasePanes& panes) {
    form.Move(rect);
    frame.Move({0, 0, rect.width, rect.height});
    heading.Move(panes.heading);
    questionHeading.Move(panes.questionHeading);
    text.Move(panes.text);
  }

  Form form;
  PictureBox frame;
  Label heading;
  Label questionHeading;
  HtmlPane text;
};

CaseStudy::CaseStudy(Platform platform) : host_(platform) {}

CaseStudy::~CaseStudy() = default;

Form& CaseStudy::form() { return RequireWindow().form; }

HtmlPane& CaseStudy::text() { return RequireWindow().text; }

CaseStudy::Window& CaseStudy::RequireWindow() {
  if (!window_) {
    RaiseError(error_number::kObjectNotSet, "There is no case study", "CaseStudy");
  }
  return *window_;
}

void CaseStudy::Init(std::span<const std::uint8_t> file, const ObjectRef& support,
                     const std::string& questionHeading) {
  const CaseFile content = ReadCase(file);
  const auto resolve = [&](const std::string& name) { return GetGraphicsPath(support, name); };
  std::string page = RewriteGraphicsPaths(content.text, resolve, "");
  window_ = std::make_unique<Window>(host_);
  seen_ = false;
  host_.services().SetParent(window_->form.hwnd(), parent_);
  window_->heading.SetCaption(content.heading);
  window_->questionHeading.SetCaption(questionHeading);
  window_->text.onPageLoaded = [this] { NoteSeen(); };
  window_->text.onPageEvent = [this](PageEvent& event) {
    if (event.type == "scroll") NoteSeen();
  };
  window_->text.LoadHtml(std::move(page));
}

void CaseStudy::Place(const Rect& rect) {
  RequireWindow().Move(rect, PlacePanes({rect.width, rect.height}, PixelOf(host_)));
  NoteSeen();
}

// The candidate has seen the text once its end was in sight, wherever it is scrolled later.
void CaseStudy::NoteSeen() {
  const Window& window = *window_;
  if (!window.form.visible() || !window.text.IsReady()) return;
  const float bottom = static_cast<float>(window.text.ScrollTopPixels()) +
                       window.text.height() / PixelOf(host_).height;
  seen_ = seen_ || bottom >= static_cast<float>(window.text.ContentHeightPixels());
}

MemberTable<CaseStudy> CaseStudy::Members() {
  using Arguments = std::span<Variant>;
  static constexpr MemberTable<CaseStudy>::Member kMembers[] = {
      {"DisplayInt_SetParentWnd",
       1,
       [](CaseStudy& self, Arguments arguments) {
         self.parent_ = ToInt32(arguments[0]);
         return Variant(self.parent_);
       },
       {}},
      {"InitCaseStudy",
       5,
       [](CaseStudy& self, Arguments arguments) {
         self.Init(FirstBytes(arguments[0], ToInt32(arguments[1])), ToObject(arguments[3]),
                   ToText(arguments[4]));
         return Variant(true);
       },
       {}},
      {"getCaseParent",
       0,
       [](CaseStudy& self, Arguments) { return Variant(self.RequireWindow().form.hwnd()); },
       {}},
      {"QuestionSize",
       4,
       [](CaseStudy& self, Arguments arguments) {
         self.RequireWindow();
         const Rect whole = RectOf(arguments);
         StoreRect(PlacePanes({whole.width, whole.height}, PixelOf(self.host_)).question,
                   arguments);
         return Variant();
       },
       {}},
      {"DisplayInt_ShowExternalDisplay",
       4,
       [](CaseStudy& self, Arguments arguments) {
         self.RequireWindow().form.Show();
         self.Place(RectOf(arguments));
         return Variant(true);
       },
       {}},
      {"DisplayInt_ResizeExternalDisplay",
       4,
       [](CaseStudy& self, Arguments arguments) {
         self.Place(RectOf(arguments));
         return Variant(true);
       },
       {}},
      {"DisplayInt_HideExternalDisplay",
       0,
       [](CaseStudy& self, Arguments) {
         self.RequireWindow().form.Hide();
         return Variant(true);
       },
       {}},
      {"DisplayInt_FreeExternalDisplay",
       0,
       [](CaseStudy& self, Arguments) {
         self.window_.reset();
         return Variant(true);
       },
       {}},
      {"DisplayInt_GetExternalDisplayStatus",
       3,
       [](CaseStudy& self, Arguments arguments) {
         self.RequireWindow();
         arguments[1] = self.seen_;
         return Variant();
       },
       {}},
  };
  return MemberTable<CaseStudy>(kMembers);
}

Variant CaseStudy::Invoke(std::string_view name, std::span<Variant> arguments, InvokeKind kind) {
  Variant result;
  host_.RunHostCall([&] { result = Members().Invoke(*this, name, arguments, kind); });
  return result;
}

void RegisterCaseStudy(ClassRegistry& registry, Platform platform) {
  registry.Register(kCaseStudyProgId, [platform] { return std::make_shared<CaseStudy>(platform); });
}

}  // namespace zav

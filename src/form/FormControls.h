// Every control of the item form, by its name.
//
// The table below is the form's tree: each line names a control's container. Positions on pcWork
// are pixels, everywhere else twips. Elements of control arrays are loaded as the item is built,
// except headings and callouts, which exist from the start.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "controls/ControlArray.h"
#include "controls/Form.h"
#include "controls/HtmlPane.h"
#include "controls/Label.h"
#include "controls/PictureBox.h"
#include "controls/PictureButton.h"
#include "controls/RichText.h"
#include "controls/ScrollFrame.h"
#include "controls/Splitter.h"
#include "controls/Timer.h"

namespace zav {

inline constexpr int kMostGroups = 8;
inline constexpr int kMostCallouts = 5;

// The tags of the pictures that the pages of the form name, as ImageList1 holds them, in its order.
inline constexpr std::array<std::string_view, 13> kSupportPictures = {
    "CollapsedNode",      "CalloutBackground",  "Rt_Lower_Corner", "Bottom_Tile",
    "ExpandedNode",       "Left_corner",        "Lt_Lower_Corner", "Top_Bar_tile",
    "AreaTitle_Bar_tile", "Left_vert_bar_tile", "Bottom_bar_tile", "Rt_corner",
    "Rt_vert_bar_tile"};

class FormControls {
 public:
  FormControls(ControlHost& host, Form& form);

  Form& form;

  HtmlPane brwTitle;
  HtmlPane brwLeftEdge;
  HtmlPane brwRightEdge;
  HtmlPane brwBottom;
  HtmlPane brwButtons;

  Splitter spSplitter;
  ScrollFrame scrItemStem;  // fills the pane "ItemStem"
  HtmlPane txtItemStem;
  PictureButton ssScrollItemStem;

  ScrollFrame scrSource;  // fills the pane "SourceArea"
  PictureBox pcSource;
  ControlArray<HtmlPane> txtSourceHeading;
  ControlArray<PictureButton> imgSource;
  ControlArray<RichText> txtSource;
  ControlArray<PictureButton> cmdSourceValue;
  ControlArray<PictureButton> imgSourceCover;
  PictureButton ssSourceScroll;

  PictureBox pcWorkContainer;  // fills the pane "WorkArea"
  HtmlPane txtWorkHeading;
  ScrollFrame scrWork;
  PictureBox pcWork;  // its children stand in pixels
  ControlArray<Label> lblCaption;
  ControlArray<HtmlPane> txtCallout;
  ControlArray<PictureButton> imgTarget;
  ControlArray<RichText> txtTarget;
  ControlArray<PictureButton> lblTargetCaption;
  ControlArray<PictureButton> cmdTargetAnswerValue;
  ControlArray<PictureButton> imgTargetCover;
  PictureBox pcdroptext;
  Label lblDropText;
  PictureButton ssWorkScroll;

  PictureBox pcWorkLoad;  // never shown: holds the background picture
  PictureBox picGrab;     // never shown: the closed hand
  PictureBox picHand;     // never shown: the open hand
  PictureBox pcDrag;
  PictureButton imgDrag;
  RichText txtDrag;

  Timer tmTimer;
  Timer tmFade;
  Timer tmFlash;

  // Whether every pane that shows item content has loaded its page, where the item has groupCount
  // groups. Stops at the first pane that has not.
  [[nodiscard]] bool PagesLoaded(int groupCount) const;

  // The panes of the page, in the order in which they are listed here: title, edges, buttons, stem,
  // work heading, then headings and callouts.
  [[nodiscard]] std::vector<HtmlPane*> HtmlPanes();
};

}  // namespace zav

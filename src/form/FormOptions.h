// How the owner wants the item shown.
#pragma once

namespace zav {

struct FormOptions {
  bool LorDriver = false;    // the footer offers the calculator
  bool CaseStudy = false;    // a case study shows title and edges around the item
  bool ShowAnswers = false;  // answer values are shown, and Set Answers is offered
  bool ReadOnly = false;     // the candidate may not change placements
};

}  // namespace zav

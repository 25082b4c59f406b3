// Loads the form: the support pictures on the disk, the panes and areas from the item, the pages
// around it; and takes it down again.
#pragma once

#include "form/PageLoading.h"
#include "form/Panes.h"
#include "form/SourceArea.h"
#include "form/WorkArea.h"

namespace zav {

class FormLoader {
 public:
  struct Rooms {
    PageLoading& pages;
    Panes& panes;
    SourceArea& sourceArea;
    WorkArea& workArea;
  };
  FormLoader(FormCore& form, const Rooms& rooms) : form_(form), rooms_(rooms) {}

  void Form_Load();
  // Holds the owner and makes sure that the support pictures are on the disk; for null, deletes the
  // temporary pages and lets the owner go. Reports under "SetParentClass_Set".
  void SetParentClass(ItemOwner* owner);
  // Builds the item's form. One that was built before is taken down first, and the state that it
  // showed is loaded again with the next resize.
  void moParent_RefreshDisplay();
  // Takes down what was built.
  void Unload();

 private:
  void SaveSupportPictures();
  void LoadControls();
  void BuildControls();
  void ReadDisplayMetrics();
  void SetPromptCaptions();
  void LoadStem();
  void LoadChromePages();
  [[nodiscard]] std::string HeadingOf(std::string_view section);
  [[nodiscard]] std::string ButtonsPage();

  FormCore& form_;
  Rooms rooms_;
};

}  // namespace zav

// Builds the source area from the item: one record and heading for each group, and the controls of
// every source item. Where they stand comes with the layout.
#pragma once

#include <string>

#include "form/PageLoading.h"

namespace zav {

class SourceArea {
 public:
  SourceArea(FormCore& form, PageLoading& pages) : form_(form), pages_(pages) {}

  // Reports under "LoadSourceArea"; what was built before an error stays.
  void LoadSourceArea();

 private:
  struct SourceEntry {
    clsGroup* group = nullptr;
    PictureRef picture;
    std::int16_t allowedUses = 0;
    std::string tag;
    std::string text;
  };

  void LoadGroups();
  void LoadGroup(int entry);
  void LoadHeading(HtmlPane& heading, const std::string& groupId);
  void SizeSourcePicture();
  void LoadSources();
  void LoadSource(int source);
  SourceEntry ReadEntry();
  clsGroup& GroupOfEntry();
  PictureRef ReadPicture();
  // The rewritten HTML, the plain text, or "" for a source without a child element.
  std::string ReadText();
  void LoadAnswerButton(int source, const std::string& answerValue);
  void SizeScroller();

  FormCore& form_;
  PageLoading& pages_;
  std::string pictureName_;  // of the last source that had a picture
  PictureRef lastPicture_;
};

}  // namespace zav

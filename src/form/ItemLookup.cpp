#include "form/ItemLookup.h"

#include "automation/Conversions.h"
#include "automation/Text.h"
#include "document/ItemTag.h"

namespace zav {
namespace {

// What the author wrote as an answer value need not be a number; such a source is on no target.
bool IsNumber(std::string_view text, std::int16_t number) {
  try {
    return ToInt16(std::string(text)) == number;
  } catch (const AutomationError&) {
    return false;
  }
}

template <typename Control, typename Test>
int FirstElement(const ControlArray<Control>& elements, Test&& test) {
  for (int i = 1; i <= elements.UpperBound(); ++i) {
    if (test(GetAnswerId(elements[i].tag()))) return i;
  }
  return 0;
}

}  // namespace

int FindSource(const FormCore& form, std::string_view answerValue) {
  return FirstElement(form.controls.txtSource,
                      [&](const std::string& answer) { return answer == answerValue; });
}

int FindSource(const FormCore& form, std::int16_t sourceId) {
  return FirstElement(form.controls.txtSource,
                      [&](const std::string& answer) { return IsNumber(answer, sourceId); });
}

int CountPlacements(const FormCore& form, std::string_view answerValue) {
  int count = 0;
  for (const clsTarget& target : form.tables.TargetList) {
    count += target.SourceID != 0 && IsNumber(answerValue, target.SourceID);
  }
  return count;
}

int FindTarget(const FormCore& form, std::string_view response) {
  const std::string_view letter = FirstCharacters(response, 1);
  return FirstElement(form.controls.imgTarget, [&](const std::string& answer) {
    return !letter.empty() && FirstCharacters(answer, 1) == letter;
  });
}

bool HoldsItem(const FormCore& form, int target) {
  return CharacterCount(GetAnswerId(form.controls.imgTarget[target].tag())) >= 2;
}

}  // namespace zav

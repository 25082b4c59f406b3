#include "form/ItemLookup.h"

#include <string>

#include "automation/Text.h"
#include "document/ItemTag.h"

namespace zav {

int FindSource(const FormCore& form, std::string_view answerValue) {
  return form.tables.Sources.Find(std::string(answerValue));
}

int FindSource(const FormCore& form, std::int16_t sourceId) {
  return form.tables.Sources.Find(sourceId);
}

int FindTarget(const FormCore& form, std::string_view response) {
  const auto& targets = form.tables.TargetsByLetter;
  const auto found = targets.find(std::string(FirstCharacters(response, 1)));
  return found == targets.end() ? 0 : found->second;
}

DocumentValue AuthoredValue(const FormCore& form, std::string_view list, int entry,
                            std::string_view name) {
  DataIO& document = form.Document();
  const CursorScope keep(document);
  document.SetFromRoot(true);
  document.FindNode(list);
  return document.GetChildAttribute(entry - 1, name);
}

bool HoldsItem(const FormCore& form, int target) {
  return CharacterCount(GetAnswerId(form.controls.imgTarget[target].tag())) >= 2;
}

}  // namespace zav

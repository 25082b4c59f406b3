#include "form/commands/SetAnswersCommand.h"

#include <algorithm>

#include "automation/Conversions.h"
#include "automation/Text.h"

namespace zav {
namespace {

std::string_view LastCharacter(std::string_view text) {
  return text.empty() ? text : WithoutFirstCharacters(text, CharacterCount(text) - 1);
}

// As a search for text in a list finds it: the empty text is in every list but the empty one.
bool ListContains(const std::string& list, std::string_view part) {
  return !list.empty() && Contains(list, part);
}

class SilentReset {
 public:
  explicit SilentReset(FooterCommands& commands) : commands_(commands) {
    commands_.ResetWithoutConfirm = true;
  }
  SilentReset(const SilentReset&) = delete;
  SilentReset& operator=(const SilentReset&) = delete;
  ~SilentReset() { commands_.ResetWithoutConfirm = false; }

 private:
  FooterCommands& commands_;
};

}  // namespace

void SetAnswersCommand::cmdSetAnswers_Click() {
  form_.Trap("cmdSetAnswers_Click", [&] {
    {
      const SilentReset silent(rooms_.commands);
      rooms_.commands.cmdReset_Click();
    }
    ApplyAnswers();
    rooms_.refresh.RefreshSourceArea();
    rooms_.refresh.RefreshWorkArea();
  });
}

void SetAnswersCommand::ApplyAnswers() {
  DataIO& document = form_.Document();
  const CursorScope keep(document);
  document.SetFromRoot(true);
  if (!document.FindNode("Answers")) return;
  const std::int32_t count = document.ChildCount();
  for (std::int32_t i = 0; i < count; ++i) {
    document.MoveToChild(i);
    ApplyKey(ToText(document.GetText()));
    document.MoveToParent();
  }
}

void SetAnswersCommand::ApplyKey(std::string key) {
  key.resize(std::min(key.find("AND ONLY"), key.size()));
  const std::string terms = evaluator_.GetKeyAnswers(key, "DD");
  std::string applied;
  std::size_t begin = 0;
  for (;;) {
    const std::size_t comma = terms.find(',', begin);
    ApplyTerm(terms.substr(begin, comma - begin), key, applied);
    if (comma == std::string::npos) break;
    begin = comma + 1;
  }
}

// Within one answer a letter is used once, and an alternative is left out when its last digit is
// taken already.
void SetAnswersCommand::ApplyTerm(const std::string& term, const std::string& key,
                                  std::string& applied) {
  if (ListContains(applied, FirstCharacters(term, 1))) return;
  const bool isAlternative = Contains(UpperCase(key), Concatenate({"OR ", UpperCase(term)}));
  if (ListContains(applied, LastCharacter(term)) && isAlternative) return;
  rooms_.restorer.SetAnswer(form_.Document().WithPlace(term));
  applied.append(",").append(term);
}

}  // namespace zav

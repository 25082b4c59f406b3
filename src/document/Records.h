// Conversions between the sections of the item document and the records that hosts exchange.
//
// Every text is XML unless said otherwise. A text that does not parse, or that is empty, raises the
// document's error.
#pragma once

#include <string>
#include <string_view>

#include "document/DataIO.h"

namespace zav {

// The host key record of the section Answers: an element Answers with one Answer for each child,
// its text as Expression and its Weight.
std::string ConvertKey(std::string_view keyXml);

// The host response record of the section Responses: Visited, ItemType and UserAnswers, one after
// the other, so it has no single document element. UserAnswers holds one Answer with the attribute
// Value for each response.
std::string ConvertResponse(std::string_view responsesXml);

// The section Responses of a host response record; without UserAnswers an empty one.
std::string RestoreResponses(std::string_view recordText);

// The texts of the children of the document element as a plain text, each behind a blank and
// separated by commas: " A3, B1".
std::string CommaForm(std::string_view xml);

// The state section that a host's response text stands for: a text with a section Responses, a
// host response record, or a comma list. What the text holds is not judged otherwise, so the
// result need not be well-formed.
std::string StateFromResponseText(std::string_view text);

// Adds the state section, with empty Responses, to an item that has none. Gives cursor and flag
// back.
void EnsureStateSection(DataIO& document);

}  // namespace zav

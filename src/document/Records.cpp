#include "document/Records.h"

#include <cstdint>

#include "automation/Conversions.h"
#include "automation/Text.h"

namespace zav {

namespace {

constexpr std::string_view kRecordPrefix =
    "<Visited><cmdShowQuestion/></Visited><ItemType><CT/></ItemType>";

// Puts source on the section and tells how many children it has.
std::int32_t EnterSection(DataIO& source, std::string_view xml, std::string_view section) {
  source.LoadText(xml);
  return source.FindNode(section) ? source.ChildCount() : 0;
}

std::string Enclose(std::string_view element, std::string_view content) {
  return Concatenate({"<", element, ">", content, "</", element, ">"});
}

std::string ResponsesFromList(std::string_view list) {
  std::string responses;
  for (std::size_t comma = list.find(','); comma != std::string_view::npos;
       comma = list.find(',')) {
    responses += Enclose("Response", TrimBlanks(list.substr(0, comma)));
    list.remove_prefix(comma + 1);
  }
  const std::string_view last = TrimBlanks(list);
  if (!last.empty()) responses += Enclose("Response", last);
  return Enclose("Responses", responses);
}

}  // namespace

std::string ConvertKey(std::string_view keyXml) {
  DataIO key;
  DataIO record;
  record.LoadXml("<Answers></Answers>");
  const std::int32_t count = EnterSection(key, keyXml, "Answers");
  for (std::int32_t index = 0; index < count; ++index) {
    record.AddNode("Answers", "Answer");
    record.SetAttribute("Expression", ToText(key.GetChildText(index)));
    record.SetAttribute("Weight", ToText(key.GetChildAttribute(index, "Weight")));
  }
  return record.GetXml();
}

std::string ConvertResponse(std::string_view responsesXml) {
  DataIO responses;
  DataIO record;
  record.LoadXml("<UserAnswers></UserAnswers>");
  const std::int32_t count = EnterSection(responses, responsesXml, "Responses");
  for (std::int32_t index = 0; index < count; ++index) {
    record.AddNode("UserAnswers", "Answer");
    record.SetAttribute("Value", ToText(responses.GetChildText(index)));
  }
  return std::string(kRecordPrefix) + record.GetXml();
}

std::string RestoreResponses(std::string_view recordText) {
  DataIO record;
  DataIO responses;
  responses.LoadXml("<Responses></Responses>");
  const std::int32_t count = EnterSection(record, Enclose("Root", recordText), "UserAnswers");
  for (std::int32_t index = 0; index < count; ++index) {
    responses.AddNode("Responses", "Response");
    responses.SetText(ToText(record.GetChildAttribute(index, "Value")));
  }
  return responses.GetXml();
}

std::string CommaForm(std::string_view xml) {
  DataIO section;
  section.LoadText(xml);
  std::string text;
  for (std::int32_t index = 0; index < section.ChildCount(); ++index) {
    text.append(", ").append(ToText(section.GetChildText(index)));
  }
  return text.empty() ? text : text.substr(1);
}

std::string StateFromResponseText(std::string_view text) {
  if (Contains(text, "Responses")) return Enclose("State", text);
  if (Contains(text, "<")) return Enclose("State", RestoreResponses(text));
  return Enclose("State", ResponsesFromList(text));
}

void EnsureStateSection(DataIO& document) {
  const CursorScope keep(document);
  document.SetFromRoot(true);
  if (document.FindNode("State")) return;
  if (document.AddNode("DragAndDropItem", "State")) document.AddNode("State", "Responses");
}

}  // namespace zav

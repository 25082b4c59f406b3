#include "document/DocumentValue.h"

#include "automation/AutomationError.h"
#include "automation/Conversions.h"
#include "automation/Text.h"

namespace zav {

namespace {

// Of longer values an error shows the beginning.
constexpr std::size_t kMostCharacters = 40;

std::string Quoted(std::string_view value) {
  const std::string_view shown = FirstCharacters(value, kMostCharacters);
  return Concatenate({"\"", shown, shown.size() < value.size() ? "...\" " : "\" "});
}

}  // namespace

void DocumentValue::Refuse(std::int32_t number, std::string_view problem,
                           std::string_view source) const {
  const bool missing = value_.text == nullptr;
  const std::string path = tree_->PathOf(element_);
  RaiseError(number,
             {path, path.empty() || attribute_.empty() ? "" : ": ", missing ? "missing " : "",
              attribute_, " ", missing ? std::string() : Quoted(View()), problem},
             source);
}

void DocumentValue::Use(Procedure make, std::string_view problem) const {
  try {
    make();
  } catch (const AutomationError& error) {
    const bool overflow = error.Number() == error_number::kOverflow;
    Refuse(error.Number(), overflow ? "is out of range" : problem, error.Source());
  }
}

std::int16_t ToInt16(const DocumentValue& value) {
  std::int16_t number = 0;
  value.Use([&] { number = ToInt16(value.Text()); });
  return number;
}

std::int32_t ToInt32(const DocumentValue& value) {
  std::int32_t number = 0;
  value.Use([&] { number = ToInt32(value.Text()); });
  return number;
}

float ToSingle(const DocumentValue& value) {
  float number = 0;
  value.Use([&] { number = ToSingle(value.Text()); });
  return number;
}

bool ToBoolean(const DocumentValue& value) {
  bool truth = false;
  value.Use([&] { truth = ToBoolean(value.Text()); }, "is neither True nor False");
  return truth;
}

std::int32_t ToColor(const DocumentValue& value) {
  std::int32_t color = 0;
  value.Use([&] { color = ToColor(value.Text()); }, "is no colour");
  return color;
}

std::int16_t RoundToInt16(double number, const DocumentValue& value) {
  std::int16_t rounded = 0;
  value.Use([&] { rounded = RoundToInt16(number); });
  return rounded;
}

std::int32_t RoundToInt32(double number, const DocumentValue& value) {
  std::int32_t rounded = 0;
  value.Use([&] { rounded = RoundToInt32(number); });
  return rounded;
}

}  // namespace zav

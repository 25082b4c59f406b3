#include "automation/AutomationError.h"

#include <new>
#include <utility>

#include "automation/Text.h"

namespace zav {

AutomationError::AutomationError(std::int32_t number, std::string description, std::string source)
    : number_(number), description_(std::move(description)), source_(std::move(source)) {}

void RaiseError(std::int32_t number, std::string_view description, std::string_view source) {
  throw AutomationError(number, std::string(description), std::string(source));
}

void RaiseError(std::int32_t number, std::initializer_list<std::string_view> description,
                std::string_view source) {
  RaiseError(number, Concatenate(description), source);
}

AutomationError CurrentError() {
  try {
    throw;
  } catch (const AutomationError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return {error_number::kOutOfMemory, "Out of memory"};
  } catch (const std::exception& error) {
    return {error_number::kInternal, error.what()};
  } catch (...) {
    return {error_number::kInternal, "Internal error"};
  }
}

}  // namespace zav

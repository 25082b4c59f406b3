// The one exception type of the component: what automation calls an error object.
#pragma once

#include <cstdint>
#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>

namespace zav {

// Numbers that the platform itself raises.
namespace error_number {
inline constexpr std::int32_t kInvalidArgument = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kIndexOutOfRange = 9;
inline constexpr std::int32_t kDivisionByZero = 11;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kOutOfStackSpace = 28;
inline constexpr std::int32_t kInternal = 51;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kFileAccess = 75;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kMissingElement = 340;
inline constexpr std::int32_t kElementLoaded = 360;
inline constexpr std::int32_t kInvalidPropertyValue = 380;
inline constexpr std::int32_t kCannotCreateObject = 429;
inline constexpr std::int32_t kNoSuchMember = 438;
inline constexpr std::int32_t kWrongArgumentCount = 450;
inline constexpr std::int32_t kDuplicateKey = 457;
inline constexpr std::int32_t kInvalidPicture = 481;

// Numbers of the component's own.
inline constexpr std::int32_t kComponent = static_cast<std::int32_t>(0x8004000A);
inline constexpr std::int32_t kNoExternalSupport = static_cast<std::int32_t>(0x80040000);
}  // namespace error_number

class AutomationError : public std::exception {
 public:
  AutomationError(std::int32_t number, std::string description, std::string source = {});

  [[nodiscard]] std::int32_t Number() const { return number_; }
  [[nodiscard]] const std::string& Description() const { return description_; }
  [[nodiscard]] const std::string& Source() const { return source_; }
  [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string description_;
  std::string source_;
};

// Throws one. Callers that build no exception themselves stay small.
[[noreturn]] void RaiseError(std::int32_t number, std::string_view description,
                             std::string_view source = {});
// The description is the pieces one after the other.
[[noreturn]] void RaiseError(std::int32_t number,
                             std::initializer_list<std::string_view> description,
                             std::string_view source = {});

// The current exception as an AutomationError, to be called inside a catch block: an
// AutomationError as it is, std::bad_alloc as number 7, anything else as number 51.
AutomationError CurrentError();

}  // namespace zav

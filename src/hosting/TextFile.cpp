#include "hosting/TextFile.h"

#include <span>

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "hosting/InputError.h"
#include "platform/headless/LocalFiles.h"

namespace zav {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

// An odd last byte stays where it is; it is found out later.
std::vector<std::uint8_t> SwapPairs(std::span<const std::uint8_t> bytes) {
  std::vector<std::uint8_t> swapped(bytes.begin(), bytes.end());
  for (std::size_t i = 0; i + 1 < swapped.size(); i += 2) std::swap(swapped[i], swapped[i + 1]);
  return swapped;
}

std::string Decode(std::span<const std::uint8_t> bytes) {
  std::string text(bytes.begin(), bytes.end());
  if (text.starts_with(kLittleEndianMark)) return Utf16LeToUtf8(bytes.subspan(2));
  if (text.starts_with(kBigEndianMark)) return Utf16LeToUtf8(SwapPairs(bytes.subspan(2)));
  if (text.starts_with(kUtf8Mark)) text.erase(0, kUtf8Mark.size());
  Utf8ToUtf16Le(text);  // says where it is not UTF-8
  return text;
}

}  // namespace

std::string ReadTextFile(const std::string& path) {
  std::vector<std::uint8_t> bytes;
  try {
    bytes = local_files::Read(path);
  } catch (const AutomationError&) {
    throw InputError(path, "expected a file that can be read");
  }
  try {
    return Decode(bytes);
  } catch (const AutomationError& error) {
    throw InputError(path, "expected text in UTF-8, or in UTF-16 with a byte-order mark: " +
                               error.Description());
  }
}

void WriteBinaryFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  try {
    local_files::Write(path, bytes);
  } catch (const AutomationError&) {
    throw InputError(path, "expected a file that can be written, in a folder that is there");
  }
}

void WriteTextFile(const std::string& path, std::string_view text) {
  WriteBinaryFile(path, {text.begin(), text.end()});
}

}  // namespace zav

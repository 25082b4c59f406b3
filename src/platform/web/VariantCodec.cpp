#include "platform/web/VariantCodec.h"

#include <cstring>

#include "automation/AutomationError.h"

namespace zav {
namespace {

enum Tag : std::uint8_t {
  kEmpty,
  kBoolean,
  kInt16,
  kInt32,
  kSingle,
  kDouble,
  kText,
  kNothing,
  kNative,
  kPage,
  kArray,
  kQuestion,
};

[[noreturn]] void RaiseIllFormed() {
  RaiseError(error_number::kInternal, "A value from the page is ill-formed");
}

}  // namespace

void VariantWriter::Append(const void* data, std::size_t size) {
  const auto* bytes = static_cast<const std::uint8_t*>(data);
  bytes_.insert(bytes_.end(), bytes, bytes + size);
}

void VariantWriter::WriteText(std::string_view text) {
  WriteNumber(static_cast<std::int32_t>(text.size()));
  Append(text.data(), text.size());
}

void VariantWriter::WriteObject(const ObjectRef& object) {
  if (!object) return WriteByte(kNothing);
  const std::int32_t page = objects_.PageNumberOf(*object);
  WriteByte(page != 0 ? kPage : kNative);
  WriteNumber(page != 0 ? page : objects_.KeepNative(object));
}

void VariantWriter::Write(const Variant& value) {
  if (const auto* boolean = std::get_if<bool>(&value)) {
    WriteByte(kBoolean);
    WriteByte(*boolean ? 1 : 0);
  } else if (const auto* int16 = std::get_if<std::int16_t>(&value)) {
    WriteByte(kInt16);
    WriteNumber(*int16);
  } else if (const auto* int32 = std::get_if<std::int32_t>(&value)) {
    WriteByte(kInt32);
    WriteNumber(*int32);
  } else if (const auto* single = std::get_if<float>(&value)) {
    WriteByte(kSingle);
    WriteDouble(*single);
  } else if (const auto* number = std::get_if<double>(&value)) {
    WriteByte(kDouble);
    WriteDouble(*number);
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    WriteByte(kText);
    WriteText(*text);
  } else if (const auto* object = std::get_if<ObjectRef>(&value)) {
    WriteObject(*object);
  } else if (const auto* array = std::get_if<SafeArray>(&value)) {
    WriteByte(kArray);
    WriteNumber(static_cast<std::int32_t>(array->Bytes().size()));
    Append(array->Bytes().data(), array->Bytes().size());
  } else {
    WriteByte(kEmpty);
  }
}

std::span<const std::uint8_t> VariantReader::Take(std::size_t size) {
  if (size > bytes_.size()) RaiseIllFormed();
  const auto taken = bytes_.first(size);
  bytes_ = bytes_.subspan(size);
  return taken;
}

std::int32_t VariantReader::ReadNumber() {
  std::int32_t number = 0;
  std::memcpy(&number, Take(sizeof number).data(), sizeof number);
  return number;
}

double VariantReader::ReadDouble() {
  double number = 0;
  std::memcpy(&number, Take(sizeof number).data(), sizeof number);
  return number;
}

std::string VariantReader::ReadText() {
  const auto bytes = Take(static_cast<std::uint32_t>(ReadNumber()));
  return {bytes.begin(), bytes.end()};
}

Variant VariantReader::Read() {
  switch (ReadByte()) {
    case kEmpty:
      return {};
    case kBoolean:
      return ReadByte() != 0;
    case kInt16:
      return static_cast<std::int16_t>(ReadNumber());
    case kInt32:
      return ReadNumber();
    case kSingle:
      return static_cast<float>(ReadDouble());
    case kDouble:
      return ReadDouble();
    case kText:
      return ReadText();
    case kNothing:
      return ObjectRef();
    case kNative:
      return objects_.NativeObject(ReadNumber());
    case kPage:
      return objects_.PageObject(ReadNumber());
    case kArray: {
      const auto bytes = Take(static_cast<std::uint32_t>(ReadNumber()));
      return SafeArray(std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
    }
    case kQuestion:
      return objects_.Question(ReadNumber());
    default:
      RaiseIllFormed();
  }
}

}  // namespace zav

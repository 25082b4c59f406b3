#include "platform/headless/PictureHeader.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zav {
namespace {

using Bytes = std::span<const std::uint8_t>;

// A JPEG may refine its picture again and again; each time costs as much as the whole.
constexpr int kMostScans = 64;

// Raised within this file only.
struct CutShort {};

Bytes Part(Bytes bytes, std::size_t from, std::size_t length) {
  if (from > bytes.size() || length > bytes.size() - from) throw CutShort();
  return bytes.subspan(from, length);
}

std::uint32_t LittleEndian(Bytes bytes, std::size_t at, std::size_t length) {
  std::uint32_t value = 0;
  const Bytes part = Part(bytes, at, length);
  for (std::size_t i = length; i-- > 0;) value = (value << 8U) | part[i];
  return value;
}

std::uint32_t BigEndian(Bytes bytes, std::size_t at, std::size_t length) {
  std::uint32_t value = 0;
  for (const std::uint8_t byte : Part(bytes, at, length)) value = (value << 8U) | byte;
  return value;
}

template <std::size_t Length>
bool StartsWith(Bytes bytes, const std::array<std::uint8_t, Length>& begin) {
  return bytes.size() >= Length && std::equal(begin.begin(), begin.end(), bytes.begin());
}

// Heights of bitmaps are negative where the rows go from the top downwards.
std::uint32_t Magnitude(std::uint32_t value) {
  return (value & 0x80000000U) != 0 ? ~value + 1 : value;
}

PictureHeader ReadBitmap(Bytes bytes) {
  constexpr std::uint32_t kCoreHeader = 12;
  if (LittleEndian(bytes, 14, 4) == kCoreHeader) {
    return {PictureFormat::Bitmap, LittleEndian(bytes, 18, 2), LittleEndian(bytes, 20, 2)};
  }
  return {PictureFormat::Bitmap, LittleEndian(bytes, 18, 4), Magnitude(LittleEndian(bytes, 22, 4))};
}

constexpr std::size_t kFirstPngPart = 8;

constexpr std::array<std::uint32_t, 256> MakeChecksums() {
  std::array<std::uint32_t, 256> sums{};
  for (std::uint32_t byte = 0; byte < sums.size(); ++byte) {
    std::uint32_t sum = byte;
    for (int bit = 0; bit < 8; ++bit) sum = (sum & 1U) != 0 ? 0xEDB88320U ^ (sum >> 1U) : sum >> 1U;
    sums[byte] = sum;
  }
  return sums;
}

std::uint32_t Checksum(Bytes bytes) {
  static constexpr std::array<std::uint32_t, 256> kSums = MakeChecksums();
  std::uint32_t sum = ~0U;
  for (const std::uint8_t byte : bytes) sum = kSums[(sum ^ byte) & 0xFFU] ^ (sum >> 8U);
  return ~sum;
}

PictureHeader ReadPng(Bytes bytes) {
  constexpr std::uint32_t kEnd = 0x49454E44;  // IEND
  std::size_t at = kFirstPngPart;
  while (BigEndian(bytes, at + 4, 4) != kEnd) at += 12 + std::size_t{BigEndian(bytes, at, 4)};
  return {PictureFormat::Png, BigEndian(bytes, 16, 4), BigEndian(bytes, 20, 4)};
}

std::size_t GifColors(Bytes bytes, std::size_t flagsAt) {
  const std::uint32_t flags = LittleEndian(bytes, flagsAt, 1);
  return (flags & 0x80U) == 0 ? 0 : std::size_t{3} << ((flags & 7U) + 1);
}

std::size_t BehindGifBlocks(Bytes bytes, std::size_t at) {
  while (const std::uint32_t length = LittleEndian(bytes, at, 1)) at += length + 1;
  return at + 1;
}

// The size is that of the screen; a picture that is larger does not decode.
PictureHeader ReadGif(Bytes bytes) {
  constexpr std::uint32_t kExtension = 0x21;
  constexpr std::uint32_t kPicture = 0x2C;
  std::size_t at = 13 + GifColors(bytes, 10);
  while (LittleEndian(bytes, at, 1) == kExtension) at = BehindGifBlocks(bytes, at + 2);
  if (LittleEndian(bytes, at, 1) != kPicture) throw CutShort();
  BehindGifBlocks(bytes, at + 11 + GifColors(bytes, at + 9));
  return {PictureFormat::Gif, LittleEndian(bytes, 6, 2), LittleEndian(bytes, 8, 2)};
}

// The next marker from there on that is neither a byte of the picture nor a restart.
std::size_t NextJpegMarker(Bytes bytes, std::size_t at) {
  for (;; ++at) {
    if (BigEndian(bytes, at, 1) != 0xFF) continue;
    const std::uint32_t code = BigEndian(bytes, at + 1, 1);
    if (code != 0 && code != 0xFF && (code < 0xD0 || code > 0xD7)) return at;
  }
}

bool IsJpegFrame(std::uint32_t code) {
  return code >= 0xC0 && code <= 0xCF && code != 0xC4 && code != 0xC8 && code != 0xCC;
}

PictureHeader ReadJpeg(Bytes bytes) {
  constexpr std::uint32_t kEnd = 0xD9;
  constexpr std::uint32_t kScan = 0xDA;
  PictureHeader header{.format = PictureFormat::Jpeg};
  int scans = 0;
  std::size_t at = 2;
  for (;;) {
    at = NextJpegMarker(bytes, at);
    const std::uint32_t code = BigEndian(bytes, at + 1, 1);
    if (code == kEnd) return header;
    if (code == kScan && ++scans > kMostScans) throw CutShort();
    if (IsJpegFrame(code)) {
      header.height = BigEndian(bytes, at + 5, 2);
      header.width = BigEndian(bytes, at + 7, 2);
    }
    at += 2 + std::size_t{BigEndian(bytes, at + 2, 2)};
  }
}

PictureHeader Read(Bytes bytes) {
  if (StartsWith(bytes, std::to_array<std::uint8_t>({'B', 'M'}))) return ReadBitmap(bytes);
  if (StartsWith(bytes, std::to_array<std::uint8_t>({0x89, 'P', 'N', 'G', 13, 10, 26, 10}))) {
    return ReadPng(bytes);
  }
  if (StartsWith(bytes, std::to_array<std::uint8_t>({'G', 'I', 'F', '8'}))) return ReadGif(bytes);
  if (StartsWith(bytes, std::to_array<std::uint8_t>({0xFF, 0xD8, 0xFF}))) return ReadJpeg(bytes);
  throw CutShort();
}

}  // namespace

std::optional<PictureHeader> ReadPictureHeader(std::span<const std::uint8_t> bytes) {
  try {
    return Read(bytes);
  } catch (const CutShort&) {
    return std::nullopt;
  }
}

bool PngChecksumsHold(std::span<const std::uint8_t> bytes) {
  try {
    std::size_t length = 0;
    for (std::size_t at = kFirstPngPart;; at += 12 + length) {
      length = BigEndian(bytes, at, 4);
      const Bytes part = Part(bytes, at + 4, 4 + length);
      if (Checksum(part) != BigEndian(bytes, at + 8 + length, 4)) return false;
      if (length == 0 && part[0] == 'I' && part[1] == 'E') return true;  // IEND
    }
  } catch (const CutShort&) {
    return false;
  }
}

}  // namespace zav

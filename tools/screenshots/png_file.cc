#include "png_file.h"

#include <array>
#include <fstream>
#include <string_view>

namespace tessaly {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::uint32_t Crc32(const Bytes& data, std::size_t from) {
  static const std::array<std::uint32_t, 256> table = [] {
    std::array<std::uint32_t, 256> t{};
    for (std::uint32_t n = 0; n < 256; ++n) {
      std::uint32_t c = n;
      for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
      t[n] = c;
    }
    return t;
  }();
  std::uint32_t crc = 0xFFFFFFFFu;
  for (std::size_t i = from; i < data.size(); ++i) crc = table[(crc ^ data[i]) & 0xFF] ^ (crc >> 8);
  return crc ^ 0xFFFFFFFFu;
}

void PutBigEndian(Bytes& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(value >> shift));
}

void PutChunk(Bytes& out, std::string_view type, const Bytes& body) {
  PutBigEndian(out, static_cast<std::uint32_t>(body.size()));
  const std::size_t start = out.size();
  out.insert(out.end(), type.begin(), type.end());
  out.insert(out.end(), body.begin(), body.end());
  PutBigEndian(out, Crc32(out, start));
}

// The rows, each behind a "no filter" byte, in stored deflate blocks.
Bytes ZlibStored(int width, int height, const Bytes& rgb) {
  Bytes raw;
  const std::size_t stride = static_cast<std::size_t>(width) * 3;
  for (int row = 0; row < height; ++row) {
    raw.push_back(0);
    raw.insert(raw.end(), rgb.begin() + row * stride, rgb.begin() + (row + 1) * stride);
  }
  Bytes out{0x78, 0x01};
  std::uint32_t a = 1, b = 0;
  for (const std::uint8_t byte : raw) {
    a = (a + byte) % 65521;
    b = (b + a) % 65521;
  }
  for (std::size_t at = 0; at < raw.size() || at == 0;) {
    const std::size_t length = std::min<std::size_t>(65535, raw.size() - at);
    const bool last = at + length == raw.size();
    out.push_back(last ? 1 : 0);
    out.push_back(static_cast<std::uint8_t>(length));
    out.push_back(static_cast<std::uint8_t>(length >> 8));
    out.push_back(static_cast<std::uint8_t>(~length));
    out.push_back(static_cast<std::uint8_t>(~length >> 8));
    out.insert(out.end(), raw.begin() + at, raw.begin() + at + length);
    at += length;
    if (last) break;
  }
  PutBigEndian(out, (b << 16) | a);
  return out;
}

}  // namespace

bool WritePng(const std::filesystem::path& file, int width, int height, const Bytes& rgb) {
  if (width <= 0 || height <= 0 || rgb.size() != static_cast<std::size_t>(width) * height * 3) return false;
  Bytes png{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  Bytes header;
  PutBigEndian(header, static_cast<std::uint32_t>(width));
  PutBigEndian(header, static_cast<std::uint32_t>(height));
  header.insert(header.end(), {8, 2, 0, 0, 0});  // 8 bits, RGB, deflate, no filter, no interlace
  PutChunk(png, "IHDR", header);
  PutChunk(png, "IDAT", ZlibStored(width, height, rgb));
  PutChunk(png, "IEND", {});
  std::ofstream out(file, std::ios::binary);
  out.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
  return static_cast<bool>(out);
}

}  // namespace tessaly

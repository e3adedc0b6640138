// Pictures to files: BMP (24-bit, bottom-up, rows padded to four bytes) and PNG (8-bit RGB,
// one zlib stream, filter 0 on every row). Each file is written whole to "<path>.tmp" and
// renamed over the path.
#include <zlib.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/atomic_file.h"
#include "scope/waterfall.h"

namespace zel::scope {
namespace {

using Bytes = std::vector<std::uint8_t>;

void putLe(Bytes& out, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void putBe(Bytes& out, std::uint32_t value) {
  for (int i = 3; i >= 0; --i) out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

std::uint32_t getLe(const Bytes& in, std::size_t at, int size) {
  std::uint32_t value = 0;
  for (int i = size - 1; i >= 0; --i) value = (value << 8) | in[at + i];
  return value;
}

bool writeWhole(const Bytes& bytes, const std::string& path) {
  std::error_code ec;
  const std::filesystem::path target(path);
  if (target.has_parent_path()) std::filesystem::create_directories(target.parent_path(), ec);
  return writeFileAtomically(
             path, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()))
      .ok;
}

std::size_t bmpStride(int width) {
  return (static_cast<std::size_t>(width) * 3 + 3) & ~std::size_t{3};
}

void pngChunk(Bytes& out, const char* type, const Bytes& data) {
  putBe(out, static_cast<std::uint32_t>(data.size()));
  const std::size_t start = out.size();
  out.insert(out.end(), type, type + 4);
  out.insert(out.end(), data.begin(), data.end());
  const uLong crc =
      crc32(crc32(0L, Z_NULL, 0), out.data() + start, static_cast<uInt>(out.size() - start));
  putBe(out, static_cast<std::uint32_t>(crc));
}

}  // namespace

bool writeBmp(const Raster& picture, const std::string& path) {
  if (picture.width <= 0 || picture.height <= 0) return false;
  const std::size_t stride = bmpStride(picture.width);
  const std::size_t image = stride * picture.height;
  constexpr std::uint32_t kHeaderBytes = 14 + 40;
  constexpr std::uint32_t kPixelsPerMetre = 2835;  // 72 dots an inch
  Bytes out;
  out.reserve(kHeaderBytes + image);
  out.push_back('B');
  out.push_back('M');
  putLe(out, static_cast<std::uint32_t>(kHeaderBytes + image), 4);
  putLe(out, 0, 4);  // reserved
  putLe(out, kHeaderBytes, 4);
  putLe(out, 40, 4);
  putLe(out, static_cast<std::uint32_t>(picture.width), 4);
  putLe(out, static_cast<std::uint32_t>(picture.height), 4);  // positive: bottom row first
  putLe(out, 1, 2);                                           // planes
  putLe(out, 24, 2);                                          // bits a pixel
  putLe(out, 0, 4);                                           // no compression
  putLe(out, static_cast<std::uint32_t>(image), 4);
  putLe(out, kPixelsPerMetre, 4);
  putLe(out, kPixelsPerMetre, 4);
  putLe(out, 0, 4);
  putLe(out, 0, 4);
  for (int y = picture.height - 1; y >= 0; --y) {
    const std::size_t rowStart = out.size();
    for (int x = 0; x < picture.width; ++x) {
      const Rgb& p = picture.at(x, y);
      out.push_back(p.b);
      out.push_back(p.g);
      out.push_back(p.r);
    }
    out.resize(rowStart + stride, 0);
  }
  return writeWhole(out, path);
}

bool readBmp(const std::string& path, Raster& picture) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  const Bytes bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (bytes.size() < 54 || bytes[0] != 'B' || bytes[1] != 'M') return false;
  const std::uint32_t offset = getLe(bytes, 10, 4);
  const std::uint32_t infoSize = getLe(bytes, 14, 4);
  const auto width = static_cast<std::int32_t>(getLe(bytes, 18, 4));
  const auto rawHeight = static_cast<std::int32_t>(getLe(bytes, 22, 4));
  if (infoSize < 40 || getLe(bytes, 28, 2) != 24 || getLe(bytes, 30, 4) != 0) return false;
  constexpr std::int32_t kLargest = 1 << 20;
  if (width <= 0 || width > kLargest || rawHeight == 0 || rawHeight > kLargest ||
      rawHeight < -kLargest) {
    return false;
  }
  const bool bottomUp = rawHeight > 0;
  const int height = bottomUp ? rawHeight : -rawHeight;
  const std::size_t stride = bmpStride(width);
  if (offset > bytes.size() ||
      (bytes.size() - offset) / stride < static_cast<std::size_t>(height)) {
    return false;
  }
  Raster read(width, height);
  for (int line = 0; line < height; ++line) {
    const std::uint8_t* src = bytes.data() + offset + stride * line;
    const int y = bottomUp ? height - 1 - line : line;
    for (int x = 0; x < width; ++x) read.at(x, y) = {src[3 * x + 2], src[3 * x + 1], src[3 * x]};
  }
  picture = std::move(read);
  return true;
}

bool writePng(const Raster& picture, const std::string& path) {
  if (picture.width <= 0 || picture.height <= 0) return false;
  const std::size_t rowBytes = 1 + static_cast<std::size_t>(picture.width) * 3;
  Bytes raw;
  raw.reserve(rowBytes * picture.height);
  for (int y = 0; y < picture.height; ++y) {
    raw.push_back(0);  // filter: none
    for (int x = 0; x < picture.width; ++x) {
      const Rgb& p = picture.at(x, y);
      raw.push_back(p.r);
      raw.push_back(p.g);
      raw.push_back(p.b);
    }
  }
  uLongf packedSize = compressBound(static_cast<uLong>(raw.size()));
  Bytes packed(packedSize);
  if (compress2(packed.data(), &packedSize, raw.data(), static_cast<uLong>(raw.size()),
                Z_DEFAULT_COMPRESSION) != Z_OK) {
    return false;
  }
  packed.resize(packedSize);

  static constexpr std::array<std::uint8_t, 8> kSignature{0x89, 'P',  'N',  'G',
                                                          '\r', '\n', 0x1A, '\n'};
  Bytes out(kSignature.begin(), kSignature.end());
  Bytes header;
  putBe(header, static_cast<std::uint32_t>(picture.width));
  putBe(header, static_cast<std::uint32_t>(picture.height));
  header.push_back(8);  // bits a sample
  header.push_back(2);  // colour type: RGB
  header.push_back(0);  // compression: deflate
  header.push_back(0);  // filter method
  header.push_back(0);  // no interlace
  pngChunk(out, "IHDR", header);
  pngChunk(out, "IDAT", packed);
  pngChunk(out, "IEND", {});
  return writeWhole(out, path);
}

}  // namespace zel::scope

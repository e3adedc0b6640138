#include "radioref/xml_text.h"

#include "core/text.h"

#include <algorithm>
#include <cstdint>

#include "radioref/soap_envelope.h"

namespace zel::radioref {

namespace {

bool isContinuation(unsigned char c) {
  return (c & 0xC0) == 0x80;
}

// The length of the well-formed UTF-8 sequence at `i`, with its code point; 0 when the bytes
// there are no such sequence (overlong forms and surrogates included).
std::size_t utf8Sequence(std::string_view s, std::size_t i, std::uint32_t& cp) {
  const auto at = [&](std::size_t k) { return static_cast<unsigned char>(s[k]); };
  const unsigned char b = at(i);
  const std::size_t left = s.size() - i;
  if (b >= 0xC2 && b <= 0xDF && left >= 2 && isContinuation(at(i + 1))) {
    cp = ((b & 0x1Fu) << 6) | (at(i + 1) & 0x3Fu);
    return 2;
  }
  if (b >= 0xE0 && b <= 0xEF && left >= 3 && isContinuation(at(i + 1)) &&
      isContinuation(at(i + 2))) {
    if (b == 0xE0 && at(i + 1) < 0xA0) return 0;
    if (b == 0xED && at(i + 1) >= 0xA0) return 0;
    cp = ((b & 0x0Fu) << 12) | ((at(i + 1) & 0x3Fu) << 6) | (at(i + 2) & 0x3Fu);
    return 3;
  }
  if (b >= 0xF0 && b <= 0xF4 && left >= 4 && isContinuation(at(i + 1)) &&
      isContinuation(at(i + 2)) && isContinuation(at(i + 3))) {
    if (b == 0xF0 && at(i + 1) < 0x90) return 0;
    if (b == 0xF4 && at(i + 1) >= 0x90) return 0;
    cp = 0x10000;  // beyond Latin-1 whatever it is
    return 4;
  }
  return 0;
}

bool isAscii(std::string_view s) {
  return std::none_of(s.begin(), s.end(), [](char c) { return (c & 0x80) != 0; });
}

std::string lowerAscii(std::string_view s) {
  std::string out(s);
  for (char& c : out) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return out;
}

bool isLatin1Name(std::string_view name) {
  static constexpr std::string_view kNames[] = {
      "iso-8859-1", "iso8859-1", "iso_8859-1", "latin1",       "latin-1", "l1",
      "us-ascii",   "ascii",     "cp1252",     "windows-1252", "cp819"};
  const std::string lower = lowerAscii(name);
  return std::find(std::begin(kNames), std::end(kNames), lower) != std::end(kNames);
}

}  // namespace

std::string_view declaredEncoding(std::string_view text) {
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  if (text.substr(0, 5) != "<?xml") return {};
  const std::size_t close = text.find("?>");
  if (close == std::string_view::npos) return {};
  const std::string_view decl = text.substr(0, close);
  std::size_t at = decl.find("encoding");
  if (at == std::string_view::npos) return {};
  at += 8;
  while (at < decl.size() && (decl[at] == ' ' || decl[at] == '\t' || decl[at] == '\r' ||
                              decl[at] == '\n' || decl[at] == '=')) {
    ++at;
  }
  if (at >= decl.size() || (decl[at] != '"' && decl[at] != '\'')) return {};
  const char quote = decl[at];
  const std::size_t end = decl.find(quote, at + 1);
  if (end == std::string_view::npos) return {};
  return decl.substr(at + 1, end - at - 1);
}

void lineAndPosition(std::string_view utf8, std::size_t offset, long& line, long& position) {
  offset = std::min(offset, utf8.size());
  line = 1;
  std::size_t lineStart = 0;
  for (std::size_t i = 0; i < offset; ++i) {
    if (utf8[i] == '\n') {
      ++line;
      lineStart = i + 1;
    }
  }
  position = 1;
  for (std::size_t i = lineStart; i < offset; ++i) {
    if (!isContinuation(static_cast<unsigned char>(utf8[i]))) ++position;
  }
}

XmlLoadResult loadXml(pugi::xml_document& doc, std::string_view text, std::string_view encoding) {
  if (encoding.empty()) encoding = declaredEncoding(text);
  pugi::xml_encoding how = pugi::encoding_utf8;
  const bool latin1 = isLatin1Name(encoding);
  if (latin1) {
    how = pugi::encoding_latin1;
  } else if (!encoding.empty() && lowerAscii(encoding) != "utf-8" &&
             lowerAscii(encoding) != "utf8") {
    how = pugi::encoding_auto;
  } else if (text.size() >= 2 &&
             (static_cast<unsigned char>(text[0]) >= 0xFE || text[0] == '\0' || text[1] == '\0')) {
    how = pugi::encoding_auto;  // a UTF-16 or UTF-32 byte order
  }
  XmlLoadResult result;
  const pugi::xml_parse_result parsed =
      doc.load_buffer(text.data(), text.size(), pugi::parse_default, how);
  if (parsed) {
    result.ok = true;
    return result;
  }
  result.reason = parsed.description();
  result.code = static_cast<int>(parsed.status);
  // The parser's offset counts in the UTF-8 text it read, which for Latin-1 is a conversion.
  const std::size_t offset = parsed.offset < 0 ? 0 : static_cast<std::size_t>(parsed.offset);
  if (latin1 && !isAscii(text)) {
    lineAndPosition(latin1ToUtf8(text), offset, result.line, result.position);
  } else {
    lineAndPosition(text, offset, result.line, result.position);
  }
  return result;
}

void appendLatin1(std::string& out, std::string_view utf8) {
  if (isAscii(utf8)) {
    out.append(utf8);
    return;
  }
  for (std::size_t i = 0; i < utf8.size();) {
    const unsigned char b = static_cast<unsigned char>(utf8[i]);
    if (b < 0x80) {
      out.push_back(static_cast<char>(b));
      ++i;
      continue;
    }
    std::uint32_t cp = 0;
    const std::size_t length = utf8Sequence(utf8, i, cp);
    if (length == 0) {
      out.push_back(static_cast<char>(b));
      ++i;
      continue;
    }
    out.push_back(cp <= 0xFF ? static_cast<char>(cp) : '?');
    i += length;
  }
}

std::string utf8ToLatin1(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  appendLatin1(out, text);
  return out;
}

std::string latin1ToUtf8(std::string_view text) {
  if (isAscii(text)) return std::string(text);
  std::string out;
  out.reserve(text.size() + text.size() / 4);
  for (const char c : text) {
    const unsigned char b = static_cast<unsigned char>(c);
    if (b < 0x80) {
      out.push_back(c);
    } else {
      out.push_back(static_cast<char>(0xC0 | (b >> 6)));
      out.push_back(static_cast<char>(0x80 | (b & 0x3F)));
    }
  }
  return out;
}

std::string xmlEscape(std::string_view text) {
  // The markup escape of the whole suite, and the apostrophe too: the text may end up in an
  // attribute quoted either way.
  return replaceAll(markupEscape(text), "'", "&apos;");
}

}  // namespace zel::radioref

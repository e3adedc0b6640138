#pragma once
// Loading outside XML text into a pugixml document, in the encoding its prolog names, with a
// failure told as the parser's reason and a 1-based line and position. Used by the envelope
// and by the service description reader; not part of the library's interface.
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace zel::radioref {

struct XmlLoadResult {
  bool ok = false;
  std::string reason;
  int code = 0;  // the parser's status number
  long line = 0;
  long position = 0;
};

// The encoding named in the text's XML declaration ("" when there is none).
std::string_view declaredEncoding(std::string_view text);

// Loads `text` into `doc` with pugixml's default parse. `encoding` empty honours the prolog
// (UTF-8 when it names none); "ISO-8859-1", "latin1", "US-ASCII" and "windows-1252" are read
// as Latin-1, "UTF-8" as UTF-8. The document's texts are UTF-8 either way.
XmlLoadResult loadXml(pugi::xml_document& doc, std::string_view text, std::string_view encoding);

// Line and position (1-based; the position counts characters) of a byte offset into UTF-8 text.
void lineAndPosition(std::string_view utf8, std::size_t offset, long& line, long& position);

// Appends UTF-8 text as Latin-1 ("?" for what Latin-1 lacks, bytes of bad UTF-8 kept).
void appendLatin1(std::string& out, std::string_view utf8);

}  // namespace zel::radioref

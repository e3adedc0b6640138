// Shared pieces of the favorites file tests: a scratch folder, a fresh document with its
// page folder, and a short way to write HPD lines ("|" stands for a TAB).
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "core/memory_ports.h"
#include "core/page_files.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "test_folder.h"

namespace zel::formats::test {

using TempDir = TestFolder;

// A document as a session holds it, with its own page folder.
struct Scratch {
  TempDir dir;
  Document doc;
  PageFiles pages{dir.file("temp")};
  RecordingFeedback feedback;

  HpdReadResult read(std::string_view content, HpdReadOptions options = defaultRead());
  HpdReadResult readFile(const std::string& path, HpdReadOptions options = defaultRead());
  std::string render(HpdWriteOptions options = defaultWrite());
  std::string page(int system, int department) const;  // the page file's lines, LF joined

  static HpdReadOptions defaultRead() {
    HpdReadOptions o;
    o.fileIndex = 1;
    return o;
  }
  static HpdWriteOptions defaultWrite() {
    HpdWriteOptions o;
    o.fileIndex = 1;
    return o;
  }
};

// One HPD line from a readable form: "|" becomes a TAB.
std::string tabs(std::string_view line);
// A level 3 file: the header and the lines, CR LF ended.
std::string hpdFile(std::initializer_list<std::string_view> lines);
// The lines of a rendered file without their CR LF, header included.
std::vector<std::string> fileLines(std::string_view text);
// The first line of a rendered file that begins with `word`, TABs shown as "|".
std::string lineOf(std::string_view text, std::string_view word, int nth = 0);

std::string slurp(const std::string& path);
void spit(const std::string& path, std::string_view content);

}  // namespace zel::formats::test

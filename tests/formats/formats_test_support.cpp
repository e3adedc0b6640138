#include "formats_test_support.h"

#include <fstream>

#include "core/keys.h"
#include "core/text.h"
#include "formats/text_file.h"

namespace zel::formats::test {

HpdReadResult Scratch::read(std::string_view content, HpdReadOptions options) {
  return readHpdText(doc, pages, content, dir.file("list.hpd"), options, feedback);
}

HpdReadResult Scratch::readFile(const std::string& path, HpdReadOptions options) {
  return readHpd(doc, pages, path, options, feedback);
}

std::string Scratch::render(HpdWriteOptions options) {
  HpdWriteResult result;
  return renderHpd(doc, pages, options, feedback, result);
}

std::string Scratch::page(int system, int department) const {
  return join(pages.load(keys::department(system, department)), '\n');
}

std::string tabs(std::string_view line) {
  return replaceAll(line, "|", "\t");
}

std::string hpdFile(std::initializer_list<std::string_view> lines) {
  std::string out = "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n";
  for (std::string_view l : lines) out += tabs(l) + "\r\n";
  return out;
}

std::vector<std::string> fileLines(std::string_view text) {
  std::vector<std::string> out;
  for (std::string_view l : splitLines(text)) out.emplace_back(l);
  return out;
}

std::string lineOf(std::string_view text, std::string_view word, int nth) {
  for (const std::string& l : fileLines(text)) {
    if (l.rfind(word, 0) == 0 && (l.size() == word.size() || l[word.size()] == '\t')) {
      if (nth-- > 0) continue;
      return replaceAll(l, "\t", "|");
    }
  }
  return "<none>";
}

std::string slurp(const std::string& path) {
  return readWholeFile(path).value_or("");
}

void spit(const std::string& path, std::string_view content) {
  std::ofstream out(path, std::ios::binary);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
}

}  // namespace zel::formats::test

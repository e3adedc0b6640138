#include "formats/state_file_guard.h"

#include <filesystem>
#include <optional>

#include "core/text.h"
#include "formats/hpd_save_diff.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"
#include "formats/text_file.h"

namespace zel::formats {

namespace fs = std::filesystem;

namespace {

bool inDatabaseFolder(const std::string& path) {
  for (const fs::path& part : fs::path(path).parent_path()) {
    if (iequals(part.string(), "HPDB")) return true;
  }
  return false;
}

// A database Id: the field after the type word holds a name, "=" and a number.
bool hasDatabaseId(std::string_view line) {
  const std::size_t tab = line.find('\t');
  if (tab == std::string_view::npos) return false;
  std::string_view id = line.substr(tab + 1);
  id = id.substr(0, id.find('\t'));
  const std::size_t eq = id.find('=');
  return eq != std::string_view::npos && eq + 1 < id.size() && id.substr(eq + 1) != "0";
}

bool stateFileText(std::string_view text) {
  bool area = false;
  bool ids = false;
  forEachLine(text, [&](std::string_view line) {
    if (startsWith(line, "AreaState")) area = true;
    if (!ids && (startsWith(line, "C-Freq\t") || startsWith(line, "TGID\t") ||
                 startsWith(line, "Conventional\t") || startsWith(line, "Trunk\t"))) {
      ids = hasDatabaseId(line);
    }
  });
  return area && ids;
}

}  // namespace

bool looksLikeStateFile(const std::string& path) {
  if (inDatabaseFolder(path)) return true;
  const std::optional<std::string> text = readWholeFile(path);
  return text && stateFileText(*text);
}

SaveQuestion stateFileSaveQuestion(Session& session, int fileRow, const std::string& path,
                                   bool offerSaveAs) {
  SaveQuestion q;
  if (!looksLikeStateFile(path)) return q;
  q.needed = true;
  const std::string name = fs::path(path).filename().string();
  q.text = name + " is a file of the scanner's database, not a favorites list.";
  if (const std::optional<std::string> before = readWholeFile(path)) {
    HpdWriteOptions options;
    options.fileIndex = fileRow;
    options.serviceFallback = session.settings().option(7);
    HpdWriteResult rendered;
    const std::string after = renderHpd(session.document(), PageFileRows(session.pages()), options,
                                        session.feedback(), rendered);
    const SaveDiff diff = diffSave(*before, after);
    q.text += " Saving over it changes " + std::to_string(diff.linesChanged) + " of its " +
              std::to_string(diff.linesBefore) + " lines:\n" + summarizeSaveDiff(diff, 8);
  } else {
    q.text += "\n";
  }
  q.text += offerSaveAs ? "\nSave over it anyway (Yes), save under another name (No), or leave "
                          "it as it is (Cancel)?"
                        : "\nSave over it anyway?";
  return q;
}

}  // namespace zel::formats

// zel csv: the CSV mapper and the exports without a window.
//   zel csv import IN --out FILE.hpd [--system NAME] [--department NAME] [--map COL=MEANING]...
//   zel csv export FILE.hpd OUT.csv [--zel]
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli/command_registry.h"
#include "core/document.h"
#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/new_commands.h"
#include "core/page_files.h"
#include "core/record_line.h"
#include "core/text.h"
#include "exchange/csv_export.h"
#include "exchange/csv_mapper.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "grid/column_schemas.h"

namespace {

namespace fs = std::filesystem;
using namespace zel;

class Scratch {
 public:
  Scratch() {
    std::string pattern = (fs::temp_directory_path() / "zel-csv-XXXXXX").string();
    if (char* made = mkdtemp(pattern.data())) folder_ = made;
    if (folder_.empty()) throw cli::UserError{"Cannot make a temporary folder for the pages."};
    pages = std::make_unique<PageFiles>(folder_);
  }
  ~Scratch() {
    std::error_code ec;
    fs::remove_all(folder_, ec);
  }
  std::unique_ptr<PageFiles> pages;

 private:
  std::string folder_;
};

void writeWhole(const std::string& path, const std::string& text) {
  std::string temp = path + ".part";
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    if (!out || !(out << text) || !out.flush()) {
      std::error_code ec;
      fs::remove(temp, ec);
      throw cli::UserError{"Cannot write " + path + "."};
    }
  }
  std::error_code ec;
  fs::rename(temp, path, ec);
  if (ec) throw cli::UserError{"Cannot write " + path + "."};
}

}  // namespace

ZEL_COMMAND(46) {
  (void)context;
  auto* csv = app.add_subcommand("csv", "Delimited text in and out: import, export");
  csv->require_subcommand(1);

  struct ImportArgs {
    std::string in, out, system = "CSV Import", department = "CSV Import";
    std::vector<std::string> maps;
  };
  auto im = std::make_shared<ImportArgs>();
  auto* importCmd = csv->add_subcommand("import", "A delimited text file into a favorites file");
  importCmd->add_option("IN", im->in, "The text file")->required();
  importCmd->add_option("--out", im->out, "The .hpd file to write")->required();
  importCmd->add_option("--system", im->system, "Name of the conventional system");
  importCmd->add_option("--department", im->department, "Name of its department");
  importCmd->add_option("--map", im->maps,
                        "COLUMN=MEANING, e.g. 1=\"Frequency (MHz)\" (repeatable; no --map: "
                        "the columns are detected)");
  importCmd->callback([im] {
    exchange::CsvMapper mapper;
    RecordingFeedback said;
    if (!mapper.loadFile(im->in, &said)) throw cli::UserError{std::string(exchange::kTooLarge)};
    if (im->maps.empty()) mapper.autoDetect();
    for (const std::string& map : im->maps) {
      std::size_t eq = map.find('=');
      int col = eq == std::string::npos ? 0 : static_cast<int>(leadingInteger(map.substr(0, eq)));
      std::string meaning = eq == std::string::npos ? "" : map.substr(eq + 1);
      const auto& meanings = exchange::columnMeanings();
      if (col < 1 || col > mapper.columnCount() ||
          std::find(meanings.begin(), meanings.end(), meaning) == meanings.end())
        throw cli::UserError{"\"" + map + "\" names no column or no meaning of the mapper."};
      mapper.setMeaning(col, meaning);
    }
    Scratch scratch;
    Document doc;
    NewNodeResult sys = newSystem(doc, systemTemplates().front().command, said, 0);
    if (!sys.ok) throw cli::UserError{"Cannot make the system."};
    int number = keys::systemOf(sys.key);
    NodeId sysNode = doc.data.find(sys.key);
    doc.data.setText(sysNode,
                     record::withField(doc.data.text(sysNode), 4, record::sanitize(im->system)));
    doc.systems.set(number, 1, im->system);
    std::string deptKey;
    for (NodeId child : doc.data.childList(sysNode)) {
      if (startsWith(doc.data.key(child), "GRP-")) deptKey = doc.data.key(child);
    }
    if (NodeId dept = doc.data.find(deptKey)) {
      doc.data.setText(dept,
                       record::withField(doc.data.text(dept), 4, record::sanitize(im->department)));
    }
    const HeadingList& headings = schemaHeadings(Schema::Channel, doc.family);
    int cols = headingCount(headings) + 1;
    GridPage grid(2, cols);
    for (int c = 1; c < cols; ++c) grid.setTextMatrix(0, c, headings[c]);
    cell::CommitEnv env;
    int added = exchange::pasteFrequencies(grid, mapper.clipboardText(), env);
    if (added == 0) throw cli::UserError{"No row of " + im->in + " has a frequency to import."};
    std::vector<std::string> lines;
    for (int r = 1; r < grid.rows(); ++r) {
      if (grid.textMatrix(r, 1).empty()) continue;
      std::string line = std::to_string(lines.size() + 1);
      for (int c = 1; c < cols; ++c) line += "," + grid.textMatrix(r, c);
      lines.push_back(line);
    }
    if (!scratch.pages->save(deptKey, lines)) throw cli::UserError{"Cannot write the page."};
    formats::HpdWriteOptions options;
    auto written = formats::writeHpd(doc, *scratch.pages, im->out, options, said);
    if (!written.ok()) throw cli::UserError{written.message};
    std::cout << lines.size() << " channels written to " << written.path << "\n";
  });

  struct ExportArgs {
    std::string in, out;
    bool zel = false;
  };
  auto ex = std::make_shared<ExportArgs>();
  auto* exportCmd = csv->add_subcommand("export", "A favorites file as one line a channel");
  exportCmd->add_option("FILE", ex->in, "The .hpd file")->required();
  auto* exportOut = exportCmd->add_option("OUT", ex->out, "The text file to write");
  exportCmd->add_option("-o,--out", ex->out, "The text file to write (instead of OUT)")
      ->excludes(exportOut);
  exportCmd->add_flag("--zel", ex->zel, "The \"[ZEL CSV FILE]\" form, one line a system");
  exportCmd->callback([ex] {
    if (ex->out.empty()) throw cli::UserError{"Name the file to write with OUT or -o.", 2};
    Scratch scratch;
    Document doc;
    RecordingFeedback quiet;
    formats::HpdReadOptions options;
    options.fileIndex = 1;
    auto read = formats::readHpd(doc, *scratch.pages, ex->in, options, quiet);
    if (!read.ok()) throw cli::UserError{read.message};
    std::string text;
    if (ex->zel) {
      // Each system read from the file counts as selected; its record gives the fields.
      std::vector<exchange::FavoritesRow> rows;
      for (int number : read.systems) {
        NodeId node = doc.data.find(keys::system(number));
        if (node) rows.push_back({"1", doc.data.text(node)});
      }
      text = exchange::zelCsvExport(rows);
    } else {
      text = exchange::channelCsvExport(*scratch.pages, doc.family);
    }
    writeWhole(ex->out, text);
    std::cout << "Wrote " << ex->out << "\n";
  });
}

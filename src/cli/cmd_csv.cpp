// zel csv: the CSV mapper and the exports without a window.
//   zel csv import IN -o FILE.hpd [--system NAME] [--department NAME] [--map COL=MEANING]...
//                  [--region us|eu|au] [--airband] [--decimal-comma]
//   zel csv export FILE.hpd OUT.csv [--zel]
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "cli/command_registry.h"
#include "cli/rr_listing.h"
#include "core/atomic_file.h"
#include "core/document.h"
#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/new_commands.h"
#include "core/page_files.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/settings.h"
#include "exchange/csv_export.h"
#include "exchange/csv_import.h"
#include "exchange/csv_mapper.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "grid/cell_commit_frequency.h"
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

// The file is replaced whole through the suite's atomic writer, or left as it was.
void writeWhole(const std::string& path, const std::string& text) {
  const WriteStatus written = writeFileAtomically(path, text, KeepBackup::OncePerSession);
  if (!written.ok) throw cli::UserError{written.message};
}

}  // namespace

ZEL_COMMAND(46) {
  auto* csv = app.add_subcommand("csv", "Delimited text in and out: import, export");
  csv->require_subcommand(1);

  struct ImportArgs {
    std::string in, out, system = "CSV Import", department = "CSV Import";
    std::vector<std::string> maps;
    std::string region;
    bool airband = false;
    bool decimalComma = false;
    bool json = false;
  };
  auto im = std::make_shared<ImportArgs>();
  auto* importCmd = csv->add_subcommand("import", "A delimited text file into a favorites file");
  importCmd->add_option("IN", im->in, "The text file")->required();
  importCmd->add_option("-o,--out", im->out, "The .hpd file to write")->required();
  importCmd->add_option("--system", im->system, "Name of the system for rows that name none");
  importCmd->add_option("--department", im->department,
                        "Name of the department for rows that name none");
  importCmd->add_option("--map", im->maps,
                        "COLUMN=MEANING, e.g. 1=\"Frequency (MHz)\" (repeatable; no --map: "
                        "the columns are detected)");
  importCmd->add_option("--region", im->region,
                        "Scanner region: us, eu or au (default: the settings' region)")
      ->check(CLI::IsMember({"us", "eu", "au"}, CLI::ignore_case));
  importCmd->add_flag("--airband", im->airband,
                      "Round VHF Airband to 8.33 / 12.5 / 25 kHz steps (also on in the settings)");
  importCmd->add_flag("--decimal-comma", im->decimalComma,
                      "Read as on a system whose decimal sign is a comma");
  importCmd->add_flag("--json", im->json, "Print what was written as a JSON object");
  importCmd->callback([im, &context] {
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
    exchange::CsvImportOptions options;
    options.system = im->system;
    options.department = im->department;
    // The settings' region and airband step, as the window commits cells; the flags win.
    const Settings settings(context.settings());
    options.rules = cell::rulesFromSettings(
        settings, doc.family, im->decimalComma ? DecimalMark::comma() : DecimalMark::system());
    const std::string region = toLower(im->region);
    if (region == "us") options.rules.region = cell::Region::US;
    if (region == "eu") options.rules.region = cell::Region::Europe;
    if (region == "au") options.rules.region = cell::Region::Australia;
    if (im->airband) options.rules.airband = true;
    exchange::CsvImportResult result = exchange::importCsv(mapper, doc, *scratch.pages, options);
    if (!result.ok) {
      std::string why = "Nothing imported from " + im->in + ": " + result.message;
      if (result.talkgroupsSkipped > 0) {
        why += " (" + std::to_string(result.talkgroupsSkipped) +
               " talkgroup rows skipped: an import makes conventional systems)";
      }
      throw cli::UserError{why + "."};
    }
    formats::HpdWriteOptions write;
    auto written = formats::writeHpd(doc, *scratch.pages, im->out, write, said);
    if (!written.ok()) throw cli::UserError{written.message};
    if (im->json) {
      cli::Listing l;
      l.field("file", written.path)
          .field("channels", result.channels)
          .field("systems", result.systems)
          .field("departments", result.departments)
          .field("talkgroupsSkipped", result.talkgroupsSkipped);
      auto& continued = l.list("continued", "Continued in");
      for (const std::string& name : result.continued) continued.emplace_back().field("department", name);
      cli::printJson(std::cout, l);
      return;
    }
    for (const std::string& name : result.continued) {
      std::cout << "A department holds at most 9999 rows: continued in \"" << name << "\"\n";
    }
    if (result.talkgroupsSkipped > 0) {
      std::cout << result.talkgroupsSkipped
                << " talkgroup rows skipped: an import makes conventional systems\n";
    }
    std::cout << result.channels << " channels in " << result.systems << " systems and "
              << result.departments << " departments written to " << written.path << "\n";
  });

  struct ExportArgs {
    std::string in, out;
    bool zel = false;
    bool json = false;
  };
  auto ex = std::make_shared<ExportArgs>();
  auto* exportCmd = csv->add_subcommand("export", "A favorites file as one line a channel");
  exportCmd->add_option("FILE", ex->in, "The .hpd file")->required();
  auto* exportOut = exportCmd->add_option("OUT", ex->out, "The text file to write");
  exportCmd->add_option("-o,--out", ex->out, "The text file to write (instead of OUT)")
      ->excludes(exportOut);
  exportCmd->add_flag("--zel", ex->zel, "The \"[ZEL CSV FILE]\" form, one line a system");
  exportCmd->add_flag("--json", ex->json, "Print the file written as a JSON object");
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
        if (node) rows.push_back({"1", doc.data.text(node), record::field(doc.data.text(node), 4)});
      }
      text = exchange::zelCsvExport(rows);
    } else {
      text = exchange::channelCsvExport(doc, *scratch.pages);
    }
    writeWhole(ex->out, text);
    if (ex->json) {
      cli::printJson(std::cout, cli::Listing().field("file", ex->out));
      return;
    }
    std::cout << "Wrote " << ex->out << "\n";
  });
}

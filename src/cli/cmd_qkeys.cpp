// zel qkeys ...: the quick keys of a favorites file and of the lists on a scanner's card.
//
//   zel qkeys show FILE.hpd [--system N] [--json]     systems (or one system's departments
//                                                      and sites) by quick key
//   zel qkeys set FILE.hpd KEY=NUMBER... -o OUT        KEY a node key or a system number,
//                                                      NUMBER 0 to 99 or Off
//   zel qkeys card [--root DIR] [--html FILE] [--json] the card's overview, keys used twice
#include <iostream>
#include <memory>

#include "cli/cmd_card_common.h"
#include "cli/cmd_hpd_common.h"
#include "cli/command_registry.h"
#include "cli/option_range.h"
#include "cli/rr_listing.h"
#include "core/keys.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "database/qkey_card.h"
#include "database/qkey_layout.h"
#include "formats/atomic_file.h"

namespace {

using namespace zel;

constexpr const char* kNoScanner =
    "BCDx36HP not found, please plug USB cable in, select MASS STORAGE DEVICE and try again by "
    "pressing yellow 'Detect' button.";

CLI::App* qkeysNoun(CLI::App& app) {
  for (auto* sub : app.get_subcommands([](CLI::App* a) { return a->get_name() == "qkeys"; }))
    return sub;
  auto* noun = app.add_subcommand("qkeys", "Quick keys of lists, systems, departments and sites");
  noun->require_subcommand(1);
  return noun;
}

std::string jsonKey(int key) { return key == qkeys::kNoKey ? "null" : std::to_string(key); }

void printLayout(const qkeys::Layout& layout, bool json) {
  if (json) {
    std::cout << "[";
    for (std::size_t i = 0; i < layout.items.size(); ++i) {
      const qkeys::Item& item = layout.items[i];
      std::cout << (i ? "," : "") << "\n  {\"node\":\"" << item.key << "\",\"text\":\""
                << cli::jsonInside(item.text) << "\",\"quickKey\":" << jsonKey(item.quickKey) << "}";
    }
    std::cout << "\n]\n";
    return;
  }
  auto print = [&](int key) {
    const auto items = qkeys::bucketItems(layout, key);
    if (items.empty()) return;
    std::cout << qkeys::bucketCaption(key) << "\n";
    for (const qkeys::Item* item : items) std::cout << "  " << item->key << "  " << item->text << "\n";
  };
  for (int key = 0; key < qkeys::kKeyCount; ++key) print(key);
  print(qkeys::kNoKey);
  std::cout << "Next free quick key: "
            << (qkeys::nextFreeKey(layout) == qkeys::kNoKey ? "none"
                                                            : std::to_string(qkeys::nextFreeKey(layout)))
            << "\n";
}

// "SYS-002=5", "2=Off", "GRP-999-001-003=12": the node and the key it takes.
struct Assignment {
  std::string node;
  int key = qkeys::kNoKey;
};

Assignment parseAssignment(const std::string& text) {
  const auto eq = text.find('=');
  if (eq == std::string::npos)
    throw cli::UserError{"\"" + text + "\" is not KEY=NUMBER (SYS-001=5, 1=Off).", 2};
  std::string node = trim(text.substr(0, eq));
  const std::string value = trim(text.substr(eq + 1));
  if (!node.empty() && node.find_first_not_of("0123456789") == std::string::npos) {
    const long long number = leadingInteger(node);
    if (number < 1 || number > 999)
      throw cli::UserError{"A system number goes from 1 to 999, not " + node + "."};
    node = keys::system(static_cast<int>(number));
  }
  node = toUpper(node);
  if (qkeys::keyField(node) == 0)
    throw cli::UserError{"\"" + node + "\" names no system, department or site (SYS-001, GRP-999-001-002, SIT-001-001)."};
  Assignment a{node, qkeys::parseKey(value)};
  if (a.key == qkeys::kNoKey && !iequals(value, "Off"))
    throw cli::UserError{"A quick key is a number from 0 to 99 or Off, not \"" + value + "\"."};
  return a;
}

void runSet(const std::string& in, const std::vector<std::string>& texts, const std::string& out) {
  if (texts.empty()) throw cli::UserError{"Name at least one KEY=NUMBER to set.", 2};
  std::vector<Assignment> assignments;
  for (const std::string& t : texts) assignments.push_back(parseAssignment(t));
  Document doc;
  formats::MemoryRows rows;
  cli::readHpdOrFail(doc, rows, in);
  for (const Assignment& a : assignments) {
    if (!doc.data.contains(a.node)) throw cli::UserError{"The file holds no " + a.node + "."};
    qkeys::Layout layout = startsWith(a.node, "SYS-")
                               ? qkeys::systemLayout(doc.data)
                               : qkeys::departmentLayout(doc.data, keys::systemOf(a.node));
    qkeys::moveTo(layout, {a.node}, a.key);
    qkeys::writeBack(doc, layout);
  }
  cli::writeHpdOrFail(doc, rows, out);
  std::cout << "Set " << assignments.size() << " quick key" << (assignments.size() == 1 ? "" : "s")
            << "; wrote " << out << ".\n";
}

void printCard(const qkeys::CardOverview& overview, const std::vector<qkeys::CardRow>& rows,
               bool json) {
  if (json) {
    std::cout << "{\"rows\":[";
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const qkeys::CardRow& r = rows[i];
      std::cout << (i ? "," : "") << "\n  {\"name\":\"" << cli::jsonInside(r.name)
                << "\",\"list\":" << r.list << ",\"fl\":\"" << r.flKey << "\",\"sys\":\"" << r.sysKey
                << "\",\"dep\":\"" << r.depKey << "\",\"shortcut\":\"" << r.shortcut
                << "\",\"twice\":[";
      for (std::size_t t = 0; t < r.twice.size(); ++t)
        std::cout << (t ? "," : "") << "\"" << r.twice[t] << "\"";
      std::cout << "]}";
    }
    std::cout << "\n],\"duplicates\":[";
    for (std::size_t i = 0; i < overview.duplicates.size(); ++i)
      std::cout << (i ? "," : "") << "\n  \"" << cli::jsonInside(overview.duplicates[i].sentence())
                << "\"";
    std::cout << "\n]}\n";
    return;
  }
  std::cout << qkeys::clipboardText(rows);
  for (const qkeys::CardList& list : overview.lists)
    if (list.missing) std::cout << "List \"" << list.name << "\": " << list.file << " cannot be read.\n";
  for (const qkeys::CardDuplicate& d : overview.duplicates) std::cout << d.sentence() << "\n";
  if (overview.duplicates.empty()) std::cout << "No quick key is used twice.\n";
}

}  // namespace

ZEL_COMMAND(50) {
  auto* noun = qkeysNoun(app);
  {
    struct Args {
      std::string file;
      int system = 0;
    };
    auto args = std::make_shared<Args>();
    auto* cmd = noun->add_subcommand("show", "Systems, or one system's departments and sites, by quick key");
    cmd->add_option("FILE", args->file, "The .hpd file")->required();
    cli::inRange(cmd->add_option("--system", args->system, "The departments and sites of system N"),
                 1, 999, "a system number");
    cmd->add_flag("--json", context.json, "Print a JSON array");
    cmd->callback([args, &context] {
      Document doc;
      formats::MemoryRows rows;
      cli::readHpdOrFail(doc, rows, args->file);
      if (args->system > 0 && treemod::findSystem(doc.data, args->system) == kNoNode)
        throw cli::UserError{"The file holds no system " + std::to_string(args->system) + "."};
      printLayout(args->system > 0 ? qkeys::departmentLayout(doc.data, args->system)
                                   : qkeys::systemLayout(doc.data),
                  context.json);
    });
  }
  {
    struct Args {
      std::string file;
      std::vector<std::string> positional;
      std::vector<std::string> options;
      std::string out;
    };
    auto args = std::make_shared<Args>();
    auto* cmd = noun->add_subcommand("set", "Give systems, departments or sites a quick key");
    cmd->add_option("FILE", args->file, "The .hpd file to read")->required();
    cmd->add_option("KEY=NUMBER", args->positional, "SYS-001=5, GRP-999-001-002=3, SIT-001-001=Off, 2=7");
    cmd->add_option("--set", args->options, "One KEY=NUMBER (repeatable)");
    cmd->add_option("-o,--out", args->out, "The .hpd file to write (may be FILE itself)")->required();
    cmd->callback([args] {
      std::vector<std::string> sets = args->positional;
      sets.insert(sets.end(), args->options.begin(), args->options.end());
      runSet(args->file, sets, args->out);
    });
  }
  {
    struct Args {
      std::vector<std::string> roots;
      std::string html;
    };
    auto args = std::make_shared<Args>();
    auto* cmd = noun->add_subcommand("card", "The quick keys of every favorites list on the card");
    cmd->add_option("--root", args->roots, "A folder to look in for a card (repeatable)");
    cmd->add_option("--html", args->html, "Also write the overview as an HTML page");
    cmd->add_flag("--json", context.json, "Print the rows and the keys used twice as JSON");
    cmd->callback([args, &context] {
      transfer::CardDetector detector;
      cli::detectCard(context, args->roots, detector);
      if (!detector.state().detected()) throw cli::UserError{kNoScanner};
      const qkeys::CardOverview overview = qkeys::readCardOverview(detector.state().scannerRoot);
      if (!overview.ok) throw cli::UserError{overview.error};
      const std::vector<qkeys::CardRow> rows = qkeys::overviewRows(overview);
      if (!args->html.empty()) {
        const formats::WriteStatus written =
            formats::writeFileAtomically(args->html, qkeys::overviewHtml(rows));
        if (!written.ok) throw cli::UserError{written.message};
      }
      printCard(overview, rows, context.json);
    });
  }
}

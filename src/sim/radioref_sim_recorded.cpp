// Loading and serving the recorded replies of the live service.
#include "sim/radioref_sim_recorded.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <pugixml.hpp>
#include <sstream>

#include "core/text.h"

namespace zel::sim::rrsim {

namespace {

namespace fs = std::filesystem;

std::string_view localName(std::string_view name) {
  std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

pugi::xml_node child(pugi::xml_node parent, std::string_view name) {
  for (pugi::xml_node c : parent.children()) {
    if (c.type() == pugi::node_element && localName(c.name()) == name) return c;
  }
  return {};
}

// Operations that answer alike whatever their argument.
bool anyArgument(std::string_view op) {
  return op == "getTag" || op == "getMode" || op == "getTrsType" || op == "getTrsFlavor" ||
         op == "getTrsVoice" || op == "getMetroArea" || op == "getUserData" ||
         op == "getCountryList";
}

// The id part of a record reply, by operation.
std::string_view recordKey(std::string_view op) {
  if (op == "getCountyInfo") return "ctid";
  if (op == "getStateInfo") return "stid";
  if (op == "getAgencyInfo") return "aid";
  if (op == "getCountryInfo") return "coid";
  if (op == "getZipcodeInfo") return "zipCode";
  return {};
}

// The request part that selects a recorded reply of `op`.
std::string_view requestKey(std::string_view op) {
  if (op == "getZipcodeInfo") return "zipcode";
  if (op == "getSubcatFreqs") return "scid";
  std::string_view key = recordKey(op);
  return key.empty() ? std::string_view("sid") : key;
}

// "trs_sites_p25.xml" -> "p25": the name after the kind of a trunked system file.
std::string systemSuffix(const std::string& file) {
  for (std::string_view kind :
       {"trs_talkgroup_cats_", "trs_talkgroups_", "trs_details_", "trs_sites_"}) {
    if (startsWith(file, kind)) {
      std::string rest = file.substr(kind.size());
      return rest.substr(0, rest.rfind('.'));
    }
  }
  return {};
}

long long firstItemValue(pugi::xml_node ret, std::string_view field) {
  pugi::xml_node item = child(ret, "item");
  return item ? leadingInteger(child(item, field).text().get()) : 0;
}

struct Loaded {
  std::string file, op, body;
  long long id = 0;  // 0: not known yet
};

}  // namespace

bool RecordedReplies::load(const std::string& dir, std::string* error) {
  std::error_code ec;
  fs::directory_iterator it(dir, ec);
  if (ec) {
    if (error) *error = "Cannot read the recordings folder " + dir + ": " + ec.message();
    return false;
  }
  std::vector<fs::path> files;
  for (const auto& entry : it) {
    if (entry.is_regular_file() && entry.path().extension() == ".xml") {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());

  std::vector<Loaded> loaded;
  std::map<std::string, long long> sidBySuffix;
  for (const fs::path& path : files) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    Loaded l{path.filename().string(), {}, text.str()};
    pugi::xml_document doc;
    if (!doc.load_buffer(l.body.data(), l.body.size())) continue;
    pugi::xml_node body = child(doc.document_element(), "Body");
    pugi::xml_node reply =
        body ? body.find_child([](pugi::xml_node n) { return n.type() == pugi::node_element; })
             : pugi::xml_node{};
    std::string_view name = reply ? localName(reply.name()) : std::string_view{};
    if (!endsWith(name, "Response")) continue;  // faults and strangers
    l.op = std::string(name.substr(0, name.size() - 8));
    pugi::xml_node ret = child(reply, "return");
    if (l.op == "getTrsSites" || l.op == "getTrsTalkgroupCats") {
      l.id = firstItemValue(ret, "sid");
      if (l.id != 0 && !sidBySuffix.count(systemSuffix(l.file))) {
        sidBySuffix[systemSuffix(l.file)] = l.id;
      }
    } else if (l.op == "getSubcatFreqs") {
      l.id = firstItemValue(ret, "scid");
    } else if (!recordKey(l.op).empty()) {
      l.id = leadingInteger(child(ret, recordKey(l.op)).text().get());
      if (l.op == "getCountryInfo" && l.id == 0) l.id = 1;
    }
    loaded.push_back(std::move(l));
  }

  for (Loaded& l : loaded) {
    if (anyArgument(l.op)) {
      anyArgument_.emplace(l.op, std::move(l.body));
      continue;
    }
    if (l.id == 0) {
      auto sid = sidBySuffix.find(systemSuffix(l.file));
      if (sid != sidBySuffix.end()) l.id = sid->second;
    }
    if (l.id != 0) byId_.emplace(std::make_pair(l.op, l.id), std::move(l.body));
  }
  return true;
}

std::optional<std::string> RecordedReplies::find(std::string_view op,
                                                 const Request& request) const {
  if (anyArgument(op)) {
    auto it = anyArgument_.find(std::string(op));
    if (it == anyArgument_.end()) return std::nullopt;
    return it->second;
  }
  auto it = byId_.find({std::string(op), request.integer(requestKey(op))});
  if (it == byId_.end()) return std::nullopt;
  if (op == "getTrsTalkgroups") {
    const long long cid = request.integer("tgCid"), tag = request.integer("tgTag"),
                    dec = request.integer("tgDec");
    if (cid != 0 || tag != 0 || dec != 0) {
      return filterRecordedTalkgroups(it->second, cid, tag, dec);
    }
  }
  return it->second;
}

std::vector<std::string> RecordedReplies::describe() const {
  std::vector<std::string> out;
  for (const auto& [key, body] : byId_) {
    out.push_back(key.first + " " + std::string(requestKey(key.first)) + " " +
                  std::to_string(key.second));
  }
  for (const auto& [op, body] : anyArgument_) out.push_back(op + " (any)");
  return out;
}

std::string filterRecordedTalkgroups(const std::string& reply, long long tgCid, long long tgTag,
                                     long long tgDec) {
  const std::string countMark = "SOAP-ENC:arrayType=\"tns:Talkgroup[";
  const std::string itemMark = "<item xsi:type=\"tns:Talkgroup\">";
  const std::size_t count = reply.find(countMark);
  const std::size_t end = reply.rfind("</return>");
  if (count == std::string::npos || end == std::string::npos) return reply;
  const std::size_t open = reply.find('>', count);
  std::size_t begin = reply.find(itemMark, open);
  if (begin == std::string::npos || begin > end) begin = end;

  // The values of every `<field ...>N</field>` of an item, in order.
  auto numbers = [](std::string_view item, std::string_view field) {
    std::vector<long long> out;
    const std::string open = std::string("<").append(field);
    for (std::size_t at = item.find(open); at != std::string_view::npos;
         at = item.find(open, at + 1)) {
      const std::size_t after = at + open.size();
      if (after >= item.size() || (item[after] != ' ' && item[after] != '>')) continue;
      const std::size_t gt = item.find('>', after);
      if (gt != std::string_view::npos) out.push_back(leadingInteger(item.substr(gt + 1)));
    }
    return out;
  };
  auto first = [&](std::string_view item, std::string_view field) {
    std::vector<long long> all = numbers(item, field);
    return all.empty() ? -1 : all.front();
  };
  auto hasTag = [&](std::string_view item) {
    std::vector<long long> tags = numbers(item, "tagId");
    return std::find(tags.begin(), tags.end(), tgTag) != tags.end();
  };

  std::string kept;
  std::size_t n = 0;
  for (std::size_t at = begin; at < end;) {
    std::size_t next = reply.find(itemMark, at + itemMark.size());
    if (next == std::string::npos || next > end) next = end;
    std::string_view item(reply.data() + at, next - at);
    if ((tgCid == 0 || first(item, "tgCid") == tgCid) &&
        (tgDec == 0 || first(item, "tgDec") == tgDec) && (tgTag == 0 || hasTag(item))) {
      kept.append(item);
      ++n;
    }
    at = next;
  }
  std::string out = reply.substr(0, count + countMark.size()) + std::to_string(n);
  if (n == 0) return out + "]\"/>" + reply.substr(end + std::string("</return>").size());
  return out + "]\">" + kept + reply.substr(end);
}

}  // namespace zel::sim::rrsim

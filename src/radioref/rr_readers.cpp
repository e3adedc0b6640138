// The reply readers of the account, lookup, geography and frequency operations. The trunked
// system readers are in rr_readers_trs.cpp.
#include "radioref/rr_readers.h"

#include <array>
#include <cctype>

#include "radioref/rr_read_fields.h"

namespace zel::radioref {

using fields::child;
using fields::doubleField;
using fields::intField;
using fields::readNumbers;
using fields::readRecords;
using fields::textField;

namespace {

RRAgencyRef readAgencyRef(const SoapNode& item) {
  RRAgencyRef ref;
  ref.aid = intField(item, "aid");
  ref.aName = textField(item, "aName");
  ref.aType = intField(item, "aType");
  return ref;
}

RRCountyRef readCountyRef(const SoapNode& item) {
  RRCountyRef ref;
  ref.ctid = intField(item, "ctid");
  ref.countyName = textField(item, "countyName");
  ref.countyHeader = textField(item, "countyHeader");
  return ref;
}

RRSystemRef readSystemRef(const SoapNode& item) {
  RRSystemRef ref;
  ref.sid = intField(item, "sid");
  ref.sName = textField(item, "sName");
  ref.sType = intField(item, "sType");
  ref.sFlavor = intField(item, "sFlavor");
  ref.sVoice = intField(item, "sVoice");
  ref.sCity = textField(item, "sCity");
  ref.lastUpdated = textField(item, "lastUpdated");
  return ref;
}

RRSubcat readSubcat(const SoapNode& item) {
  RRSubcat sub;
  sub.scid = intField(item, "scid");
  sub.scName = textField(item, "scName");
  sub.lat = doubleField(item, "lat");
  sub.lon = doubleField(item, "lon");
  sub.range = doubleField(item, "range");
  sub.sids = readNumbers(child(item, "sids"), "sid");
  return sub;
}

RRCategory readCategory(const SoapNode& item) {
  RRCategory cat;
  cat.cid = intField(item, "cid");
  cat.cName = textField(item, "cName");
  cat.subcats = readRecords<RRSubcat>(child(item, "subcats"), readSubcat);
  return cat;
}

// Frequency tags carry their description; a bare number is taken as the id alone.
std::vector<RRTag> readTags(const SoapNode* list) {
  std::vector<RRTag> out;
  const std::vector<SoapNode>* items = fields::listItems(list);
  if (items == nullptr) return out;
  for (const SoapNode& item : *items) {
    if (item.IsNull()) continue;
    if (item.kind() == SoapNode::Kind::Structure) {
      out.push_back({intField(item, "tagId"), textField(item, "tagDescr")});
    } else if (item.kind() == SoapNode::Kind::Scalar && !item.Value().empty()) {
      out.push_back({fields::intOf(item), {}});
    }
  }
  return out;
}

RRFrequency readFrequency(const SoapNode& item) {
  RRFrequency f;
  f.fid = intField(item, "fid");
  f.out = textField(item, "out");
  f.in = textField(item, "in");
  f.callsign = textField(item, "callsign");
  f.enc = intField(item, "enc");
  f.descr = commasToSemicolons(textField(item, "descr"));
  f.alpha = commasToSemicolons(textField(item, "alpha"));
  f.tone = textField(item, "tone");
  f.mode = textField(item, "mode");
  f.clazz = textField(item, "class");
  f.colorCode = textField(item, "colorCode");
  f.slot = textField(item, "slot");
  f.tg = textField(item, "tg");
  f.tags = readTags(child(item, "tags"));
  f.sort = intField(item, "sort");
  f.lastUpdated = textField(item, "lastUpdated");
  return f;
}

RRSearchHit readSearchHit(const SoapNode& item) {
  RRSearchHit h;
  h.out = doubleField(item, "out");
  h.in = doubleField(item, "in");
  h.callsign = textField(item, "callsign");
  h.descr = commasToSemicolons(textField(item, "descr"));
  h.alpha = commasToSemicolons(textField(item, "alpha"));
  h.tone = textField(item, "tone");
  h.mode = textField(item, "mode");
  h.clazz = textField(item, "class");
  h.tags = readNumbers(child(item, "tags"), "tagId");
  h.scid = intField(item, "scid");
  h.sid = intField(item, "sid");
  h.aid = intField(item, "aid");
  h.ctid = intField(item, "ctid");
  h.fid = intField(item, "fid");
  h.sort = intField(item, "sort");
  h.lastUpdated = textField(item, "lastUpdated");
  h.enc = intField(item, "enc");
  h.tg = textField(item, "tg");
  return h;
}

bool isDigits(std::string_view text) {
  if (text.empty()) return false;
  for (char c : text) {
    if (!std::isdigit(static_cast<unsigned char>(c))) return false;
  }
  return true;
}

int number(std::string_view digits) {
  int value = 0;
  for (char c : digits) value = value * 10 + (c - '0');
  return value;
}

}  // namespace

std::string commasToSemicolons(std::string text) {
  for (char& c : text) {
    if (c == ',') c = ';';
  }
  return text;
}

std::string monthDayYear(const std::string& isoDate) {
  static constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const std::string_view text(isoDate);
  if (text.size() < 10) return {};
  int year = 0, month = 0, day = 0;
  if (text[4] == '-' && text[7] == '-' && isDigits(text.substr(0, 4)) &&
      isDigits(text.substr(5, 2)) && isDigits(text.substr(8, 2))) {
    year = number(text.substr(0, 4));  // 2026-06-16, then a time or nothing
    month = number(text.substr(5, 2));
    day = number(text.substr(8, 2));
  } else if (text[2] == '-' && text[5] == '-' && isDigits(text.substr(0, 2)) &&
             isDigits(text.substr(3, 2)) && isDigits(text.substr(6, 4))) {
    month = number(text.substr(0, 2));  // 06-16-2026, as the account's expiry is written
    day = number(text.substr(3, 2));
    year = number(text.substr(6, 4));
  } else {
    return {};
  }
  if (text.size() > 10 && text[10] != 'T' && text[10] != ' ') return {};
  if (month < 1 || month > 12 || day < 1 || day > 31) return {};
  std::string out = kMonths[month - 1];
  out += day < 10 ? "/0" : "/";
  out += std::to_string(day);
  out += '/';
  out += std::to_string(year);
  return out;
}

std::string readableDetailsText(const std::string& replyXml) {
  static constexpr std::string_view kEndItem = "</item>";
  std::string out;
  out.reserve(replyXml.size() + replyXml.size() / 32);
  std::size_t from = 0;
  for (std::size_t at = replyXml.find(kEndItem); at != std::string::npos;
       at = replyXml.find(kEndItem, at + kEndItem.size())) {
    out.append(replyXml, from, at - from);
    out += '\r';
    from = at;
  }
  out.append(replyXml, from, std::string::npos);
  return out;
}

RRUserData readUserData(const SoapNode& part) {
  const SoapNode& record = fields::recordOf(part);
  RRUserData user;
  user.username = textField(record, "username");
  user.subExpireDate = textField(record, "subExpireDate");
  return user;
}

std::vector<RRLookup> readLookups(const SoapNode& part, const char* keyField,
                                  const char* textField) {
  if (keyField == nullptr || textField == nullptr) return {};
  return readRecords<RRLookup>(&part, [&](const SoapNode& item) {
    return RRLookup{intField(item, keyField), fields::textField(item, textField)};
  });
}

std::vector<RRFlavor> readFlavors(const SoapNode& part) {
  return readRecords<RRFlavor>(&part, [](const SoapNode& item) {
    return RRFlavor{intField(item, "sType"), intField(item, "sFlavor"),
                    textField(item, "sFlavorDescr")};
  });
}

std::vector<RRVoice> readVoices(const SoapNode& part) {
  return readRecords<RRVoice>(&part, [](const SoapNode& item) {
    return RRVoice{intField(item, "sType"), intField(item, "sVoice"),
                   textField(item, "sVoiceDescr")};
  });
}

RRCountryInfo readCountryInfo(const SoapNode& part) {
  const SoapNode& record = fields::recordOf(part);
  RRCountryInfo info;
  info.stateList = readRecords<RRCountryState>(child(record, "stateList"), [](const SoapNode& s) {
    return RRCountryState{intField(s, "stid"), textField(s, "stateName"),
                          textField(s, "stateCode")};
  });
  info.agencyList = readRecords<RRAgencyRef>(child(record, "agencyList"), readAgencyRef);
  return info;
}

RRState readStateInfo(const SoapNode& part) {
  const SoapNode& record = fields::recordOf(part);
  RRState state;
  state.stid = intField(record, "stid");
  state.stateName = textField(record, "stateName");
  state.stateEntityType = textField(record, "stateEntityType");
  state.trsList = readRecords<RRSystemRef>(child(record, "trsList"), readSystemRef);
  state.agencyList = readRecords<RRAgencyRef>(child(record, "agencyList"), readAgencyRef);
  state.countyList = readRecords<RRCountyRef>(child(record, "countyList"), readCountyRef);
  return state;
}

RRCounty readCountyInfo(const SoapNode& part) {
  const SoapNode& record = fields::recordOf(part);
  RRCounty county;
  county.ctid = intField(record, "ctid");
  county.countyName = textField(record, "countyName");
  county.countyHeader = textField(record, "countyHeader");
  county.stid = intField(record, "stid");
  county.lat = doubleField(record, "lat");
  county.lon = doubleField(record, "lon");
  county.range = doubleField(record, "range");
  county.lastUpdated = textField(record, "lastUpdated");
  county.cats = readRecords<RRCategory>(child(record, "cats"), readCategory);
  county.trsList = readRecords<RRSystemRef>(child(record, "trsList"), readSystemRef);
  county.agencyList = readRecords<RRAgencyRef>(child(record, "agencyList"), readAgencyRef);
  county.lastUpdateText = "Last Update: " + monthDayYear(county.lastUpdated);
  return county;
}

RRAgency readAgencyInfo(const SoapNode& part) {
  const SoapNode& record = fields::recordOf(part);
  RRAgency agency;
  agency.aid = intField(record, "aid");
  agency.agencyName = textField(record, "agencyName");
  agency.agencyType = textField(record, "agencyType");
  agency.ctid = intField(record, "ctid");
  agency.stid = intField(record, "stid");
  agency.lat = doubleField(record, "lat");
  agency.lon = doubleField(record, "lon");
  agency.range = doubleField(record, "range");
  agency.lastUpdated = textField(record, "lastUpdated");
  agency.cats = readRecords<RRCategory>(child(record, "cats"), readCategory);
  return agency;
}

std::vector<RRFrequency> readFrequencies(const SoapNode& part) {
  return readRecords<RRFrequency>(&part, readFrequency);
}

std::vector<RRSearchHit> readSearchHits(const SoapNode& part) {
  return readRecords<RRSearchHit>(&part, readSearchHit);
}

RRZipcode readZipcode(const SoapNode& part) {
  const SoapNode& record = fields::recordOf(part);
  RRZipcode zip;
  zip.zipCode = intField(record, "zipCode");
  zip.lat = textField(record, "lat");
  zip.lon = textField(record, "lon");
  zip.city = textField(record, "city");
  zip.stid = intField(record, "stid");
  zip.ctid = intField(record, "ctid");
  return zip;
}

}  // namespace zel::radioref

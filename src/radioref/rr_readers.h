#pragma once
// The reply records read from the first part ("return") of a reply, by field name. A list
// reply's part is an array whose items are records; a single-record reply is read from the
// part itself. An optional list inside a record is read only when present and not empty.
// "Null", nil and absent fields leave numbers at 0 and texts empty. Commas in descr, alpha,
// tgDescr and tgAlpha become semicolons here, at the point of reading.
#include <string>
#include <vector>

#include "radioref/rr_records.h"
#include "radioref/soap_node.h"

namespace zel::radioref {

RRUserData readUserData(const SoapNode& part);
// keyField/textField: "tagId"/"tagDescr", "mode"/"modeName", "sType"/"sTypeDescr", "mid"/"metroName".
std::vector<RRLookup> readLookups(const SoapNode& part, const char* keyField, const char* textField);
std::vector<RRFlavor> readFlavors(const SoapNode& part);
std::vector<RRVoice> readVoices(const SoapNode& part);
RRCountryInfo readCountryInfo(const SoapNode& part);
RRState readStateInfo(const SoapNode& part);
// Also forms lastUpdateText: "Last Update: " + lastUpdated as "mmm/dd/YYYY".
RRCounty readCountyInfo(const SoapNode& part);
RRAgency readAgencyInfo(const SoapNode& part);
std::vector<RRFrequency> readFrequencies(const SoapNode& part);
std::vector<RRSearchHit> readSearchHits(const SoapNode& part);
std::vector<RRTalkgroupCat> readTalkgroupCats(const SoapNode& part);
std::vector<RRTalkgroup> readTalkgroups(const SoapNode& part);
RRSystemDetails readTrsDetails(const SoapNode& part);
// The serialised getTrsDetails reply made readable: a carriage return before each "</item>".
std::string readableDetailsText(const std::string& replyXml);
std::vector<RRSite> readTrsSites(const SoapNode& part);
RRZipcode readZipcode(const SoapNode& part);

// "2026-06-16T03:53:09+00:00" (or "2026-06-16 03:53:09") as "Jun/16/2026"; "" when unreadable.
std::string monthDayYear(const std::string& isoDate);
// Commas to semicolons.
std::string commasToSemicolons(std::string text);

// The service tag table: index = tagId, "" for an index without a name (also out of range).
std::string serviceTagName(int tagId);
// The alphabetical list of the same names for the service filter.
const std::vector<std::string>& serviceFilterNames();
// The trunk system type table: sType -> "Motorola", "Edacs", ...; "" when the index has none.
const std::string& trunkTypeName(int sType);

}  // namespace zel::radioref

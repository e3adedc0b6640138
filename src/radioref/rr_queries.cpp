#include "radioref/rr_queries.h"

#include <cstdio>

#include "radioref/rr_operations.h"
#include "radioref/rr_readers.h"

namespace zel::radioref {

namespace {

SoapParam intParam(const char* name, long long value) {
  return {name, std::to_string(value), "xsd:int"};
}

std::string decimalText(double value) {
  // The service reads a decimal point whatever this machine's mark is.
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.6f", value);
  std::string text(buf);
  while (!text.empty() && text.back() == '0') text.pop_back();
  if (!text.empty() && text.back() == '.') text.pop_back();
  return text;
}

}  // namespace

SoapCallResult RRQueries::call(int index, std::vector<SoapParam> params) {
  return client_.call(index, params);
}

LoginOutcome RRQueries::login(const std::string& user, const std::string& password) {
  LoginOutcome outcome;
  client_.RRUser = user;
  client_.RRPassword = password;
  client_.SoapTrace("Login ", false);
  if (!client_.InitDone) client_.InitDone = client_.INITSOAP();
  if (!client_.InitDone) {
    outcome.result = LoginOutcome::Result::InitFailed;
    outcome.statusText = std::string(kInitNotOk);
    return outcome;
  }
  if (!getUserData()) {
    outcome.result = LoginOutcome::Result::NoUserData;
    outcome.statusText = std::string(kNoUserData);
    return outcome;
  }
  if (userData.subExpireDate.empty()) {
    outcome.result = LoginOutcome::Result::NoResponse;
    outcome.statusText = std::string(kNoResponse);
    return outcome;
  }
  outcome.result = LoginOutcome::Result::LoggedIn;
  outcome.expiry = userData.subExpireDate;
  outcome.statusText = std::string(kSubscriptionExpires) + userData.subExpireDate;
  getTrsFlavor(0);
  getTrsType(0);
  getTrsVoice(0);
  getMode(0);
  getTag(0);
  getMetroArea(0);
  return outcome;
}

bool RRQueries::getUserData() {
  userData = {};
  auto r = call(opGetUserData, {});
  if (const SoapNode* part = r.part()) userData = readUserData(*part);
  return !userData.subExpireDate.empty();
}

void RRQueries::getTrsFlavor(int id) {
  flavors.clear();
  auto r = call(opGetTrsFlavor, {intParam("id", id)});
  if (const SoapNode* part = r.part()) flavors = readFlavors(*part);
}

void RRQueries::getTrsType(int id) {
  trsTypes.clear();
  auto r = call(opGetTrsType, {intParam("id", id)});
  if (const SoapNode* part = r.part()) trsTypes = readLookups(*part, "sType", "sTypeDescr");
}

void RRQueries::getTrsVoice(int id) {
  voices.clear();
  auto r = call(opGetTrsVoice, {intParam("id", id)});
  if (const SoapNode* part = r.part()) voices = readVoices(*part);
}

void RRQueries::getMode(int mode) {
  modes.clear();
  auto r = call(opGetMode, {intParam("mode", mode)});
  if (const SoapNode* part = r.part()) modes = readLookups(*part, "mode", "modeName");
}

void RRQueries::getTag(int id) {
  tags.clear();
  auto r = call(opGetTag, {intParam("id", id)});
  if (const SoapNode* part = r.part()) tags = readLookups(*part, "tagId", "tagDescr");
}

void RRQueries::getMetroArea(int mid) {
  metroAreas.clear();
  auto r = call(opGetMetroArea, {intParam("mid", mid)});
  if (const SoapNode* part = r.part()) metroAreas = readLookups(*part, "mid", "metroName");
}

void RRQueries::getCountryInfo(int coid) {
  countryInfo = {};
  auto r = call(opGetCountryInfo, {intParam("coid", coid)});
  if (const SoapNode* part = r.part()) countryInfo = readCountryInfo(*part);
}

void RRQueries::getStateInfo(int stid) {
  stateInfo = {};
  auto r = call(opGetStateInfo, {intParam("stid", stid)});
  if (const SoapNode* part = r.part()) stateInfo = readStateInfo(*part);
}

void RRQueries::getCountyInfo(int ctid) {
  countyInfo = {};
  auto r = call(opGetCountyInfo, {intParam("ctid", ctid)});
  if (const SoapNode* part = r.part()) countyInfo = readCountyInfo(*part);
}

void RRQueries::getAgencyInfo(int aid) {
  agencyInfo = {};
  auto r = call(opGetAgencyInfo, {intParam("aid", aid)});
  if (const SoapNode* part = r.part()) agencyInfo = readAgencyInfo(*part);
}

void RRQueries::getSubcatFreqs(int scid) {
  subcatFreqs.clear();
  auto r = call(opGetSubcatFreqs, {intParam("scid", scid)});
  if (const SoapNode* part = r.part()) subcatFreqs = readFrequencies(*part);
}

void RRQueries::searchCountyFreq(int ctid, double freq, const std::string& tone) {
  searchHits.clear();
  auto r = call(opSearchCountyFreq, {intParam("ctid", ctid), {"freq", decimalText(freq), "xsd:double"},
                                     {"tone", tone, "xsd:string"}});
  if (const SoapNode* part = r.part()) searchHits = readSearchHits(*part);
}

void RRQueries::searchStateFreq(int stid, double freq, const std::string& tone) {
  searchHits.clear();
  auto r = call(opSearchStateFreq, {intParam("stid", stid), {"freq", decimalText(freq), "xsd:double"},
                                    {"tone", tone, "xsd:string"}});
  if (const SoapNode* part = r.part()) searchHits = readSearchHits(*part);
}

void RRQueries::getCountyFreqsByTag(int ctid, int tag) {
  countyFreqsByTag.clear();
  auto r = call(opGetCountyFreqsByTag, {intParam("ctid", ctid), intParam("tag", tag)});
  if (const SoapNode* part = r.part()) countyFreqsByTag = readFrequencies(*part);
}

void RRQueries::getZipcodeInfo(int zip) {
  zipcode = {};
  auto r = call(opGetZipcodeInfo, {intParam("zipcode", zip)});
  if (const SoapNode* part = r.part()) zipcode = readZipcode(*part);
}

void RRQueries::getTrsSites(int sid) {
  trsSites.clear();
  auto r = call(opGetTrsSites, {intParam("sid", sid)});
  if (const SoapNode* part = r.part()) trsSites = readTrsSites(*part);
}

void RRQueries::getTrsDetails(int sid) {
  trsDetails = {};
  auto r = call(opGetTrsDetails, {intParam("sid", sid)});
  if (const SoapNode* part = r.part()) {
    trsDetails = readTrsDetails(*part);
    // Read from the envelope; the text with a CR before each "</item>" is for display.
    trsDetails.readableText = readableDetailsText(r.envelope.Serialize());
  }
}

void RRQueries::getTrsTalkgroupCats(int sid) {
  talkgroupCats.clear();
  auto r = call(opGetTrsTalkgroupCats, {intParam("sid", sid)});
  if (const SoapNode* part = r.part()) talkgroupCats = readTalkgroupCats(*part);
}

void RRQueries::getTrsTalkgroups(int sid, int tgCid, int tgTag, int tgDec) {
  talkgroups.clear();
  auto r = call(opGetTrsTalkgroups, {intParam("sid", sid), intParam("tgCid", tgCid),
                                     intParam("tgTag", tgTag), intParam("tgDec", tgDec)});
  if (const SoapNode* part = r.part()) talkgroups = readTalkgroups(*part);
}

}  // namespace zel::radioref

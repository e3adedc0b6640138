#pragma once
// The reply records of the RadioReference service, as the query layer fills them and the
// import builders read them. Every text is the 8-bit text the document holds (Latin-1);
// fields that later go into a record line have commas turned into semicolons when they are
// read (descr, alpha, tgDescr, tgAlpha). A number the service sends as "Null" stays 0.
#include <string>
#include <vector>

namespace zel::radioref {

struct RRUserData {
    std::string username;
    std::string subExpireDate;
};

// A lookup list entry: getTag (tagId, tagDescr), getMode (mode, modeName),
// getTrsType (sType, sTypeDescr), getMetroArea (mid, metroName).
struct RRLookup {
    int key = 0;
    std::string text;
};

struct RRFlavor {
    int sType = 0;
    int sFlavor = 0;
    std::string sFlavorDescr;
};

struct RRVoice {
    int sType = 0;
    int sVoice = 0;
    std::string sVoiceDescr;
};

struct RRCountryState {
    int stid = 0;
    std::string stateName;
    std::string stateCode;
};

struct RRAgencyRef {
    int aid = 0;
    std::string aName;
    int aType = 0;  // 0 when the service sends "Null"
};

struct RRCountryInfo {
    std::vector<RRCountryState> stateList;
    std::vector<RRAgencyRef> agencyList;
};

struct RRCountyRef {
    int ctid = 0;
    std::string countyName;
    std::string countyHeader;
};

struct RRSystemRef {
    int sid = 0;
    std::string sName;
    int sType = 0;
    int sFlavor = 0;
    int sVoice = 0;
    std::string sCity;
    std::string lastUpdated;
};

struct RRState {
    int stid = 0;
    std::string stateName;
    std::string stateEntityType;
    std::vector<RRSystemRef> trsList;
    std::vector<RRAgencyRef> agencyList;
    std::vector<RRCountyRef> countyList;
};

struct RRSubcat {
    int scid = 0;
    std::string scName;
    double lat = 0, lon = 0, range = 0;
    std::vector<int> sids;  // the trunked systems the subcategory points to
};

struct RRCategory {
    int cid = 0;
    std::string cName;
    std::vector<RRSubcat> subcats;
};

struct RRCounty {
    int ctid = 0;
    std::string countyName;
    std::string countyHeader;
    int stid = 0;
    double lat = 0, lon = 0, range = 0;
    std::string lastUpdated;
    std::vector<RRCategory> cats;
    std::vector<RRSystemRef> trsList;
    std::vector<RRAgencyRef> agencyList;
    std::string lastUpdateText;  // "Last Update: " + lastUpdated as "mmm/dd/YYYY"
};

struct RRAgency {
    int aid = 0;
    std::string agencyName;
    std::string agencyType;
    int ctid = 0, stid = 0;
    double lat = 0, lon = 0, range = 0;
    std::string lastUpdated;
    std::vector<RRCategory> cats;
};

struct RRTag {
    int tagId = 0;
    std::string tagDescr;
};

struct RRFrequency {
    int fid = 0;
    std::string out;  // the frequency, MHz as the service writes it
    std::string in;   // the input frequency
    std::string callsign;
    int enc = 0;  // non-zero for encrypted
    std::string descr;  // commas as semicolons
    std::string alpha;  // commas as semicolons
    std::string tone;
    std::string mode;
    std::string clazz;  // "class"
    std::string colorCode;
    std::string slot;
    std::string tg;
    std::vector<RRTag> tags;
    int sort = 0;
    std::string lastUpdated;
};

struct RRSearchHit {
    double out = 0, in = 0;
    std::string callsign, descr, alpha, tone, mode, clazz;
    std::vector<int> tags;
    int scid = 0, sid = 0, aid = 0, ctid = 0;
    // county form of getCountyFreqsByTag only
    int fid = 0;
    int sort = 0;
    std::string lastUpdated;
    int enc = 0;
    std::string tg;
};

struct RRTalkgroupCat {
    int tgCid = 0;
    int sid = 0;
    std::string tgCname;
    int tgSort = 0;
    int tgSortBy = 0;
    double lat = 0, lon = 0, range = 0;
    std::string lastUpdated;
};

struct RRTalkgroup {
    int tgId = 0;
    int tgDec = 0;
    std::string tgSubfleet;
    bool tgLtr = false;
    std::string tgDescr;  // commas as semicolons
    std::string tgAlpha;  // commas as semicolons
    std::string tgMode;
    std::string enc;
    std::string tgSlot;
    std::vector<int> tags;
    int tgCid = 0;
    int tgSort = 0;
    std::string tgDate;
};

struct RRBandPlan {
    std::string base;     // MHz
    std::string offset;   // first channel number of the segment
    std::string spacing;  // kHz
};

struct RRSysId {
    std::string sysid, wacn, ct;
    std::string model;  // the model letter the service gives DMR and NXDN ids ("L")
};

struct RRSystemDetails {
    std::string sName;
    int sType = 0, sFlavor = 0, sVoice = 0;
    std::string sCity;
    std::vector<int> sCounty;  // ctid
    std::vector<int> sState;   // stid
    std::string sCountry;
    double lat = 0, lon = 0, range = 0;
    std::string lastUpdated;
    std::vector<RRSysId> sysid;
    std::vector<RRBandPlan> bandplan;
    std::vector<std::string> fleetmap;  // b0 to b7
    std::string readableText;           // the serialised reply, a CR before each "</item>"
};

struct RRSiteFreq {
    int lcn = 0;
    std::string freq;
    std::string use;  // "d" or "a" marks a control channel role
    std::string colorCode;
    std::string ch_id;
};

struct RRSite {
    int siteId = 0;
    int sid = 0;
    int siteNumber = 0;
    std::string siteDescr;
    int zoneNumber = 0;
    std::string zoneDescr;
    int rfss = 0;
    std::string siteNeighbors;
    std::string siteLocation;
    std::vector<std::string> siteCtid;  // the county ids (one, as the service now sends it)
    std::string siteModulation;
    std::string siteNotes;
    double lat = 0, lon = 0, range = 0;
    std::string ran;
    std::string nac;
    int rebanded = 0;  // non-zero on the rebanded plan
    int splinter = 0;  // non-zero for a splinter site
    int tdma_cc = 0;   // the service's TDMA control channel flag
    std::vector<std::string> siteLicenses;
    std::vector<RRBandPlan> bandplan;
    std::vector<RRSiteFreq> siteFreqs;
};

struct RRZipcode {
    int zipCode = 0;
    std::string lat, lon;
    std::string city;
    int stid = 0, ctid = 0;
};

}  // namespace zel::radioref

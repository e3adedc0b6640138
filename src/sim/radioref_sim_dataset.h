#pragma once
// The built-in data of the simulated RadioReference service: compact tables, no files. Names
// are Latin-1; the reply writer turns them into UTF-8. The ids are far above those of the
// recorded replies so that both can be served side by side (the table of ids stands at the
// top of radioref_sim_dataset.cpp).
//
// A date beginning with "-" is relative: "-3" is three days before the day of the reply, so
// that "recently updated" stays recent (see resolveDate()).
#include <string>
#include <vector>

namespace zel::sim::rrdata {

struct Country {
  int coid;
  const char* name;
  const char* code;
};

struct State {
  int stid;
  int coid;
  const char* name;
  const char* code;
  const char* entityType;
};

struct County {
  int ctid;
  int stid;
  const char* name;
  const char* header;
  const char* fips;
  double lat, lon, range;
  const char* updated;
};

// An agency: nationwide (stid 0), statewide (ctid 0) or of a county.
struct Agency {
  int aid;
  int coid, stid, ctid;
  const char* name;
  const char* type;  // agencyType text
  int aType;         // -1: sent as nil
  double lat, lon, range;
  const char* updated;
};

// A category belongs to a county (ctid) or to an agency (aid).
struct Category {
  int cid;
  int ctid, aid;
  const char* name;
};

struct Subcat {
  int scid;
  int cid;
  const char* name;
  double lat, lon, range;
};

struct Frequency {
  int fid;
  int scid;
  const char* out;  // MHz as the service writes it
  const char* in;   // nullptr: nil
  const char* callsign;
  const char* descr;
  const char* alpha;
  const char* tone;  // "CSQ", "123.0 PL", "023 DPL", "293 NAC", "1 CC", "1 RAN", ""
  int mode;          // a mode of modes()
  const char* cls;   // "B", "M", "BM", "FB2", ...
  int tag;           // service tag id
  int enc;           // non-zero: encrypted
  const char* colorCode;
  const char* slot;
  const char* tg;
  int sort;
  const char* updated;
};

struct Sysid {
  const char* sysid;
  const char* wacn;
  const char* ct;
  const char* model;
};

struct BandPlan {
  const char* base;
  const char* spacing;
  const char* offset;
};

struct System {
  int sid;
  const char* name;
  int sType, sFlavor, sVoice;
  const char* city;
  std::vector<int> ctids;
  std::vector<int> stids;
  int coid;
  bool statewide;  // listed in the state's trsList instead of the counties'
  double lat, lon, range;
  const char* updated;
  std::vector<Sysid> sysids;
  std::vector<BandPlan> bandplan;
  std::vector<const char*> fleetmap;  // b0..b7, or empty
};

struct SiteFreq {
  int lcn;
  const char* freq;
  const char* use;  // "d", "a" or nullptr
  const char* colorCode;
  const char* chId;
};

struct Site {
  int siteId;
  int sid;
  int siteNumber;
  const char* descr;
  int zoneNumber;  // -1: nil
  const char* zoneDescr;
  int rfss;
  const char* nac;  // nullptr: nil
  int ran;
  const char* neighbors;
  const char* location;
  int ctid;
  const char* modulation;
  const char* notes;
  double lat, lon, range;
  int splinter, rebanded, tdmaCc;
  std::vector<const char*> licenses;
  std::vector<SiteFreq> freqs;
  std::vector<BandPlan> bandplan;
};

struct TalkgroupCat {
  int tgCid;
  int sid;
  const char* name;
  int sort;
  double lat, lon, range;
  const char* updated;
};

struct Talkgroup {
  int tgId;
  int tgCid;
  int tgDec;
  const char* subfleet;  // nullptr: nil
  bool ltr;
  const char* slot;  // nullptr: nil
  const char* descr;
  const char* alpha;
  const char* mode;  // "A", "D", "T", "E", "DE", ...
  int enc;           // 0 clear, 1 partly, 2 fully encrypted
  int tag;
  int sort;
  const char* date;
};

struct Zipcode {
  int zip;
  const char* lat;
  const char* lon;
  const char* city;
  int stid, ctid;
};

struct Lookup {
  int id;
  const char* text;
};

struct TypedLookup {
  int sType;
  int id;
  const char* text;
};

const std::vector<Country>& countries();
const std::vector<State>& states();
const std::vector<County>& counties();
const std::vector<Agency>& agencies();
const std::vector<Category>& categories();
const std::vector<Subcat>& subcats();
const std::vector<Frequency>& frequencies();
const std::vector<Zipcode>& zipcodes();

const std::vector<System>& systems();
const std::vector<Site>& sites();
const std::vector<TalkgroupCat>& talkgroupCats();
const std::vector<Talkgroup>& talkgroups();

const std::vector<Lookup>& tags();
const std::vector<Lookup>& modes();
const std::vector<Lookup>& trsTypes();
const std::vector<TypedLookup>& trsFlavors();
const std::vector<TypedLookup>& trsVoices();
const std::vector<Lookup>& metroAreas();

// "2026-06-16T03:53:09+00:00" as written; "-N" becomes N days before today at 12:00 UTC.
std::string resolveDate(const char* date);

}  // namespace zel::sim::rrdata

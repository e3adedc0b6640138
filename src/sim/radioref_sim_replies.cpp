// The answers of the built-in dataset, written field by field in the order of the service.
#include "sim/radioref_sim_replies.h"

#include <cmath>
#include <functional>
#include <map>

#include "core/text.h"
#include "sim/radioref_sim_dataset.h"
#include "sim/radioref_sim_xml.h"

namespace zel::sim::rrsim {

namespace {

using namespace rrdata;
using Writer = ReplyWriter;

template <typename T, typename Pred>
std::vector<const T*> select(const std::vector<T>& all, Pred pred) {
  std::vector<const T*> out;
  for (const T& row : all) {
    if (pred(row)) out.push_back(&row);
  }
  return out;
}

template <typename T, typename Key>
const T* findBy(const std::vector<T>& all, Key T::*field, Key value) {
  for (const T& row : all) {
    if (row.*field == value) return &row;
  }
  return nullptr;
}

void systemRefs(Writer& w, std::string_view name, const std::vector<const System*>& list) {
  w.openArray(name, "TrsListDef", list.size());
  if (list.empty()) return;
  for (const System* s : list) {
    w.openItem("TrsListDef");
    w.integer("sid", s->sid);
    w.text("sName", s->name);
    w.integer("sType", s->sType);
    w.integer("sFlavor", s->sFlavor);
    w.integer("sVoice", s->sVoice);
    w.text("sCity", s->city);
    w.dateTime("lastUpdated", resolveDate(s->updated));
    w.close();
  }
  w.close();
}

void agencyRefs(Writer& w, const std::vector<const Agency*>& list) {
  w.openArray("agencyList", "Agency", list.size());
  if (list.empty()) return;
  for (const Agency* a : list) {
    w.openItem("Agency");
    w.integer("aid", a->aid);
    w.text("aName", a->name);
    w.integerOrNil("aType", a->aType, -1);
    w.close();
  }
  w.close();
}

void categoriesOf(Writer& w, int ctid, int aid) {
  auto cats = select(categories(),
                     [&](const Category& c) { return ctid != 0 ? c.ctid == ctid : c.aid == aid; });
  w.openArray("cats", "cat", cats.size());
  if (cats.empty()) return;
  for (const Category* c : cats) {
    w.openItem("cat");
    w.integer("cid", c->cid);
    w.text("cName", c->name);
    auto subs = select(subcats(), [&](const Subcat& s) { return s.cid == c->cid; });
    w.openArray("subcats", "subcat", subs.size());
    for (const Subcat* s : subs) {
      w.openItem("subcat");
      w.integer("scid", s->scid);
      w.text("scName", s->name);
      w.decimal("lat", s->lat);
      w.decimal("lon", s->lon);
      w.decimal("range", s->range);
      w.openArray("sids", "sid", 0);
      w.close();
    }
    if (!subs.empty()) w.close();
    w.close();
  }
  w.close();
}

void tagArray(Writer& w, int tag) {
  w.openArray("tags", "tag", tag > 0 ? 1 : 0);
  if (tag <= 0) return;
  w.openItem("tag");
  w.integer("tagId", tag);
  w.close();
  w.close();
}

// Where a subcategory stands: its county (through the category or the category's agency),
// its state and its agency.
struct Place {
  int ctid = 0, stid = 0, aid = 0;
};

Place placeOf(int scid) {
  Place p;
  const Subcat* s = findBy(subcats(), &Subcat::scid, scid);
  const Category* c = s ? findBy(categories(), &Category::cid, s->cid) : nullptr;
  if (c == nullptr) return p;
  if (c->aid != 0) {
    if (const Agency* a = findBy(agencies(), &Agency::aid, c->aid)) {
      p.aid = a->aid;
      p.ctid = a->ctid;
      p.stid = a->stid;
    }
  } else {
    p.ctid = c->ctid;
    if (const County* k = findBy(counties(), &County::ctid, c->ctid)) p.stid = k->stid;
  }
  return p;
}

void freqItem(Writer& w, const Frequency& f) {
  w.openItem("freq");
  w.integer("fid", f.fid);
  w.decimal("out", std::string_view(f.out));
  if (f.in != nullptr) {
    w.decimal("in", std::string_view(f.in));
  } else {
    w.nil("in", "xsd:decimal");
  }
  w.text("callsign", f.callsign);
  w.integer("enc", f.enc);
  w.text("descr", f.descr);
  w.text("alpha", f.alpha);
  w.text("tone", f.tone);
  w.text("mode", std::to_string(f.mode));
  w.text("class", f.cls);
  w.textOrNil("colorCode", f.colorCode);
  w.textOrNil("slot", f.slot);
  w.textOrNil("tg", f.tg);
  tagArray(w, f.tag);
  w.integer("scid", f.scid);
  w.integer("sort", f.sort);
  w.dateTime("lastUpdated", resolveDate(f.updated));
  w.close();
}

void freqArray(Writer& w, const std::vector<const Frequency*>& list) {
  w.openArray("return", "freq", list.size());
  for (const Frequency* f : list) freqItem(w, *f);
}

bool toneMatches(std::string_view wanted, std::string_view tone) {
  std::string_view t = trimView(wanted);
  if (t.empty()) return true;
  if (iequals(t, tone)) return true;
  const double n = leadingNumber(t);
  return n != 0 && std::fabs(n - leadingNumber(tone)) < 1e-6;
}

void searchHits(Writer& w, const Request& r, const std::function<bool(const Place&)>& where) {
  const double freq = r.number("freq");
  const std::string tone = r.value("tone");
  std::vector<std::pair<const Frequency*, Place>> hits;
  for (const Frequency& f : frequencies()) {
    if (std::fabs(leadingNumber(f.out) - freq) > 0.00005) continue;
    if (!toneMatches(tone, f.tone)) continue;
    Place p = placeOf(f.scid);
    if (where(p)) hits.emplace_back(&f, p);
  }
  w.openArray("return", "searchFreqResult", hits.size());
  for (const auto& [f, p] : hits) {
    w.openItem("searchFreqResult");
    w.decimal("out", std::string_view(f->out));
    if (f->in != nullptr) {
      w.decimal("in", std::string_view(f->in));
    } else {
      w.nil("in", "xsd:decimal");
    }
    w.text("callsign", f->callsign);
    w.text("descr", f->descr);
    w.text("alpha", f->alpha);
    w.text("tone", f->tone);
    w.text("mode", std::to_string(f->mode));
    w.text("class", f->cls);
    tagArray(w, f->tag);
    w.integer("scid", f->scid);
    w.integer("sid", 0);
    w.integer("aid", p.aid);
    w.integer("ctid", p.ctid);
    w.close();
  }
}

void bandplanArray(Writer& w, const std::vector<BandPlan>& plan) {
  w.openArray("bandplan", "trsBandplanDef", plan.size());
  if (plan.empty()) return;
  for (const BandPlan& b : plan) {
    w.openItem("trsBandplanDef");
    w.text("base", b.base);
    w.text("spacing", b.spacing);
    w.text("offset", b.offset);
    w.close();
  }
  w.close();
}

bool countyInfo(Writer& w, const Request& r) {
  const County* c = findBy(counties(), &County::ctid, static_cast<int>(r.integer("ctid")));
  if (c == nullptr) return false;
  w.open("return", "CountyInfo");
  w.integer("ctid", c->ctid);
  w.text("countyName", c->name);
  w.text("countyHeader", c->header);
  w.integer("stid", c->stid);
  w.text("fips", c->fips);
  w.dateTime("lastUpdated", resolveDate(c->updated));
  w.decimal("lat", c->lat);
  w.decimal("lon", c->lon);
  w.decimal("range", c->range);
  categoriesOf(w, c->ctid, 0);
  systemRefs(w, "trsList", select(systems(), [&](const System& s) {
               if (s.statewide) return false;
               for (int id : s.ctids) {
                 if (id == c->ctid) return true;
               }
               return false;
             }));
  agencyRefs(w, select(agencies(), [&](const Agency& a) { return a.ctid == c->ctid; }));
  return true;
}

bool stateInfo(Writer& w, const Request& r) {
  const State* s = findBy(states(), &State::stid, static_cast<int>(r.integer("stid")));
  if (s == nullptr) return false;
  w.open("return", "StateInfo");
  w.integer("stid", s->stid);
  w.text("stateName", s->name);
  w.text("stateEntityType", s->entityType);
  systemRefs(w, "trsList", select(systems(), [&](const System& y) {
               if (!y.statewide) return false;
               for (int id : y.stids) {
                 if (id == s->stid) return true;
               }
               return false;
             }));
  agencyRefs(w,
             select(agencies(), [&](const Agency& a) { return a.stid == s->stid && a.ctid == 0; }));
  auto list = select(counties(), [&](const County& c) { return c.stid == s->stid; });
  w.openArray("countyList", "County", list.size());
  for (const County* c : list) {
    w.openItem("County");
    w.integer("ctid", c->ctid);
    w.text("countyName", c->name);
    w.text("countyHeader", c->header);
    w.close();
  }
  return true;
}

bool countryInfo(Writer& w, const Request& r) {
  const Country* c = findBy(countries(), &Country::coid, static_cast<int>(r.integer("coid")));
  if (c == nullptr) return false;
  w.open("return", "CountryInfo");
  w.integer("coid", c->coid);
  w.text("countryName", c->name);
  w.text("countryCode", c->code);
  agencyRefs(w,
             select(agencies(), [&](const Agency& a) { return a.coid == c->coid && a.stid == 0; }));
  auto list = select(states(), [&](const State& s) { return s.coid == c->coid; });
  w.openArray("stateList", "State", list.size());
  for (const State* s : list) {
    w.openItem("State");
    w.integer("stid", s->stid);
    w.text("stateName", s->name);
    w.text("stateCode", s->code);
    w.close();
  }
  return true;
}

bool agencyInfo(Writer& w, const Request& r) {
  const Agency* a = findBy(agencies(), &Agency::aid, static_cast<int>(r.integer("aid")));
  if (a == nullptr) return false;
  w.open("return", "AgencyInfo");
  w.integer("aid", a->aid);
  w.text("agencyName", a->name);
  w.text("agencyType", a->type);
  w.integer("ctid", a->ctid);
  w.integer("stid", a->stid);
  w.decimal("lat", a->lat);
  w.decimal("lon", a->lon);
  w.decimal("range", a->range);
  w.dateTime("lastUpdated", resolveDate(a->updated));
  categoriesOf(w, 0, a->aid);
  return true;
}

bool trsDetails(Writer& w, const Request& r) {
  const System* s = findBy(systems(), &System::sid, static_cast<int>(r.integer("sid")));
  if (s == nullptr) return false;
  w.open("return", "Trs");
  w.text("sName", s->name);
  w.integer("sType", s->sType);
  w.integer("sFlavor", s->sFlavor);
  w.integer("sVoice", s->sVoice);
  w.text("sCity", s->city);
  w.openArray("sCounty", "ctid", s->ctids.size());
  for (int id : s->ctids) {
    w.openItem("ctid");
    w.integer("ctid", id);
    w.close();
  }
  if (!s->ctids.empty()) w.close();
  w.openArray("sState", "stid", s->stids.size());
  for (int id : s->stids) {
    w.openItem("stid");
    w.integer("stid", id);
    w.close();
  }
  if (!s->stids.empty()) w.close();
  w.text("sCountry", std::to_string(s->coid));
  w.decimal("lat", s->lat);
  w.decimal("lon", s->lon);
  w.decimal("range", s->range);
  w.dateTime("lastUpdated", resolveDate(s->updated));
  if (!s->sysids.empty()) {
    w.openArray("sysid", "trsSysidDef", s->sysids.size());
    for (const Sysid& id : s->sysids) {
      w.openItem("trsSysidDef");
      w.text("sysid", id.sysid);
      w.textOrNil("ct", id.ct);
      w.textOrNil("wacn", id.wacn);
      if (id.model != nullptr) w.text("model", id.model);
      w.close();
    }
    w.close();
  }
  if (!s->bandplan.empty()) bandplanArray(w, s->bandplan);
  if (s->fleetmap.size() == 8) {
    w.open("fleetmap", "TrsFleetmap");
    for (int i = 0; i < 8; ++i) w.text(std::string("b").append(std::to_string(i)), s->fleetmap[i]);
    w.close();
  }
  return true;
}

void siteItem(Writer& w, const Site& s) {
  w.openItem("TrsSite");
  w.integer("siteId", s.siteId);
  w.integer("sid", s.sid);
  w.integer("siteNumber", s.siteNumber);
  w.text("siteDescr", s.descr);
  w.integerOrNil("zoneNumber", s.zoneNumber, -1);
  w.textOrNil("zoneDescr", s.zoneDescr);
  w.integer("rfss", s.rfss);
  w.textOrNil("nac", s.nac);
  w.integer("ran", s.ran);
  w.textOrNil("siteNeighbors", s.neighbors);
  w.textOrNil("siteLocation", s.location);
  w.integer("siteCtid", s.ctid);
  w.nil("siteCt", "xsd:string");
  w.textOrNil("siteModulation", s.modulation);
  w.textOrNil("siteNotes", s.notes);
  w.decimal("lat", s.lat);
  w.decimal("lon", s.lon);
  w.decimal("range", s.range);
  w.openArray("rectangles", "Rectangle", 0);
  w.integer("splinter", s.splinter);
  w.integer("rebanded", s.rebanded);
  w.integer("tdma_cc", s.tdmaCc);
  w.openArray("siteLicenses", "TrsSiteLicense", s.licenses.size());
  for (const char* license : s.licenses) {
    w.openItem("TrsSiteLicense");
    w.text("license", license);
    w.close();
  }
  if (!s.licenses.empty()) w.close();
  w.openArray("siteFreqs", "TrsSiteFreq", s.freqs.size());
  for (const SiteFreq& f : s.freqs) {
    w.openItem("TrsSiteFreq");
    w.integer("lcn", f.lcn);
    w.decimal("freq", std::string_view(f.freq));
    w.textOrNil("use", f.use);
    w.textOrNil("colorCode", f.colorCode);
    w.textOrNil("ch_id", f.chId);
    w.close();
  }
  if (!s.freqs.empty()) w.close();
  bandplanArray(w, s.bandplan);
  w.close();
}

int sidOfCat(int tgCid) {
  const TalkgroupCat* c = findBy(talkgroupCats(), &TalkgroupCat::tgCid, tgCid);
  return c ? c->sid : 0;
}

void talkgroupsReply(Writer& w, const Request& r) {
  const long long sid = r.integer("sid"), cid = r.integer("tgCid");
  const long long tag = r.integer("tgTag"), dec = r.integer("tgDec");
  auto list = select(talkgroups(), [&](const Talkgroup& t) {
    return sidOfCat(t.tgCid) == sid && (cid == 0 || t.tgCid == cid) && (tag == 0 || t.tag == tag) &&
           (dec == 0 || t.tgDec == dec);
  });
  w.openArray("return", "Talkgroup", list.size());
  for (const Talkgroup* t : list) {
    w.openItem("Talkgroup");
    w.integer("tgId", t->tgId);
    w.integer("tgDec", t->tgDec);
    w.textOrNil("tgSubfleet", t->subfleet);
    w.boolean("tgLtr", t->ltr);
    w.textOrNil("tgSlot", t->slot);
    w.text("tgDescr", t->descr);
    w.text("tgAlpha", t->alpha);
    w.text("tgMode", t->mode);
    w.integer("enc", t->enc);
    tagArray(w, t->tag);
    w.integer("tgCid", t->tgCid);
    w.integer("tgSort", t->sort);
    w.dateTime("tgDate", resolveDate(t->date));
    w.close();
  }
}

// A lookup list: all entries for 0, else the one asked for.
template <typename Row, typename Write>
void lookupList(Writer& w, const std::vector<Row>& all, long long id, std::string_view type,
                Write write) {
  auto list = select(all, [&](const Row& row) { return id == 0 || row.id == id; });
  w.openArray("return", type, list.size());
  for (const Row* row : list) {
    w.openItem(type);
    write(*row);
    w.close();
  }
}

using Handler = std::function<bool(Writer&, const Request&)>;

const std::map<std::string_view, Handler>& handlers() {
  static const std::map<std::string_view, Handler> table{
      {"getCountryInfo", countryInfo},
      {"getStateInfo", stateInfo},
      {"getCountyInfo", countyInfo},
      {"getAgencyInfo", agencyInfo},
      {"getTrsDetails", trsDetails},
      {"getZipcodeInfo",
       [](Writer& w, const Request& r) {
         const Zipcode* z =
             findBy(zipcodes(), &Zipcode::zip, static_cast<int>(r.integer("zipcode")));
         if (z == nullptr) return false;
         w.open("return", "ZipInfo");
         w.integer("zipCode", z->zip);
         w.text("lat", z->lat);
         w.text("lon", z->lon);
         w.text("city", z->city);
         w.integer("stid", z->stid);
         w.integer("ctid", z->ctid);
         return true;
       }},
      {"getTrsSites",
       [](Writer& w, const Request& r) {
         auto list = select(sites(), [&](const Site& s) { return s.sid == r.integer("sid"); });
         w.openArray("return", "TrsSite", list.size());
         for (const Site* s : list) siteItem(w, *s);
         return true;
       }},
      {"getTrsTalkgroupCats",
       [](Writer& w, const Request& r) {
         auto list = select(talkgroupCats(),
                            [&](const TalkgroupCat& c) { return c.sid == r.integer("sid"); });
         w.openArray("return", "TalkgroupCat", list.size());
         for (const TalkgroupCat* c : list) {
           w.openItem("TalkgroupCat");
           w.integer("tgCid", c->tgCid);
           w.integer("sid", c->sid);
           w.text("tgCname", c->name);
           w.integer("tgSort", c->sort);
           w.decimal("lat", c->lat);
           w.decimal("lon", c->lon);
           w.decimal("range", c->range);
           w.dateTime("lastUpdated", resolveDate(c->updated));
           w.close();
         }
         return true;
       }},
      {"getTrsTalkgroups",
       [](Writer& w, const Request& r) {
         talkgroupsReply(w, r);
         return true;
       }},
      {"getSubcatFreqs",
       [](Writer& w, const Request& r) {
         freqArray(w, select(frequencies(),
                             [&](const Frequency& f) { return f.scid == r.integer("scid"); }));
         return true;
       }},
      {"getCountyFreqsByTag",
       [](Writer& w, const Request& r) {
         freqArray(w, select(frequencies(), [&](const Frequency& f) {
                     return f.tag == r.integer("tag") && placeOf(f.scid).ctid == r.integer("ctid");
                   }));
         return true;
       }},
      {"searchCountyFreq",
       [](Writer& w, const Request& r) {
         searchHits(w, r, [&](const Place& p) { return p.ctid == r.integer("ctid"); });
         return true;
       }},
      {"searchStateFreq",
       [](Writer& w, const Request& r) {
         searchHits(w, r, [&](const Place& p) { return p.stid == r.integer("stid"); });
         return true;
       }},
      {"getTag",
       [](Writer& w, const Request& r) {
         lookupList(w, tags(), r.integer("id"), "tag", [&](const Lookup& l) {
           w.integer("tagId", l.id);
           w.text("tagDescr", l.text);
         });
         return true;
       }},
      {"getMode",
       [](Writer& w, const Request& r) {
         lookupList(w, modes(), r.integer("mode"), "mode", [&](const Lookup& l) {
           w.integer("mode", l.id);
           w.text("modeName", l.text);
         });
         return true;
       }},
      {"getTrsType",
       [](Writer& w, const Request& r) {
         lookupList(w, trsTypes(), r.integer("id"), "trsTypeDef", [&](const Lookup& l) {
           w.integer("sType", l.id);
           w.text("sTypeDescr", l.text);
         });
         return true;
       }},
      {"getTrsFlavor",
       [](Writer& w, const Request& r) {
         lookupList(w, trsFlavors(), r.integer("id"), "trsFlavorDef", [&](const TypedLookup& l) {
           w.integer("sType", l.sType);
           w.integer("sFlavor", l.id);
           w.text("sFlavorDescr", l.text);
         });
         return true;
       }},
      {"getTrsVoice",
       [](Writer& w, const Request& r) {
         lookupList(w, trsVoices(), r.integer("id"), "trsVoiceDef", [&](const TypedLookup& l) {
           w.integer("sType", l.sType);
           w.integer("sVoice", l.id);
           w.text("sVoiceDescr", l.text);
         });
         return true;
       }},
      {"getMetroArea",
       [](Writer& w, const Request& r) {
         lookupList(w, metroAreas(), r.integer("mid"), "Metro", [&](const Lookup& l) {
           w.integer("mid", l.id);
           w.text("metroName", l.text);
         });
         return true;
       }},
      {"getCountryList",
       [](Writer& w, const Request&) {
         w.openArray("return", "Country", countries().size());
         for (const Country& c : countries()) {
           w.openItem("Country");
           w.integer("coid", c.coid);
           w.text("countryName", c.name);
           w.text("countryCode", c.code);
           w.close();
         }
         return true;
       }},
  };
  return table;
}

}  // namespace

DatasetAnswer datasetAnswer(std::string_view op, const Request& request, std::string_view ns,
                            std::string_view element) {
  DatasetAnswer answer;
  auto it = handlers().find(op);
  if (it == handlers().end()) {
    answer.notFound = "The operation " + std::string(op) + " is not available.";
    return answer;
  }
  Writer w(ns, element);
  if (!it->second(w, request)) {
    std::string key = request.params.empty() ? "" : request.params.front().first;
    answer.notFound = "No record for " + key + " " + request.value(key) + ".";
    return answer;
  }
  answer.found = true;
  answer.body = w.finish();
  return answer;
}

std::string userDataReply(std::string_view ns, std::string_view element, std::string_view username,
                          std::string_view expires) {
  Writer w(ns, element);
  w.open("return", "UserInfo");
  w.text("username", username);
  w.text("subExpireDate", expires);
  return w.finish();
}

}  // namespace zel::sim::rrsim

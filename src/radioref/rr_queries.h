#pragma once
// One procedure for each operation the suite calls. Each selects its operation, sends its
// parameters in order with authInfo behind them, and copies the reply into its table by
// field name. A call replaces its table whole; a failed call leaves it empty. Only the
// lookup lists that a login fetches live across calls.
#include <string>
#include <vector>

#include "radioref/rr_records.h"
#include "radioref/soap_client.h"

namespace zel::radioref {

// How a login ended; `statusText` is what the status bar shows.
struct LoginOutcome {
  enum class Result { LoggedIn, InitFailed, NoUserData, NoResponse };
  Result result = Result::NoResponse;
  std::string statusText;
  std::string expiry;  // subExpireDate when logged in
};

class RRQueries {
 public:
  explicit RRQueries(SoapClient& client) : client_(client) {}

  // The login: the service description at the first login of a run, getUserData, then the
  // lookup lists (flavors, types, voices, modes, tags, metro areas), each asked with 0.
  LoginOutcome login(const std::string& user, const std::string& password);

  bool getUserData();
  void getTrsFlavor(int id = 0);
  void getTrsType(int id = 0);
  void getTrsVoice(int id = 0);
  void getMode(int mode = 0);
  void getTag(int id = 0);
  void getMetroArea(int mid = 0);
  void getCountryInfo(int coid);
  void getStateInfo(int stid);
  void getCountyInfo(int ctid);
  void getAgencyInfo(int aid);
  void getSubcatFreqs(int scid);
  void searchCountyFreq(int ctid, double freq, const std::string& tone);
  void searchStateFreq(int stid, double freq, const std::string& tone);
  void getCountyFreqsByTag(int ctid, int tag);
  void getZipcodeInfo(int zipcode);
  void getTrsSites(int sid);
  void getTrsDetails(int sid);
  void getTrsTalkgroupCats(int sid);
  void getTrsTalkgroups(int sid, int tgCid, int tgTag, int tgDec);

  // The tables, read by the windows straight after a call.
  RRUserData userData;
  std::vector<RRFlavor> flavors;
  std::vector<RRLookup> trsTypes;
  std::vector<RRVoice> voices;
  std::vector<RRLookup> modes;
  std::vector<RRLookup> tags;
  std::vector<RRLookup> metroAreas;
  RRCountryInfo countryInfo;
  RRState stateInfo;
  RRCounty countyInfo;
  RRAgency agencyInfo;
  std::vector<RRFrequency> subcatFreqs;
  std::vector<RRSearchHit> searchHits;
  std::vector<RRFrequency> countyFreqsByTag;
  RRZipcode zipcode;
  std::vector<RRSite> trsSites;
  RRSystemDetails trsDetails;
  std::vector<RRTalkgroupCat> talkgroupCats;
  std::vector<RRTalkgroup> talkgroups;

  SoapClient& client() { return client_; }

 private:
  SoapCallResult call(int index, std::vector<SoapParam> params);

  SoapClient& client_;
};

// The status texts of a login, word for word.
inline constexpr std::string_view kInitNotOk = "INIT not ok, check firewall settings.";
inline constexpr std::string_view kNoUserData = "INIT not ok, can't read user data.";
inline constexpr std::string_view kSubscriptionExpires = "Subscription expires on: ";
inline constexpr std::string_view kNoResponse = "No Response From Web Service.";

}  // namespace zel::radioref

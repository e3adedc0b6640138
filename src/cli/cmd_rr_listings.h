// The listings `zel rr` prints for each kind of reply, each record with its own id first.
#pragma once

#include <vector>

#include "cli/rr_listing.h"
#include "radioref/rr_queries.h"

namespace zel::cli {

Listing countryListing(int coid, const radioref::RRCountryInfo& info);
Listing stateListing(const radioref::RRState& state);
Listing countyListing(const radioref::RRCounty& county);
Listing agencyListing(const radioref::RRAgency& agency);
// Details, sites with their frequencies, talkgroup categories: from the queries' tables.
Listing systemListing(int sid, const radioref::RRQueries& q);
Listing frequencyListing(const char* idName, int id, const std::vector<radioref::RRFrequency>& rows);
Listing talkgroupListing(int sid, const std::vector<radioref::RRTalkgroup>& rows);
Listing searchListing(const std::vector<radioref::RRSearchHit>& hits);
Listing zipListing(const radioref::RRZipcode& zip);

}  // namespace zel::cli

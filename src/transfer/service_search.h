// The prepared Service Search lists: one conventional system per service, each channel a
// C-Freq line of a level 3 file, built from the public band plans of the service.
//
//   Conventional<TAB><TAB><TAB>CB Radio<TAB>Off<TAB><TAB>Conventional<TAB>Off ...
//   C-Group<TAB><TAB><TAB>CB 1-40<TAB>Off<TAB>0.000000<TAB>-0.000000<TAB>0.0<TAB>Circle ...
//   C-Freq<TAB><TAB><TAB>CB 19<TAB>Off<TAB>27185000<TAB>AM<TAB><TAB>21<TAB>Off<TAB>2 ...
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zel::transfer {

struct ServiceSearchList {
  std::string caption;   // the button: "CB", "FRS", ..., "AIR 118-136"
  std::string fileName;  // "cb.hpd", ..., "Airband.hpd"
  std::string key;       // the command line's word: cb, frs, gmrs, marine, ...
  int channels = 0;
  std::string text;  // the HPD file, CR LF ended
};

// The eight lists in button order (index 0 to 7); "Public Safety" has none.
const std::vector<ServiceSearchList>& serviceSearchLists();
const ServiceSearchList* findServiceSearch(const std::string& key);

// The file behind Service Search button `index` (0 to 7): the prepared file of that name in
// `folder` (the data folder's "ServiceSearch") when it is there, so that a user's own
// edit of it is what goes to the card, else the list built in. Nothing for index 8
// ("Public Safety") or an index out of range.
std::optional<std::string> serviceSearchText(const std::string& folder, int index);

}  // namespace zel::transfer

// The frequencies of a trunked site: the TFQ children of its node, one row each, in the
// columns of the site grid. Each line is kept in step with its copy in the flat frequency
// tree.
//
//   TFQ,851.900000,1,Srch          Frequency 851.900000  LCN 1  ColorCode Srch
//   TFQ,452.550000,3,,RAN=5        (NXDN)                       RAN RAN=5
#pragma once

#include "ui/record_grid.h"

namespace zel::ui {

class SiteFrequencyGrid : public RecordGrid {
  Q_OBJECT

 public:
  SiteFrequencyGrid(Document& document, Feedback& feedback, GridSetup setup,
                    cell::FrequencyRules frequency, QWidget* parent = nullptr);
  // Shows the frequencies of the site keyed `siteKey` ("" for none).
  void showSite(const std::string& siteKey) { load(siteKey); }
};

// The key of a new frequency of a site: the lowest number that neither tree uses yet, or
// "" when the site has 999.
std::string nextSiteFrequencyKey(const Document& document, const std::string& siteKey);

}  // namespace zel::ui

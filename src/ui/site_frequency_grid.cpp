#include "ui/site_frequency_grid.h"

#include "core/document.h"
#include "core/keys.h"
#include "core/tree_operations.h"

namespace zel::ui {

namespace {
constexpr int kMaxSiteFrequencies = 999;

RecordGridShape siteSpec(Document& document, cell::FrequencyRules frequency) {
  RecordGridShape shape;
  shape.setup = setup_fgrid;
  shape.schema = Schema::Site;
  shape.fields = {{"Frequency", 1}, {"LCN", 2}, {"ColorCode", 3}, {"RAN", 4}};
  shape.identityHeading = "Frequency";
  shape.childPrefix = "TFQ-";
  shape.newKey = nextSiteFrequencyKey;
  shape.newLine = [](const std::string& frequency) { return "TFQ," + frequency; };
  // The flat tree holds a copy of every site frequency line.
  shape.added = [&document](const std::string& key) {
    document.frequencies.add({}, key, treemod::getText(document.data, key));
  };
  shape.changed = [&document](const std::string& key, int field, const std::string& value) {
    if (!document.frequencies.contains(key)) {
      document.frequencies.add({}, key, treemod::getText(document.data, key));
      return;
    }
    treemod::setField(document.frequencies, key, field, value);
  };
  shape.removed = [&document](const std::string& key) {
    treemod::removeNode(document.frequencies, key);
  };
  shape.frequency = frequency;
  return shape;
}

}  // namespace

std::string nextSiteFrequencyKey(const Document& document, const std::string& siteKey) {
  const int system = keys::systemOf(siteKey);
  const int site = keys::siteOf(siteKey);
  if (system <= 0 || site <= 0) return {};
  for (int n = 1; n <= kMaxSiteFrequencies; ++n) {
    std::string key = keys::siteFrequency(system, site, n);
    if (!document.data.contains(key) && !document.frequencies.contains(key)) return key;
  }
  return {};
}

SiteFrequencyGrid::SiteFrequencyGrid(Document& document, Feedback& feedback, GridSetup setup,
                                     cell::FrequencyRules frequency, QWidget* parent)
    : RecordGrid(document, feedback, siteSpec(document, frequency), setup, parent) {
  setObjectName("siteFrequencyGrid");
  model()->setRule(
      "Frequency",
      [frequency](std::string_view typed) { return rules::siteFrequency(typed, frequency); },
      tr("A site frequency is a number in MHz, such as 851.0125."));
  model()->setRule("ColorCode", rules::colourCode,
                   tr("A colour code is Srch or a number from 0 to 15."));
  model()->setRule("RAN", rules::ran, tr("A RAN is Srch or a number from 0 to 63."));
}

}  // namespace zel::ui

// The import window's Import button (Command2): which builder runs, with the ticked rows,
// and the main window told of the new system. The builders refuse in their own words.
#include <QButtonGroup>
#include <QComboBox>
#include <QLineEdit>

#include "formats/row_store.h"
#include "ui/qt_feedback.h"
#include "ui/rr_import_window.h"

namespace zel::ui {

using namespace radioref;

void RRImportWindow::importSelected() {
  if (busy_) return;
  const bool noChoice = system_cbo_->currentIndex() <= 0 || county_cbo_->currentIndex() <= 0 ||
                        system_cbo_->currentText().contains(">  Select") ||
                        county_cbo_->currentText().contains(">  Select");
  if (noChoice) {
    feedback_.beep();
    setStatus("Select a county and a system first.");
    return;
  }
  readOptions();
  if (RRListType(typeOpt_->checkedId()) == RRListType::Trunk)
    importTrunk();
  else
    importConventional();
}

void RRImportWindow::importConventional() {
  // The builder refuses an empty selection and a full tree in its own words.
  std::vector<ConvRow> rows;
  for (ConvRow& r : conventionalList())
    if (r.ticked) rows.push_back(std::move(r));
  emit documentNeeded();
  formats::PageFileRows store(session_.pages());
  const ImportResult r = maak_detemp245(ImportTarget{session_.document(), store, feedback_, 0},
                                        toLatin1(systemName_->text()), rows, options_);
  if (!r.ok) return;
  setStatus(QString("Done: %1 channels in %2 departments.").arg(r.channels).arg(r.departments));
  emit documentChanged(QString::fromStdString(r.systemKey));
}

void RRImportWindow::importTrunk() {
  if (!trunkLoaded_) {
    feedback_.beep();
    return;
  }
  std::vector<SiteRow> sites;
  for (SiteRow& s : siteList())
    if (s.ticked) sites.push_back(std::move(s));
  // The builder refuses no site, no talkgroup type, a type this scanner cannot hold and a
  // full tree, and warns of an EDACS or LTR system over more than one site, in its own words.
  std::vector<TalkgroupRow> talkgroups;
  for (TalkgroupRow& t : talkgroupList())
    if (t.ticked) talkgroups.push_back(std::move(t));
  emit documentNeeded();
  formats::PageFileRows store(session_.pages());
  TrunkImport input{trunk_, talkgroups, sites, [this](int ctid) -> std::optional<RRCounty> {
                      if (ctid <= 0 || !beginCall()) return std::nullopt;
                      rr_->getCountyInfo(ctid);
                      endCall();
                      if (rr_->countyInfo.ctid != ctid) return std::nullopt;
                      return rr_->countyInfo;
                    }};
  waitStatus(2);
  const ImportResult r =
      importTrunked(ImportTarget{session_.document(), store, feedback_, 0}, input, options_);
  if (!r.ok) {
    setStatus({});
    return;
  }
  setStatus(QString("Done: %1 talkgroups, %2 sites.").arg(r.channels).arg(r.sites));
  emit documentChanged(QString::fromStdString(r.systemKey));
}

}  // namespace zel::ui

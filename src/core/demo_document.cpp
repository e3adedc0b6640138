#include "core/demo_document.h"

#include "core/keys.h"
#include "core/new_commands.h"
#include "core/tree_operations.h"

namespace zel {

void buildDemoDocument(Document& doc, PageFiles& pages, Feedback& feedback) {
  auto conv = newSystem(doc, "New Conventional System", feedback);
  if (!conv.ok) return;
  const int c = keys::systemOf(conv.key);
  treemod::setField(doc.data, conv.key, 4, "Demo County Conventional");
  treemod::setField(doc.data, keys::department(c, 1), 4, "Fire");
  auto ems = newDepartment(doc, c, feedback);
  treemod::setField(doc.data, ems.key, 4, "EMS");
  pages.save(keys::department(c, 1),
             {"1,154.265000,Fire Dispatch,Off,NFM,CTCSS,118.8,Fire Dispatch,Off,2,0,Off,Auto,Off,On,Off,Off",
              "2,154.295000,Fire Tac 2,Off,NFM,CTCSS,118.8,Fire-Tac,Off,2,0,Off,Auto,Off,On,Off,Off",
              "3,153.830000,Fireground,Off,NFM,All,,Fire-Tac,Off,2,0,Off,Auto,Off,On,Off,Off"});
  pages.save(ems.key,
             {"1,155.340000,EMS Dispatch,Off,FM,DCS,023,EMS Dispatch,Off,2,0,Off,Auto,Off,On,Off,Off",
              "2,462.950000,Med 1,Off,NFM,All,,EMS-Tac,Off,2,0,Off,Auto,Off,On,Off,Off"});

  auto p25 = newSystem(doc, "New P25 Trunk System", feedback);
  if (!p25.ok) return;
  const int t = keys::systemOf(p25.key);
  treemod::setField(doc.data, p25.key, 4, "Demo Regional P25");
  auto site = newSite(doc, t, feedback);
  treemod::setField(doc.data, site.key, 4, "Simulcast Cell");
  doc.data.add(site.key, keys::siteFrequency(t, 1, 1), "TFQ,851.012500,1,");
  doc.data.add(site.key, keys::siteFrequency(t, 1, 2), "TFQ,851.287500,2,");
  treemod::setField(doc.data, keys::department(t, 1), 4, "Law Enforcement");
  pages.save(keys::department(t, 1),
             {"1,1001,PD Dispatch,Off,Digital,Law Dispatch,2,0,Off,Auto,Off,On,Off,Off,Any",
              "2,1002,PD Tac,Off,Digital,Law Tac,2,0,Off,Auto,Off,On,Off,Off,Any"});
  rebuildVisibleTree(doc);
  doc.changed = false;
}

}  // namespace zel

#include "exchange/print_report.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"
#include "core/new_commands.h"
#include "core/tree_operations.h"

namespace zel::exchange {
namespace {

// A P25 system with a site frequency and a talkgroup department, and a conventional system
// whose second department is empty.
struct TwoSystems {
  Document doc;
  formats::MemoryRows rows;
  RecordingFeedback feedback;
  TwoSystems() {
    newSystem(doc, "New P25 Trunk System", feedback);
    newSite(doc, 1, feedback);
    doc.data.add("SIT-001-001", "TFQ-001-001-001", "TFQ,851.012500,1,Srch");
    rows.append(
        "GRP-999-001-001",
        {"1,1001,Fire <Main> & \"Ops\" 2,Off,All,Fire Dispatch,2,0,Off,Auto,Off,On,5,Off,Any"});
    newSystem(doc, "New Conventional System", feedback);
    newDepartment(doc, 2, feedback);
    rows.append(
        "GRP-999-002-001",
        {"1,154.280000,Tower,On,NFM,CTCSS,123.0,Fire Dispatch,Off,2,0,Off,Auto,Off,On,7,Off"});
  }
};

std::size_t count(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

TEST(PrintReport, EachKindOfDepartmentGetsItsOwnColumnsAndTextIsEscaped) {
  TwoSystems t;
  const std::string html = favoritesReport(t.doc, t.rows, {});
  EXPECT_NE(html.find("<h1>Favorites</h1>"), std::string::npos);
  EXPECT_NE(html.find("<h2>New P25 System</h2>"), std::string::npos);
  EXPECT_NE(html.find("Site: A New Site: 851.012500</p>"), std::string::npos);
  EXPECT_NE(html.find("<th>Talkgroup</th><th>Alpha Tag</th><th>Avoid</th><th>AudioType</th>"),
            std::string::npos);
  EXPECT_NE(html.find("<td>1001</td><td>Fire &lt;Main&gt; &amp; &quot;Ops&quot; 2</td><td>Off</td>"),
            std::string::npos);
  EXPECT_NE(html.find("<th>Frequency</th><th>Alpha Tag</th><th>Avoid</th><th>Mode</th>"),
            std::string::npos);
  // Frequency, tag, avoid, mode, the tone, the service, then number tag and priority.
  EXPECT_NE(html.find("<td>154.280000</td><td>Tower</td><td>On</td><td>NFM</td><td>CTCSS</td>"
                      "<td>123.0</td><td>Fire Dispatch</td><td>7</td><td>Off</td>"),
            std::string::npos);
  EXPECT_EQ(count(html, "<p class=kind>No channels.</p>"), 1u);  // the empty department
  EXPECT_EQ(count(html, "<table>"), 2u);
}

TEST(PrintReport, OneSystemAndTheNarrowerFamily) {
  TwoSystems t;
  ReportOptions options;
  options.system = 2;
  options.title = "County & City";
  std::string html = favoritesReport(t.doc, t.rows, options);
  EXPECT_NE(html.find("<title>County &amp; City</title>"), std::string::npos);
  EXPECT_EQ(html.find("New P25 System"), std::string::npos);
  EXPECT_NE(html.find("<td>Tower</td>"), std::string::npos);

  // The HomePatrol family's grid has no number tag or priority: neither is printed.
  t.doc.family = ScannerFamily::HP;
  html = favoritesReport(t.doc, t.rows, options);
  EXPECT_EQ(html.find("NumberTag"), std::string::npos);
  EXPECT_NE(html.find("<td>Fire Dispatch</td></tr>"), std::string::npos);
}

}  // namespace
}  // namespace zel::exchange

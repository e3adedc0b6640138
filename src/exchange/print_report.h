// The printed form of the favorites: an HTML page that the window prints and `zel hpd report`
// writes. Systems in tree order, each with its sites and their frequencies, then each
// department with a table of its channels or talkgroups in the grid's order.
//
//   <h2>Metro P25</h2>  <p class=kind>P25 Standard</p>
//   <p class=site>Simulcast: 851.012500, 851.512500</p>
//   <h3>Fire</h3> <table> Talkgroup | Alpha Tag | Avoid | AudioType | Service Type | ... </table>
//
// Text is the document's own (8-bit, as the files hold it); the page says so in its head.
#pragma once

#include <string>

#include "core/document.h"
#include "core/page_files.h"
#include "formats/row_store.h"

namespace zel::exchange {

struct ReportOptions {
  int system = 0;     // one system by number; 0 prints every system
  std::string title;  // the page's heading; empty gives "Favorites"
};

std::string favoritesReport(const Document& doc, const formats::RowStore& rows,
                            const ReportOptions& options);

}  // namespace zel::exchange

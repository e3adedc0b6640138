// The pane of the selected node in the main window: one form a node kind, stacked, the one
// of the node on show in front. Systems, sites and departments are edited here with their
// parts that the tree does not show: fleet maps and unit IDs under the system, frequencies
// and band plans under the site.
//
//   key             form              tab
//   SYS-sss         system            System
//   FMP-sss-000     system            Fleet map
//   UID-sss-001     system            Unit IDs
//   SIT-sss-nnn     site              Site
//   MCP-sss-nnn     site nnn          Band plan
//   GRP-999-sss-nnn department
//   anything else   a short note
//
// Every edit reaches the record line at once through the set-field operation and marks the
// document changed; storeNode() only takes in an edit still open when the selection moves.
#pragma once

#include <QStackedWidget>
#include <string>
#include <string_view>

#include "core/ports.h"
#include "grid/grid_setup.h"

class QLabel;

namespace zel {
class Session;
}

namespace zel::ui {

class SystemForm;
class SiteForm;
class DepartmentForm;

class NodePane : public QStackedWidget {
  Q_OBJECT

 public:
  NodePane(Session& session, Feedback& feedback, QWidget* parent = nullptr);

  // Shows the node keyed `key`; `kind` is the selection's kind word ("SYSTEM", "SITE",
  // "GROUP", "UID", "FAV"), used when the key alone does not tell.
  void showNode(std::string_view key, std::string_view kind);
  // Writes an edit that is still open in the pane to its record.
  void storeNode();
  const std::string& shownKey() const { return key_; }
  // The room of the page on show, not of the largest page.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  SystemForm* systemForm() const { return system_; }
  SiteForm* siteForm() const { return site_; }
  DepartmentForm* departmentForm() const { return department_; }

 signals:
  // The name of the node keyed `key` changed: the tree shows its caption again. The
  // document's visible tree already holds the new caption.
  void captionChanged(QString key);

 private:
  void onNameStored(const QString& key);
  void fitToCurrent();

  Session& session_;
  Feedback& feedback_;
  ColumnWidthTable widths_;
  QLabel* empty_ = nullptr;
  SystemForm* system_ = nullptr;
  SiteForm* site_ = nullptr;
  DepartmentForm* department_ = nullptr;
  std::string key_;
};

}  // namespace zel::ui

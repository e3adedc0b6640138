// The RadioReference import window `FrmImportRR`: log in, walk down from country to state to
// county, agency or trunked system, tick categories, subcategories, sites and talkgroup
// categories, and import what is ticked into the document as a new system.
//
// The window is split by concern:
//   rr_import_window.cpp        the shell, the login, the walk down, the zip code, settings
//   rr_import_commands.cpp      the import button
//   rr_import_lists.cpp         the category trees and the lists of rows
//   rr_import_options_page.cpp  the options, service tags, Led table and update tabs
//   rr_import_password.cpp      where the password is kept (keychain or settings)
//
// Every call to the service blocks its caller while QtHttpTransport runs a local event loop,
// so the window repaints and Timer5 counts; handlers refuse to start while a call runs.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "radioref/http_transport.h"
#include "radioref/rr_import.h"
#include "radioref/rr_queries.h"
#include "radioref/soap_client.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QTimer;
class QTreeWidget;
class QTreeWidgetItem;

namespace zel::ui {

// Values given for one run of the application (never written into the settings): the
// demo's end point with its account.
struct RRImportPreset {
  std::string endpoint;
  std::string user;
  std::string password;
  std::string appKey;
};

// Which list CboSystem shows.
enum class RRListType { Trunk = 0, Conventional = 1, Agency = 2, Nationwide = 3 };

class RRImportWindow : public QMainWindow {
  Q_OBJECT

 public:
  struct Setup {
    // Null: the window makes its own QtHttpTransport.
    radioref::HttpTransport* http = nullptr;
    std::optional<RRImportPreset> preset;
    // False keeps the password away from the system's keychain (tests; also when the
    // environment holds ZEL_NO_KEYCHAIN=1).
    bool useKeychain = true;
  };

  RRImportWindow(Session& session, Feedback& feedback, Setup setup, QWidget* parent = nullptr);
  ~RRImportWindow() override;

  // LogInBtn.
  void login();
  // Command2.
  void importSelected();
  // The text of lbl_status.
  QString statusText() const;
  radioref::RRQueries& queries() { return *rr_; }
  radioref::SoapClient& client() { return *client_; }
  const radioref::ImportOptions& options() const { return options_; }
  // The rows of the lists in list order, with their ticks as the lists show them.
  std::vector<radioref::ConvRow> conventionalList() const;
  std::vector<radioref::TalkgroupRow> talkgroupList() const;
  std::vector<radioref::SiteRow> siteList() const;
  // Chooses `type` in TypeOpt, as a click on it does.
  void chooseListType(RRListType type);

 signals:
  // The document is about to change: the main window stores what it has on show.
  void documentNeeded();
  // A system was imported: the main window shows its tree again.
  void documentChanged(const QString& systemKey);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // ---- shell (rr_import_window.cpp) ----
  void build();
  QWidget* buildLoginTab();
  QWidget* buildLocationBox();
  QWidget* buildBottom();
  void buildMenus();
  void setUpClient();
  void loadSettings();
  void saveSettings();
  void setStatus(const QString& text);
  void waitStatus(int dots);
  void done();
  bool beginCall();
  void endCall();
  void onTimer5();
  // the walk down
  void onCountry(int index);
  void onState(int index);
  void onCounty(int index);
  void onSystem(int index);
  void onListType();
  void fillSystemCombo();
  void showCategories(const std::vector<radioref::RRCategory>& cats);
  void selectTrunkSystem(const radioref::RRSystemRef& ref);
  void onZipCode();
  void onAddressSearch();
  bool chooseByData(QComboBox* combo, int id);
  void clearLists();
  void clearTrunkLists();
  void importConventional();
  void importTrunk();
  std::string todayText() const;

  // ---- lists and trees (rr_import_lists.cpp) ----
  QWidget* buildConventionalTab();
  QWidget* buildTrunkTab();
  QWidget* buildDetailsBox();
  void fillCategoryTree(const std::vector<radioref::RRCategory>& cats);
  void onCategoryItemChanged(QTreeWidgetItem* item, int column);
  void onTalkgroupItemChanged(QTreeWidgetItem* item, int column);
  void restoreCaption(QTreeWidgetItem* item);
  void untickQuietly(QTreeWidgetItem* item);
  void fetchSubcat(QTreeWidgetItem* item);
  void fetchTalkgroups(QTreeWidgetItem* item);
  void refillConventional();
  void refillTalkgroups();
  void fillTrunkSystem();
  void selectSupportedOnly();
  void updateUnsupportedMark();

  // ---- options, tags, updates (rr_import_options_page.cpp) ----
  QWidget* buildServiceTagsTab();
  QWidget* buildOptionsTab();
  QWidget* buildUpdatesTab();
  void showOptions();
  void readOptions();
  void refreshServiceCounts();
  void refreshUpdates();
  void applyServiceFilter();
  void checkFiltersAtLoad();
  void serviceCheck();
  bool allServiceTagsOff() const;

  // ---- password (rr_import_password.cpp) ----
  std::string loadPassword() const;
  void savePassword(const std::string& password);

  Session& session_;
  Feedback& feedback_;
  Setup setup_;
  std::unique_ptr<radioref::HttpTransport> ownHttp_;
  std::unique_ptr<radioref::SoapClient> client_;
  std::unique_ptr<radioref::RRQueries> rr_;
  radioref::ImportOptions options_;

  // What the walk has reached.
  radioref::RRCountryInfo country_;
  radioref::RRState state_;
  radioref::RRCounty county_;
  bool statewide_ = false;
  std::vector<radioref::RRSystemRef> systems_;      // CboSystem's trunked entries
  std::vector<radioref::RRAgencyRef> agencies_;     // CboSystem's agency entries
  std::string locationName_;                        // the county or agency on show
  std::map<int, radioref::RRCategory> categoryOf_;  // scid -> its category (with subcats)
  radioref::TrunkSystem trunk_;
  bool trunkLoaded_ = false;

  // The replies of the ticked nodes, so that a changed filter can fill the lists again.
  std::map<int, std::vector<radioref::RRFrequency>> subcatFreqs_;         // scid
  std::map<int, std::vector<radioref::RRTalkgroup>> categoryTalkgroups_;  // tgCid
  std::vector<int> subcatOrder_;                          // in the order they were ticked
  std::vector<int> categoryOrder_;                        // tgCid, in the order they were ticked
  std::map<std::string, radioref::ConvRow> convRows_;     // "cvfr-..." -> row
  std::map<std::string, radioref::TalkgroupRow> tgRows_;  // "tgr-..." -> row
  std::map<std::string, bool> ticks_;                     // row key -> the tick the user gave it

  bool busy_ = false;
  bool filling_ = false;
  int timer5Ticks_ = 0;
  std::string loggedInUser_;

  // widgets
  QTabWidget* tabs_ = nullptr;
  QLineEdit* user_ = nullptr;
  QLineEdit* pass_ = nullptr;
  QLineEdit* appKey_ = nullptr;
  QPushButton* loginBtn_ = nullptr;
  QCheckBox* debug_ = nullptr;
  QComboBox* country_cbo_ = nullptr;
  QComboBox* state_cbo_ = nullptr;
  QComboBox* county_cbo_ = nullptr;
  QComboBox* system_cbo_ = nullptr;
  QLabel* countyLabel_ = nullptr;
  QButtonGroup* typeOpt_ = nullptr;
  QLineEdit* zip_ = nullptr;
  QLineEdit* address_ = nullptr;
  QPushButton* addressBtn_ = nullptr;
  QLineEdit* systemName_ = nullptr;
  QLabel* status_ = nullptr;
  QLabel* expiry_ = nullptr;
  QProgressBar* progress1_ = nullptr;
  QProgressBar* progress2_ = nullptr;
  QPushButton* importBtn_ = nullptr;
  QTimer* timer5_ = nullptr;
  QTreeWidget* tv1_ = nullptr;
  QTreeWidget* tv2_ = nullptr;
  QTreeWidget* list1_ = nullptr;  // talkgroups
  QTreeWidget* list2_ = nullptr;  // site frequencies
  QTreeWidget* list3_ = nullptr;  // conventional frequencies
  QTreeWidget* list4_ = nullptr;  // sites
  QTreeWidget* list5_ = nullptr;  // service tags of the filter
  QTreeWidget* list6_ = nullptr;  // updates
  QTreeWidget* list7_ = nullptr;  // service tags of the loaded rows
  QLabel* unsupported_ = nullptr;
  QPushButton* selSupported_ = nullptr;
  std::map<std::string, QLabel*> details_;  // "System ID:" -> value label
  QTreeWidget* bandPlan_ = nullptr;
  // options
  std::map<std::string, QCheckBox*> checks_;  // settings key -> box
  QCheckBox* serviceFilter_ = nullptr;
  QComboBox* updatedDays_ = nullptr;
  QComboBox* untagConv_ = nullptr;
  QComboBox* untagTrunk_ = nullptr;
  struct LedRow {
    QCheckBox* enabled;
    QComboBox* service;
    QComboBox* color;
    QComboBox* pattern;
  };
  std::vector<LedRow> leds_;
};

// "United States" and the other countries the service knows, with their coid.
struct RRCountry {
  int coid;
  const char* name;
};
const std::vector<RRCountry>& rrCountries();

}  // namespace zel::ui

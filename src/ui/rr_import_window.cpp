// The import window's shell: its tabs, the login, the walk down from country to system,
// the zip code and address jumps, the import button and the settings of the window.
#include "ui/rr_import_window.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDate>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <filesystem>
#include <fstream>

#include "platform/qt_http_transport.h"
#include "radioref/rr_readers.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace fs = std::filesystem;
using namespace radioref;

namespace {

// The window's own settings, and the service's (shared with the command line).
constexpr const char* kSection = "rrimport";
constexpr const char* kService = "radioref";
constexpr const char* kDefaultEndpoint = "https://api.radioreference.com/soap2/";
constexpr const char* kSelect = ">>>  Select  <<<";

std::string withSlash(std::string url) {
  if (!url.empty() && url.back() != '/') url += '/';
  return url;
}

// The postal code of a geocoding reply: the "<short_name>" of the component whose type is
// postal_code.
std::string postalCodeOf(const std::string& xml) {
  const auto type = xml.find("<type>postal_code</type>");
  if (type == std::string::npos) return {};
  const auto open = xml.rfind("<short_name>", type);
  if (open == std::string::npos) return {};
  const auto begin = open + std::string_view("<short_name>").size();
  const auto end = xml.find("</short_name>", begin);
  return end == std::string::npos || end > type ? std::string() : xml.substr(begin, end - begin);
}

}  // namespace

const std::vector<RRCountry>& rrCountries() {
  static const std::vector<RRCountry> v{{1, "United States"}, {2, "Canada"}};
  return v;
}

RRImportWindow::RRImportWindow(Session& session, Feedback& feedback, Setup setup, QWidget* parent)
    : QMainWindow(parent), session_(session), feedback_(feedback), setup_(std::move(setup)) {
  setObjectName("FrmImportRR");
  setWindowTitle("Import from RadioReference");
  if (qEnvironmentVariable("ZEL_NO_KEYCHAIN") == "1") setup_.useKeychain = false;
  options_ = ImportOptions::load(session_.settingsCodec());
  setUpClient();
  build();
  loadSettings();
  showOptions();
  checkFiltersAtLoad();
}

RRImportWindow::~RRImportWindow() = default;

void RRImportWindow::setUpClient() {
  Settings& settings = session_.settingsCodec();
  if (!setup_.http) {
    ownHttp_ = std::make_unique<QtHttpTransport>();
    setup_.http = ownHttp_.get();
  }
  client_ = std::make_unique<SoapClient>(*setup_.http, feedback_, session_.clock());
  auto& c = *client_;
  const fs::path documents = fs::path(session_.folders().data).parent_path();
  c.documentsFolder = documents.string();
  c.WorkFolder = (documents / "torvosoap" / "ZEL536").string();
  const std::string endpoint = setup_.preset && !setup_.preset->endpoint.empty()
                                   ? setup_.preset->endpoint
                                   : settings.getPlain(kService, "endpoint", kDefaultEndpoint);
  c.BaseUrl = withSlash(endpoint);
  c.appKeySetting = settings.getPlain(kService, "appkey", "");
  c.versionSetting = settings.getPlain(kService, "version", "15");
  c.onInvalidLogin = [this] {
    user_->clear();
    pass_->clear();
  };
  rr_ = std::make_unique<RRQueries>(c);
}

void RRImportWindow::build() {
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  tabs_ = new QTabWidget(central);
  tabs_->setObjectName("SSTab1");
  tabs_->addTab(buildLoginTab(), "Login && Location");
  tabs_->addTab(buildConventionalTab(), "Conventional");
  tabs_->addTab(buildTrunkTab(), "Trunked");
  tabs_->addTab(buildServiceTagsTab(), "Service Tags");
  tabs_->addTab(buildOptionsTab(), "Options");
  tabs_->addTab(buildUpdatesTab(), "Updates");
  layout->addWidget(tabs_, 1);
  layout->addWidget(buildBottom());
  setCentralWidget(central);
  buildMenus();

  auto* bar = new QStatusBar(this);
  bar->setObjectName("StatusBar1");
  expiry_ = new QLabel(bar);
  expiry_->setObjectName("StatusBar1_expiry");
  bar->addPermanentWidget(expiry_);
  progress2_ = new QProgressBar(bar);
  progress2_->setObjectName("ProgressBar2");
  progress2_->setMaximumWidth(160);
  progress2_->setTextVisible(false);
  progress2_->setRange(0, 0);
  progress2_->setVisible(false);
  bar->addPermanentWidget(progress2_);
  setStatusBar(bar);

  timer5_ = new QTimer(this);
  timer5_->setObjectName("Timer5");
  timer5_->setInterval(1000);
  connect(timer5_, &QTimer::timeout, this, [this] { onTimer5(); });
  resize(1100, 720);
}

QWidget* RRImportWindow::buildLoginTab() {
  auto* page = new QWidget;
  auto* layout = new QHBoxLayout(page);

  auto* account = new QGroupBox("RadioReference Account", page);
  auto* form = new QFormLayout(account);
  user_ = new QLineEdit(account);
  user_->setObjectName("UNameTxt");
  form->addRow("User Name:", user_);
  pass_ = new QLineEdit(account);
  pass_->setObjectName("UPassTxt");
  pass_->setEchoMode(QLineEdit::Password);
  form->addRow("Password:", pass_);
  appKey_ = new QLineEdit(account);
  appKey_->setObjectName("AppKeyTxt");
  appKey_->setToolTip("The application key the service issued to you; it is kept in the settings.");
  form->addRow("Application Key:", appKey_);
  loginBtn_ = new QPushButton("Log In", account);
  loginBtn_->setObjectName("LogInBtn");
  loginBtn_->setDefault(true);
  connect(loginBtn_, &QPushButton::clicked, this, [this] { login(); });
  connect(pass_, &QLineEdit::returnPressed, this, [this] { login(); });
  form->addRow(QString(), loginBtn_);
  debug_ = new QCheckBox("debug", account);
  debug_->setObjectName("Check10");
  debug_->setToolTip(
      "Trace the calls to soaplog.txt (never the password). Right-click: delete "
      "the stored service description.");
  debug_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(debug_, &QCheckBox::toggled, this, [this](bool on) {
    if (!on) {
      client_->traceSink = nullptr;
      return;
    }
    const std::string log = (fs::path(client_->documentsFolder) / "soaplog.txt").string();
    client_->traceSink = [log](std::string_view line) {
      std::ofstream out(log, std::ios::binary | std::ios::app);
      out << line << "\r\n";
    };
  });
  connect(debug_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
    QMenu menu(debug_);
    menu.addAction("Delete WSDL File", this, [this] { client_->deleteWsdlFile(); });
    menu.exec(debug_->mapToGlobal(at));
  });
  form->addRow(QString(), debug_);
  auto* note = new QLabel(
      "Log in with your RadioReference account. A premium subscription is needed to read "
      "frequencies and talkgroups.",
      account);
  note->setWordWrap(true);
  form->addRow(note);
  account->setMinimumWidth(330);
  layout->addWidget(account, 0, Qt::AlignTop);
  auto* right = new QVBoxLayout;
  right->addWidget(buildLocationBox());
  auto* steps = new QGroupBox("How to import", page);
  auto* stepsLayout = new QVBoxLayout(steps);
  auto* text = new QLabel(
      "1.  Log in with your account.\n"
      "2.  Choose country, state and county, or type a zip code and press Enter.\n"
      "3.  Pick the list: a trunked system, the county's conventional frequencies or an "
      "agency.\n"
      "4.  Tick categories on the Conventional tab, or sites and talkgroup categories on the "
      "Trunked tab.\n"
      "5.  Check the Options and Service Tags tabs, then press Import: the new system appears "
      "in the main window's tree.",
      steps);
  text->setWordWrap(true);
  stepsLayout->addWidget(text);
  right->addWidget(steps);
  right->addStretch();
  layout->addLayout(right, 1);
  return page;
}

QWidget* RRImportWindow::buildLocationBox() {
  auto* box = new QGroupBox("Location", nullptr);
  auto* grid = new QGridLayout(box);
  auto combo = [box](const char* name) {
    auto* c = new QComboBox(box);
    c->setObjectName(name);
    c->setMinimumContentsLength(36);
    c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return c;
  };
  country_cbo_ = combo("CboCountry");
  country_cbo_->addItem(kSelect, -1);
  for (const auto& c : rrCountries()) country_cbo_->addItem(c.name, c.coid);
  state_cbo_ = combo("CboState");
  county_cbo_ = combo("CboCounty");
  system_cbo_ = combo("CboSystem");
  countyLabel_ = new QLabel("County:", box);
  int row = 0;
  grid->addWidget(new QLabel("Country:", box), row, 0);
  grid->addWidget(country_cbo_, row++, 1);
  grid->addWidget(new QLabel("State:", box), row, 0);
  grid->addWidget(state_cbo_, row++, 1);
  grid->addWidget(countyLabel_, row, 0);
  grid->addWidget(county_cbo_, row++, 1);

  typeOpt_ = new QButtonGroup(box);
  auto* types = new QHBoxLayout;
  const char* captions[] = {"Trunk Systems:", "Conventional:", "Agency:", "Nationwide:"};
  for (int i = 0; i < 4; ++i) {
    auto* r = new QRadioButton(captions[i], box);
    r->setObjectName(QString("TypeOpt%1").arg(i));
    r->setEnabled(i == 1);
    typeOpt_->addButton(r, i);
    types->addWidget(r);
  }
  types->addStretch();
  typeOpt_->button(int(RRListType::Conventional))->setChecked(true);
  connect(typeOpt_, &QButtonGroup::idClicked, this, [this] { onListType(); });
  grid->addWidget(new QLabel("List:", box), row, 0);
  grid->addLayout(types, row++, 1);
  grid->addWidget(new QLabel("System:", box), row, 0);
  grid->addWidget(system_cbo_, row++, 1);

  zip_ = new QLineEdit(box);
  zip_->setObjectName("ZipCodeTxt");
  zip_->setValidator(new QIntValidator(0, 99999, zip_));
  zip_->setPlaceholderText("e.g. 10501");
  zip_->setMaximumWidth(120);
  connect(zip_, &QLineEdit::returnPressed, this, [this] { onZipCode(); });
  grid->addWidget(new QLabel("Enter US zip code + enter", box), row, 0);
  grid->addWidget(zip_, row++, 1, Qt::AlignLeft);

  address_ = new QLineEdit(box);
  address_->setObjectName("Text2");
  addressBtn_ = new QPushButton("Search", box);
  addressBtn_->setObjectName("AddressBtn");
  auto* addressRow = new QHBoxLayout;
  addressRow->addWidget(address_, 1);
  addressRow->addWidget(addressBtn_);
  connect(address_, &QLineEdit::returnPressed, this, [this] { onAddressSearch(); });
  connect(addressBtn_, &QPushButton::clicked, this, [this] { onAddressSearch(); });
  grid->addWidget(new QLabel("Enter Address Search", box), row, 0);
  grid->addLayout(addressRow, row++, 1);
  if (session_.settingsCodec().getPlain(kService, "geocode_endpoint", "").empty()) {
    const QString why =
        "Address search needs a geocoding service: set its end point in the settings "
        "(section \"radioref\", key \"geocode_endpoint\", its key under \"geocode_key\").";
    for (QWidget* w : {static_cast<QWidget*>(address_), static_cast<QWidget*>(addressBtn_)}) {
      w->setEnabled(false);
      w->setToolTip(why);
    }
  }
  grid->setColumnStretch(1, 1);

  connect(country_cbo_, &QComboBox::currentIndexChanged, this, [this](int i) { onCountry(i); });
  connect(state_cbo_, &QComboBox::currentIndexChanged, this, [this](int i) { onState(i); });
  connect(county_cbo_, &QComboBox::currentIndexChanged, this, [this](int i) { onCounty(i); });
  connect(system_cbo_, &QComboBox::currentIndexChanged, this, [this](int i) { onSystem(i); });
  return box;
}

QWidget* RRImportWindow::buildBottom() {
  auto* bottom = new QWidget;
  auto* row = new QHBoxLayout(bottom);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(new QLabel("System Name:", bottom));
  systemName_ = new QLineEdit(bottom);
  systemName_->setObjectName("SysNameTxt");
  systemName_->setMaxLength(kTagLimit);
  systemName_->setMinimumWidth(240);
  row->addWidget(systemName_);
  status_ = new QLabel(bottom);
  status_->setObjectName("lbl_status");
  status_->setMinimumWidth(300);
  row->addWidget(status_, 1);
  progress1_ = new QProgressBar(bottom);
  progress1_->setObjectName("ProgressBar1");
  progress1_->setMaximumWidth(140);
  progress1_->setTextVisible(false);
  progress1_->setRange(0, 0);
  progress1_->setVisible(false);
  row->addWidget(progress1_);
  importBtn_ = new QPushButton("Import", bottom);
  importBtn_->setObjectName("Command2");
  importBtn_->setToolTip("Import the ticked rows into the document as a new system");
  importBtn_->setMinimumWidth(110);
  connect(importBtn_, &QPushButton::clicked, this, [this] { importSelected(); });
  row->addWidget(importBtn_);
  return bottom;
}

void RRImportWindow::buildMenus() {
  QMenu* dev = menuBar()->addMenu("&Developer");
  dev->addAction("&Save XML", this, [this] {
    const QString path = QFileDialog::getSaveFileName(this, "Save XML", {}, "XML (*.xml)");
    if (!path.isEmpty() && !client_->saveLastXml(toLatin1(path)))
      feedback_.message("There was an error saving this file: " + toLatin1(path));
  });
  dev->addAction("&Load XML", this, [this] {
    const QString path = QFileDialog::getOpenFileName(this, "Load XML", {}, "XML (*.xml)");
    if (!path.isEmpty() && !client_->loadXml(toLatin1(path)))
      feedback_.message("Cannot read the file " + toLatin1(path));
  });
}

// ---- settings --------------------------------------------------------------------------------

void RRImportWindow::loadSettings() {
  Settings& s = session_.settingsCodec();
  const int w = std::atoi(s.getPlain(kSection, "window_width", "0").c_str());
  const int h = std::atoi(s.getPlain(kSection, "window_height", "0").c_str());
  if (w > 400 && h > 300) {
    move(std::atoi(s.getPlain(kSection, "window_left", "0").c_str()),
         std::atoi(s.getPlain(kSection, "window_top", "0").c_str()));
    resize(w, h);
  }
  if (setup_.preset) {
    user_->setText(fromLatin1(setup_.preset->user));
    pass_->setText(fromLatin1(setup_.preset->password));
    appKey_->setText(fromLatin1(setup_.preset->appKey));
  } else {
    user_->setText(fromLatin1(s.getPlain(kSection, "user", s.getPlain(kService, "user", ""))));
    pass_->setText(fromLatin1(loadPassword()));
    appKey_->setText(fromLatin1(s.getPlain(kService, "appkey", "")));
  }
  debug_->setChecked(s.getPlain(kSection, "debug", "0") == "1");
}

void RRImportWindow::saveSettings() {
  readOptions();
  Settings& s = session_.settingsCodec();
  options_.save(s);
  const QRect g = geometry();
  s.put(kSection, "window_left", std::to_string(g.x()));
  s.put(kSection, "window_top", std::to_string(g.y()));
  s.put(kSection, "window_width", std::to_string(g.width()));
  s.put(kSection, "window_height", std::to_string(g.height()));
  s.put(kSection, "window_size", isMaximized() ? "2" : "0");
  s.put(kSection, "debug", debug_->isChecked() ? "1" : "0");
  if (country_cbo_->currentIndex() > 0)
    s.put(kSection, "country", std::to_string(country_cbo_->currentData().toInt()));
  if (state_cbo_->currentIndex() > 0)
    s.put(kSection, "state", std::to_string(state_cbo_->currentData().toInt()));
  if (setup_.preset) return;  // the run's own account never reaches the settings
  s.put(kSection, "user", toLatin1(user_->text()));
  if (!appKey_->text().isEmpty()) s.put(kService, "appkey", toLatin1(appKey_->text()));
  savePassword(toLatin1(pass_->text()));
}

void RRImportWindow::closeEvent(QCloseEvent* event) {
  if (busy_) {
    event->ignore();
    return;
  }
  saveSettings();
  session_.settingsCodec().store().flush();
  event->accept();
}

// ---- status and calls ------------------------------------------------------------------------

QString RRImportWindow::statusText() const {
  return status_->text();
}

void RRImportWindow::setStatus(const QString& text) {
  status_->setText(text);
  feedback_.progress(toLatin1(text));
}

void RRImportWindow::waitStatus(int dots) {
  setStatus("Wait retrieving data from database" + QString(std::clamp(dots, 1, 5), '.'));
}

void RRImportWindow::done() {
  setStatus("Done");
}

bool RRImportWindow::beginCall() {
  if (busy_) {
    feedback_.beep();
    return false;
  }
  busy_ = true;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  progress1_->setVisible(true);
  progress2_->setVisible(true);
  return true;
}

void RRImportWindow::endCall() {
  busy_ = false;
  QApplication::restoreOverrideCursor();
  progress1_->setVisible(false);
  progress2_->setVisible(false);
}

void RRImportWindow::onTimer5() {
  if (++timer5Ticks_ > 10)
    setStatus("Error, no response from webservice, check firewall/username/password");
}

std::string RRImportWindow::todayText() const {
  return session_.clock().date();
}

// ---- login -------------------------------------------------------------------------------

void RRImportWindow::login() {
  if (busy_) return;
  const std::string user = toLatin1(user_->text().trimmed());
  const std::string password = toLatin1(pass_->text());
  if (user.empty()) {
    feedback_.message("Please enter your RadioReference user name.");
    user_->setFocus();
    return;
  }
  if (password.empty()) {
    feedback_.message("Please enter your RadioReference password.");
    user_->setFocus();
    return;
  }
  const std::string key = toLatin1(appKey_->text().trimmed());
  client_->appKeySetting = key;
  client_->RRAppKey = key;
  if (!key.empty() && !setup_.preset) session_.settingsCodec().put(kService, "appkey", key);

  if (!beginCall()) return;
  timer5Ticks_ = 0;
  timer5_->start();
  setStatus("Logging in...");
  const LoginOutcome outcome = rr_->login(user, password);
  timer5_->stop();
  endCall();
  setStatus(QString::fromStdString(outcome.statusText));
  switch (outcome.result) {
    case LoginOutcome::Result::InitFailed:
    case LoginOutcome::Result::NoUserData:
      return;
    case LoginOutcome::Result::NoResponse:
      feedback_.message(kNoResponse, "Critical");
      tabs_->setCurrentIndex(0);
      return;
    case LoginOutcome::Result::LoggedIn:
      break;
  }
  loggedInUser_ = user;
  expiry_->setText("Subscription expires on: " + fromLatin1(outcome.expiry));
  tabs_->setCurrentIndex(0);
  country_cbo_->setFocus();
  // The country of the last run comes back by itself.
  const int stored = std::atoi(session_.settingsCodec().getPlain(kSection, "country", "1").c_str());
  chooseByData(country_cbo_, stored);
  setStatus(QString::fromStdString(outcome.statusText));
}

// ---- the walk down --------------------------------------------------------------------------

bool RRImportWindow::chooseByData(QComboBox* combo, int id) {
  const int index = combo->findData(id);
  if (index < 0) return false;
  if (combo->currentIndex() == index)
    emit combo->currentIndexChanged(index);
  else
    combo->setCurrentIndex(index);
  return true;
}

void RRImportWindow::clearLists() {
  filling_ = true;
  tv1_->clear();
  list3_->clear();
  filling_ = false;
  subcatFreqs_.clear();
  subcatOrder_.clear();
  convRows_.clear();
  categoryOf_.clear();
  ticks_.clear();
  clearTrunkLists();
}

// A newly chosen trunked system replaces the trunked lists; the county's conventional
// frequencies stay for a later conventional import.
void RRImportWindow::clearTrunkLists() {
  filling_ = true;
  list1_->clear();
  filling_ = false;
  categoryTalkgroups_.clear();
  categoryOrder_.clear();
  tgRows_.clear();
  trunk_ = {};
  trunkLoaded_ = false;
  fillTrunkSystem();
  refreshServiceCounts();
  refreshUpdates();
}

void RRImportWindow::onCountry(int index) {
  if (filling_ || index <= 0 || !beginCall()) return;
  const int coid = country_cbo_->itemData(index).toInt();
  waitStatus(1);
  rr_->getCountryInfo(coid);
  endCall();
  country_ = rr_->countryInfo;
  typeOpt_->button(int(RRListType::Nationwide))->setEnabled(!country_.agencyList.empty());
  if (country_.stateList.empty()) {
    done();
    return;
  }
  filling_ = true;
  state_cbo_->clear();
  state_cbo_->addItem(kSelect, -1);
  for (const auto& s : country_.stateList)
    state_cbo_->addItem(fromLatin1(s.stateCode + " / " + s.stateName), s.stid);
  county_cbo_->clear();
  system_cbo_->clear();
  filling_ = false;
  done();
  if (country_cbo_->itemText(index).toLower() == "united states") {
    const int stored = std::atoi(session_.settingsCodec().getPlain(kSection, "state", "0").c_str());
    if (stored > 0 && !chooseByData(state_cbo_, stored)) state_cbo_->setToolTip("Unknown");
  }
}

void RRImportWindow::onState(int index) {
  if (filling_ || index <= 0 || !beginCall()) return;
  clearLists();
  setStatus("Wait retrieving data from database..");
  rr_->getStateInfo(state_cbo_->itemData(index).toInt());
  endCall();
  state_ = rr_->stateInfo;
  filling_ = true;
  county_cbo_->clear();
  county_cbo_->addItem(kSelect, -1);
  county_cbo_->addItem("Statewide", 0);
  for (const auto& c : state_.countyList) county_cbo_->addItem(fromLatin1(c.countyName), c.ctid);
  system_cbo_->clear();
  filling_ = false;
  countyLabel_->setText("Please select County or Agency:");
  typeOpt_->button(int(RRListType::Trunk))->setEnabled(!state_.trsList.empty());
  typeOpt_->button(int(RRListType::Agency))->setEnabled(!state_.agencyList.empty());
  done();
}

void RRImportWindow::onCounty(int index) {
  if (filling_ || index <= 0 || !beginCall()) return;
  clearLists();
  waitStatus(3);
  const int ctid = county_cbo_->itemData(index).toInt();
  statewide_ = ctid == 0;
  if (statewide_) {
    county_ = {};
    locationName_ = state_.stateName;
  } else {
    rr_->getCountyInfo(ctid);
    county_ = rr_->countyInfo;
    locationName_ = county_.countyName;
  }
  endCall();
  fillCategoryTree(county_.cats);
  const bool trunks = !(statewide_ ? state_.trsList : county_.trsList).empty();
  const bool agencies = !(statewide_ ? state_.agencyList : county_.agencyList).empty();
  typeOpt_->button(int(RRListType::Trunk))->setEnabled(trunks);
  typeOpt_->button(int(RRListType::Agency))->setEnabled(agencies);
  fillSystemCombo();
  done();
}

void RRImportWindow::chooseListType(RRListType type) {
  QAbstractButton* b = typeOpt_->button(int(type));
  b->setEnabled(true);
  b->click();
}

void RRImportWindow::onListType() {
  if (county_cbo_->currentIndex() > 0) fillSystemCombo();
}

void RRImportWindow::fillSystemCombo() {
  const auto type = RRListType(typeOpt_->checkedId());
  filling_ = true;
  system_cbo_->clear();
  system_cbo_->addItem(kSelect, -1);
  systems_.clear();
  agencies_.clear();
  switch (type) {
    case RRListType::Trunk:
      systems_ = statewide_ ? state_.trsList : county_.trsList;
      for (std::size_t i = 0; i < systems_.size(); ++i) {
        const auto& s = systems_[i];
        system_cbo_->addItem(fromLatin1(s.sName + " /Updated: " + monthDayYear(s.lastUpdated)),
                             int(i));
      }
      break;
    case RRListType::Conventional:
      if (!statewide_)
        system_cbo_->addItem(
            fromLatin1(county_.countyName + " /Updated: " + monthDayYear(county_.lastUpdated)), 0);
      break;
    case RRListType::Agency:
    case RRListType::Nationwide:
      agencies_ = type == RRListType::Nationwide ? country_.agencyList
                  : statewide_                   ? state_.agencyList
                                                 : county_.agencyList;
      for (std::size_t i = 0; i < agencies_.size(); ++i)
        system_cbo_->addItem(fromLatin1(agencies_[i].aName), int(i));
      break;
  }
  filling_ = false;
  // A county's own frequencies need no further choice.
  if (type == RRListType::Conventional && system_cbo_->count() == 2)
    system_cbo_->setCurrentIndex(1);
}

void RRImportWindow::onSystem(int index) {
  if (filling_ || index <= 0) return;
  const auto type = RRListType(typeOpt_->checkedId());
  const int i = system_cbo_->itemData(index).toInt();
  switch (type) {
    case RRListType::Conventional:
      systemName_->setText(fromLatin1(locationName_));
      return;
    case RRListType::Trunk:
      if (i >= 0 && i < int(systems_.size())) selectTrunkSystem(systems_[std::size_t(i)]);
      return;
    case RRListType::Agency:
    case RRListType::Nationwide:
      if (i < 0 || i >= int(agencies_.size()) || !beginCall()) return;
      waitStatus(3);
      rr_->getAgencyInfo(agencies_[std::size_t(i)].aid);
      endCall();
      clearLists();
      fillCategoryTree(rr_->agencyInfo.cats);
      systemName_->setText(fromLatin1(rr_->agencyInfo.agencyName));
      tabs_->setCurrentIndex(1);
      done();
      return;
  }
}

void RRImportWindow::selectTrunkSystem(const RRSystemRef& ref) {
  if (!beginCall()) return;
  clearTrunkLists();
  waitStatus(5);
  trunk_ = loadTrunkSystem(*rr_, ref.sid);
  endCall();
  if (trunk_.ref.sName.empty()) trunk_.ref.sName = ref.sName;
  if (trunk_.ref.lastUpdated.empty()) trunk_.ref.lastUpdated = ref.lastUpdated;
  trunkLoaded_ = true;
  fillTrunkSystem();
  systemName_->setText(fromLatin1(trunk_.ref.sName));
  tabs_->setCurrentIndex(2);
  done();
}

void RRImportWindow::onZipCode() {
  const int zip = zip_->text().toInt();
  if (zip <= 0 || !beginCall()) return;
  waitStatus(1);
  rr_->getZipcodeInfo(zip);
  endCall();
  const RRZipcode z = rr_->zipcode;
  if (z.stid <= 0) {
    setStatus("Zip code " + zip_->text() + " not found.");
    return;
  }
  chooseByData(country_cbo_, 1);  // "United States"
  if (chooseByData(state_cbo_, z.stid) && z.ctid > 0) chooseByData(county_cbo_, z.ctid);
}

void RRImportWindow::onAddressSearch() {
  Settings& s = session_.settingsCodec();
  const std::string endpoint = s.getPlain(kService, "geocode_endpoint", "");
  if (endpoint.empty() || address_->text().trimmed().isEmpty() || !beginCall()) return;
  const QString url = QString::fromStdString(endpoint) +
                      "?address=" + QUrl::toPercentEncoding(address_->text().trimmed()) +
                      "&key=" + fromLatin1(s.getPlain(kService, "geocode_key", ""));
  setStatus("Searching the address...");
  const HttpReply reply = setup_.http->get(url.toStdString(), "", "", 30000);
  endCall();
  const std::string code = reply.completed ? postalCodeOf(reply.body) : std::string();
  if (code.empty()) {
    setStatus("No zip code found for this address.");
    return;
  }
  zip_->setText(QString::fromStdString(code));
  onZipCode();
}

}  // namespace zel::ui

// Where the import window keeps the service password: in the system's keychain when the
// application was built with one (the settings then hold no password), else in the settings
// as "pass". A window told not to use the keychain (tests) keeps it in the settings too.
#include <QEventLoop>

#include "ui/rr_import_window.h"

#ifdef ZEL_HAVE_KEYCHAIN
#include <qt6keychain/keychain.h>
#endif

namespace zel::ui {

namespace {

constexpr const char* kSection = "rrimport";

#ifdef ZEL_HAVE_KEYCHAIN
constexpr const char* kKeychainService = "ZEL536 RadioReference";

// Runs a keychain job to its end; the job reports through its own event.
void runJob(QKeychain::Job& job) {
  QEventLoop loop;
  QObject::connect(&job, &QKeychain::Job::finished, &loop, &QEventLoop::quit);
  job.start();
  loop.exec();
}
#endif

}  // namespace

std::string RRImportWindow::loadPassword() const {
  Settings& settings = session_.settingsCodec();
#ifdef ZEL_HAVE_KEYCHAIN
  if (setup_.useKeychain) {
    QKeychain::ReadPasswordJob job(kKeychainService);
    job.setAutoDelete(false);
    job.setKey("pass");
    runJob(job);
    // A keychain that cannot be reached (no session bus) left the password in the settings.
    if (job.error() == QKeychain::NoError) return job.textData().toLatin1().toStdString();
  }
#endif
  return settings.getPlain(kSection, "pass", "");
}

void RRImportWindow::savePassword(const std::string& password) {
  Settings& settings = session_.settingsCodec();
#ifdef ZEL_HAVE_KEYCHAIN
  if (setup_.useKeychain) {
    QKeychain::WritePasswordJob job(kKeychainService);
    job.setAutoDelete(false);
    job.setKey("pass");
    job.setTextData(QString::fromLatin1(password.data(), qsizetype(password.size())));
    runJob(job);
    if (job.error() == QKeychain::NoError) {
      settings.store().remove(kSection, "pass");
      return;
    }
  }
#endif
  settings.put(kSection, "pass", password);
}

}  // namespace zel::ui

// Feedback on Qt Widgets: modal message boxes with the system's fixed texts, the status
// bar's first panel, the progress label and the status list.
#pragma once

#include <QObject>
#include <QPointer>
#include <memory>
#include <optional>

#include "core/ports.h"

class QLabel;
class QListWidget;
class QMessageBox;
class QStatusBar;
class QWidget;

namespace zel::ui {

class QtFeedback : public Feedback {
 public:
  void attach(QWidget* parent, QStatusBar* status, QLabel* progress, QListWidget* list);
  void message(std::string_view text, std::string_view title = {}) override;
  Answer ask(std::string_view title, std::string_view text, Buttons buttons) override;
  Answer askPreferring(std::string_view title, std::string_view text, Buttons buttons,
                       Answer preferred) override;
  // The question's box, not yet shown, with `preferred` as its default button when the box
  // has it (Qt's own choice otherwise).
  static std::unique_ptr<QMessageBox> questionBox(QWidget* parent, std::string_view title,
                                                  std::string_view text, Buttons buttons,
                                                  std::optional<Answer> preferred);
  void status(std::string_view text) override;
  void progress(std::string_view text) override;
  void log(std::string_view line) override;
  void beep() override;

 private:
  QPointer<QWidget> parent_;
  QPointer<QStatusBar> status_;
  QPointer<QLabel> progress_;
  QPointer<QListWidget> list_;
};

QString fromLatin1(std::string_view text);
std::string toLatin1(const QString& text);

}  // namespace zel::ui

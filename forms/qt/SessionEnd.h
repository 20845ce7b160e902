// Handles the ways the system ends the program: signals and the end of the session. Both go through
// the event loop, so they never interrupt a save.
#pragma once

#include <QObject>
#include <memory>

class QSocketNotifier;

namespace corvane {

class SessionEnd : public QObject {
 public:
  SessionEnd();  // once, after the application exists
  ~SessionEnd() override;

 protected:
  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  void ListenToSignals();
  void ListenToSession();

  std::unique_ptr<QSocketNotifier> Signals;
  bool Agreed = false;  // the session manager has already asked
};

}  // namespace corvane

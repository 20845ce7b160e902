// The ways in which the system ends the program: signals, and the end of the session. All of them
// come to the event loop, and never strike in the middle of a save.
#pragma once

#include <QObject>
#include <memory>

class QSocketNotifier;

namespace corvane {

class SessionEnd : public QObject {
 public:
  SessionEnd();  // once, when the application stands
  ~SessionEnd() override;

 protected:
  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  void ListenToSignals();
  void ListenToSession();

  std::unique_ptr<QSocketNotifier> Signals;
  bool Agreed = false;  // the session manager has asked already
};

}  // namespace corvane

#include "SessionEnd.h"

#include <fcntl.h>
#include <signal.h>  // sigaction, which <csignal> lacks
#include <unistd.h>

#include <cerrno>

#include <QApplication>
#include <QEvent>
#include <QSessionManager>
#include <QSocketNotifier>

#include "services/Display.h"
#include "services/Gestures.h"

namespace corvane {
namespace {

int Pipe[2] = {-1, -1};  // a signal handler may only write a byte

void WriteByte(int) {
  const int before = errno;
  const char byte = 0;
  if (write(Pipe[1], &byte, 1) < 0) errno = before;  // full: a signal is pending anyway
}

void SetHandler(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

constexpr int EndSignals[] = {SIGTERM, SIGINT, SIGHUP};

}  // namespace

SessionEnd::SessionEnd() {
  ListenToSignals();
  ListenToSession();
  qApp->installEventFilter(this);
}

SessionEnd::~SessionEnd() {
  if (!Signals) return;
  for (const int signal : EndSignals) SetHandler(signal, SIG_DFL);
  Signals.reset();
  for (int& end : Pipe) close(end);
}

// If the pipe cannot be created, signals keep their default effect.
void SessionEnd::ListenToSignals() {
  if (pipe2(Pipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
  Signals = std::make_unique<QSocketNotifier>(Pipe[0], QSocketNotifier::Read);
  connect(Signals.get(), &QSocketNotifier::activated, this, [] {
    char bytes[16];
    while (read(Pipe[0], bytes, sizeof bytes) > 0) {
    }
    EndSession();
  });
  for (const int signal : EndSignals) {
    struct sigaction now = {};
    sigaction(signal, nullptr, &now);
    if (now.sa_handler != SIG_IGN) SetHandler(signal, WriteByte);  // e.g. nohup ignores SIGHUP
  }
}

void SessionEnd::ListenToSession() {
  connect(
      qApp, &QGuiApplication::commitDataRequest, this,
      [this](QSessionManager& manager) {
        Agreed = QueryEndSession();
        if (!Agreed) manager.cancel();
      },
      Qt::DirectConnection);
}

bool SessionEnd::eventFilter(QObject* target, QEvent* event) {
  if (target != qApp || event->type() != QEvent::Quit) return false;
  Agreed ? EndProgram() : EndSession();
  return true;
}

}  // namespace corvane

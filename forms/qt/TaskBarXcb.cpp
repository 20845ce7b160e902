#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QLibrary>
#include <QPlatformSurfaceEvent>
#include <QWindow>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "TaskBar.h"

namespace corvane {
namespace {

// Qt loads the library on X11; a program on Wayland needs none.
template <class Function>
Function* Resolve(const char* name) {
  return reinterpret_cast<Function*>(QLibrary::resolve("xcb", 1, name));
}

xcb_atom_t AtomOf(xcb_connection_t* connection, std::string_view name) {
  static const auto ask = Resolve<decltype(xcb_intern_atom)>("xcb_intern_atom");
  static const auto reply = Resolve<decltype(xcb_intern_atom_reply)>("xcb_intern_atom_reply");
  if (!ask || !reply) return XCB_ATOM_NONE;
  const auto request = ask(connection, false, static_cast<std::uint16_t>(name.size()), name.data());
  const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> answer(
      reply(connection, request, nullptr), std::free);
  return answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// Must run before the window shows: Qt then merges its own states with the existing ones.
void KeepOut(xcb_connection_t* connection, const QWindow& window) {
  static const auto change = Resolve<decltype(xcb_change_property)>("xcb_change_property");
  const xcb_atom_t state = AtomOf(connection, "_NET_WM_STATE");
  const xcb_atom_t skip = AtomOf(connection, "_NET_WM_STATE_SKIP_TASKBAR");
  if (!change || !state || !skip) return;
  change(connection, XCB_PROP_MODE_APPEND, static_cast<xcb_window_t>(window.winId()), state,
         XCB_ATOM_ATOM, 32, 1, &skip);
}

class DialogWatch : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* target, QEvent* event) override {
    if (event->type() != QEvent::PlatformSurface || !target->isWindowType()) return false;
    const auto& window = static_cast<const QWindow&>(*target);
    const auto change = static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType();
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    const bool opens = change == QPlatformSurfaceEvent::SurfaceCreated;
    const bool dialog = window.type() == Qt::Dialog && window.transientParent();
    if (x11 && opens && dialog) KeepOut(x11->connection(), window);
    return false;
  }
};

}  // namespace

void KeepDialogsOutOfTaskBar() {
  if (QGuiApplication::platformName() == "xcb") qApp->installEventFilter(new DialogWatch(qApp));
}

}  // namespace corvane

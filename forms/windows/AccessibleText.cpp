#include "AccessibleText.h"

#include <initguid.h>  // makes the next headers define their constants
#include <objbase.h>
#include <oleacc.h>

namespace corvane {
namespace {

// One service for the program; nullptr if the system has none.
IAccPropServices* Services() {
  static IAccPropServices* const services = [] {
    IAccPropServices* made = nullptr;
    CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                     reinterpret_cast<void**>(&made));
    return made;
  }();
  return services;
}

constexpr auto Client = static_cast<DWORD>(OBJID_CLIENT);

void Set(HWND window, const MSAAPROPID& property, const std::wstring& text) {
  if (!Services()) return;
  Services()->SetHwndPropStr(window, Client, CHILDID_SELF, property, text.c_str());
}

}  // namespace

void SetAccessibleName(HWND window, const std::wstring& name) {
  Set(window, PROPID_ACC_NAME, name);
}

void SetAccessibleDescription(HWND window, const std::wstring& description) {
  Set(window, PROPID_ACC_DESCRIPTION, description);
}

void ClearAccessibleText(HWND window) {
  if (!Services()) return;
  MSAAPROPID properties[] = {PROPID_ACC_NAME, PROPID_ACC_DESCRIPTION};
  Services()->ClearHwndProps(window, Client, CHILDID_SELF, properties, 2);
}

}  // namespace corvane

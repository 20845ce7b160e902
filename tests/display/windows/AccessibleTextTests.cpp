// Tests the names for screen readers with a substitute service: the system's cannot be read back,
// and Wine has none.
#include <initguid.h>  // makes the next headers define their constants
#include <objbase.h>
#include <oleacc.h>

#include <map>
#include <utility>

#include "Screen.h"
#include "base/WideText.h"

namespace corvane {
namespace {

std::map<std::pair<HWND, bool>, std::string> Texts;  // by window: its name (true) or description

// Records the texts of windows and does nothing else.
class Service final : public IAccPropServices {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IAccPropServices;
    *found = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND window, DWORD object, DWORD child,
                                           MSAAPROPID property, LPCWSTR text) override {
    if (object != static_cast<DWORD>(OBJID_CLIENT) || child != CHILDID_SELF) return E_INVALIDARG;
    Texts[{window, property == PROPID_ACC_NAME}] = WideToText(text);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID* properties,
                                           int count) override {
    for (int at = 0; at < count; ++at) Texts.erase({window, properties[at] == PROPID_ACC_NAME});
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int,
                                          IAccPropServer*, AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int,
                                              IAccPropServer*, AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*,
                                                        DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int,
                                               IAccPropServer*, AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*,
                                                         DWORD*) override {
    return E_NOTIMPL;
  }
};

class Factory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IClassFactory;
    *found = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID wanted, void** found) override {
    static Service service;
    return service.QueryInterface(wanted, found);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

// Must exist before the first window, which obtains the service once for the program.
struct ServiceOfTheTests : testing::Environment {
  void SetUp() override {
    static Factory factory;
    DWORD number = 0;
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    ASSERT_EQ(CoRegisterClassObject(CLSID_AccPropServices, &factory, CLSCTX_INPROC_SERVER,
                                    REGCLS_MULTIPLEUSE, &number),
              S_OK);
  }
};
const auto* const Registered = testing::AddGlobalTestEnvironment(new ServiceOfTheTests);

struct NamedForm : TestForm {
  TextBox txtLeft{*this, {"txtLeft", "", {4300, 360, 615, 285}, 11, nullptr, "Tile Left"}};
};

TEST(AccessibleText, NamesControlsAndDescribesMessagesAsLongAsTheyStand) {
  NamedForm form;
  form.cmdOK.Click = [] { Tell("a\r\nb"); };
  PlayWhole(form, [&] {
    const HWND named = WidgetOf(form.txtLeft);
    EXPECT_EQ((Texts[{named, true}]), "Tile Left");
    EXPECT_FALSE((Texts.contains({WidgetOf(form.txtName), true})));
    WhenNext([] {
      EXPECT_EQ((Texts[{GetActiveWindow(), false}]), "a\r\nb");
      PressKey("Return");
    });
    PressAt(form.cmdOK);
    EXPECT_EQ(Texts.size(), 1U);
  });
  EXPECT_TRUE(Texts.empty());
}

}  // namespace
}  // namespace corvane

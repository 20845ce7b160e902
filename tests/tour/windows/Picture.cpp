#include "Picture.h"

#include <windows.h>
//
#include <objbase.h>
#include <wincodec.h>

#include "base/WideText.h"

namespace corvane {
namespace {

template <class Kind>
struct Held {  // released by the destructor
  Kind* It = nullptr;
  ~Held() {
    if (It) It->Release();
  }
};

// The window with its frame, after painting has finished.
HBITMAP Copy(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  const int width = place.right - place.left, height = place.bottom - place.top;
  const HDC original = GetWindowDC(window);
  const HDC canvas = CreateCompatibleDC(original);
  const HBITMAP copy = CreateCompatibleBitmap(original, width, height);
  const HGDIOBJ before = SelectObject(canvas, copy);
  BitBlt(canvas, 0, 0, width, height, original, 0, 0, SRCCOPY);
  SelectObject(canvas, before);
  DeleteDC(canvas);
  ReleaseDC(window, original);
  return copy;
}

bool SavePng(HBITMAP copy, const std::wstring& file) {
  Held<IWICImagingFactory> factory;
  Held<IWICBitmap> bitmap;
  Held<IWICStream> stream;
  Held<IWICBitmapEncoder> encoder;
  Held<IWICBitmapFrameEncode> frame;
  return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IWICImagingFactory,
                                    reinterpret_cast<void**>(&factory.It))) &&
         SUCCEEDED(factory.It->CreateBitmapFromHBITMAP(copy, nullptr, WICBitmapIgnoreAlpha,
                                                       &bitmap.It)) &&
         SUCCEEDED(factory.It->CreateStream(&stream.It)) &&
         SUCCEEDED(stream.It->InitializeFromFilename(file.c_str(), GENERIC_WRITE)) &&
         SUCCEEDED(factory.It->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder.It)) &&
         SUCCEEDED(encoder.It->Initialize(stream.It, WICBitmapEncoderNoCache)) &&
         SUCCEEDED(encoder.It->CreateNewFrame(&frame.It, nullptr)) &&
         SUCCEEDED(frame.It->Initialize(nullptr)) &&
         SUCCEEDED(frame.It->WriteSource(bitmap.It, nullptr)) && SUCCEEDED(frame.It->Commit()) &&
         SUCCEEDED(encoder.It->Commit());
}

}  // namespace

bool SavePicture(const std::string& file) {
  const HBITMAP copy = Copy(GetActiveWindow());
  const bool saved = SavePng(copy, TextToWide(file));
  DeleteObject(copy);
  return saved;
}

}  // namespace corvane

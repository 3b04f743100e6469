// Paints every landscape at 1920 x 1080 and at 1280 x 1024 into PNG files,
// so that a person can look at all five themes at once (a window shows one
// at random). Run under Wine by tools/scenery_gallery.py.
//
//   scenery_gallery.exe FOLDER
#include <string>

#include "render/frame_buffers.h"
#include "render/canvas_win.h"
#include "render/scenery.h"

namespace {

const wchar_t* const kThemeNames[kSceneryThemeCount] = {L"seaside", L"mountains", L"park",
                                                         L"garden", L"flower-field"};

bool FindPngEncoder(CLSID& clsid) {
    UINT count = 0, bytes = 0;
    Gdiplus::GetImageEncodersSize(&count, &bytes);
    std::string buffer(bytes, '\0');
    auto* encoders = reinterpret_cast<Gdiplus::ImageCodecInfo*>(buffer.data());
    if (count == 0 || Gdiplus::GetImageEncoders(count, bytes, encoders) != Gdiplus::Ok) return false;
    for (UINT i = 0; i < count; ++i) {
        if (std::wstring(encoders[i].MimeType) == L"image/png") {
            clsid = encoders[i].Clsid;
            return true;
        }
    }
    return false;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 2) return 2;
    Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    CLSID png{};
    int failures = FindPngEncoder(png) ? 0 : 1;
    for (const auto& [width, height] : {std::pair{1920, 1080}, std::pair{1280, 1024}}) {
        for (uint32_t theme = 0; theme < kSceneryThemeCount; ++theme) {
            Gdiplus::Bitmap bitmap(width, height, PixelFormat32bppARGB);
            {
                Gdiplus::Graphics graphics(&bitmap);
                graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
                graphics.Clear(Gdiplus::Color(kSceneryClearColour));
                Canvas canvas{graphics};
                DrawScenery(canvas, {0, 0, width, height}, theme);
            }
            const std::wstring file = std::wstring(argv[1]) + L"\\" + kThemeNames[theme] + L"-" +
                                      std::to_wstring(width) + L"x" + std::to_wstring(height) + L".png";
            if (bitmap.Save(file.c_str(), &png, nullptr) != Gdiplus::Ok) ++failures;
        }
    }
    Gdiplus::GdiplusShutdown(token);
    return failures == 0 ? 0 : 1;
}

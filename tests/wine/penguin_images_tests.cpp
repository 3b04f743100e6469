// The pose picture loader under Wine's GDI+: which file fills which slot in
// temporary asset folders, and the clean-up of the shipped penguin art.
#include <gtest/gtest.h>

#include <windows.h>
#include <objbase.h>
#include <gdiplus.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "assets/asset_paths.h"
#include "assets/penguin_images_win.h"
#include "assets/sprite_filters.h"
#include "assets/sprite_prepare_win.h"

namespace fs = std::filesystem;
using Gdiplus::Bitmap;

namespace {

class GdiplusSession : public ::testing::Environment {
public:
    void SetUp() override {
        Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token_, &input, nullptr);
    }
    void TearDown() override {
        ReleasePenguinImages();
        Gdiplus::GdiplusShutdown(token_);
    }

private:
    ULONG_PTR token_ = 0;
};
const auto* const g_gdiplus = ::testing::AddGlobalTestEnvironment(new GdiplusSession);

void SavePng(Bitmap& bitmap, const fs::path& path) {
    UINT count = 0, bytes = 0;
    Gdiplus::GetImageEncodersSize(&count, &bytes);
    std::vector<char> buffer(bytes);
    auto* encoders = reinterpret_cast<Gdiplus::ImageCodecInfo*>(buffer.data());
    Gdiplus::GetImageEncoders(count, bytes, encoders);
    for (UINT i = 0; i < count; ++i) {
        if (std::wstring(encoders[i].MimeType) == L"image/png") {
            ASSERT_EQ(bitmap.Save(path.c_str(), &encoders[i].Clsid, nullptr), Gdiplus::Ok);
            return;
        }
    }
    FAIL() << "no PNG encoder";
}

// A picture 30 wide whose height tells the loaded files apart.
void WriteTaggedPng(const fs::path& path, int height) {
    Bitmap bitmap(30, height, PixelFormat32bppARGB);
    Gdiplus::Graphics(&bitmap).Clear(Gdiplus::Color(255, 70, 100, 160));
    SavePng(bitmap, path);
}

// The whole bitmap's pixels, as the filters see them.
std::vector<uint8_t> PixelsOf(Bitmap& bitmap) {
    const INT width = static_cast<INT>(bitmap.GetWidth()), height = static_cast<INT>(bitmap.GetHeight());
    Gdiplus::Rect whole(0, 0, width, height);
    Gdiplus::BitmapData data{};
    if (bitmap.LockBits(&whole, Gdiplus::ImageLockModeRead, PixelFormat32bppARGB, &data) != Gdiplus::Ok) return {};
    std::vector<uint8_t> pixels(static_cast<size_t>(width) * height * 4);
    for (INT y = 0; y < height; ++y) {
        memcpy(&pixels[static_cast<size_t>(y) * width * 4], static_cast<uint8_t*>(data.Scan0) + y * data.Stride,
               static_cast<size_t>(width) * 4);
    }
    bitmap.UnlockBits(&data);
    return pixels;
}

// The pose pictures the build puts beside Puffino.exe, one folder above.
std::wstring ShippedArtFolder() {
    return JoinPath(JoinPath(ParentFolder(ExecutableFolder()), L"assets"), L"penguin");
}

class PenguinImagesTest : public ::testing::Test {
protected:
    void SetUp() override { folder = fs::temp_directory_path() / "penguin-assets"; }
    void TearDown() override {
        ReleasePenguinImages();
        fs::remove_all(folder);
    }

    fs::path folder;
};

// Heights of the standing, blowing, celebrating and cheering slots (0:
// empty) as PoseImageSize reports them.
using Heights = std::array<int32_t, 4>;
Heights SlotHeights() {
    Heights heights{};
    int32_t width = 0;
    for (PoseImage pose : {PoseImage::Idle, PoseImage::Blow, PoseImage::Celebrate, PoseImage::Cheer}) {
        PoseImageSize(pose, width, heights[static_cast<size_t>(pose)]);
    }
    return heights;
}

TEST_F(PenguinImagesTest, EachSlotTakesTheFirstNameThatLoads) {
    const struct {
        const char* what;
        std::map<std::wstring, int> files;  // stem -> height; -1: not a picture, -2: a folder
        Heights slots;                      // standing, blowing, celebrating, cheering
        bool yatta;
    } cases[] = {
        {"a missing folder", {}, {0, 0, 0, 0}, false},
        {"only the blowing picture", {{L"bubble", 21}}, {21, 21, 21, 0}, false},
        {"happy celebrates without a cross-fade", {{L"idle", 20}, {L"bubble", 21}, {L"happy", 22}},
         {20, 21, 22, 0}, false},
        {"an invalid idle.png is skipped", {{L"idle", -1}, {L"standing", 27}}, {27, 0, 27, 0}, false},
        {"a folder named idle.png is skipped", {{L"idle", -2}, {L"stand", 28}}, {28, 0, 28, 0}, false},
        {"yatta without idle or bubble: the list's first",
         {{L"yatta", 23}, {L"hurray", 25}, {L"penguin", 24}, {L"cheer", 26}}, {24, 0, 23, 25}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        fs::remove_all(folder);
        if (!c.files.empty()) fs::create_directories(folder);
        for (const auto& [stem, height] : c.files) {
            const fs::path path = folder / (stem + L".png");
            if (height == -1) std::ofstream(path) << "not a picture";
            if (height == -2) fs::create_directory(path);
            if (height > 0) WriteTaggedPng(path, height);
        }
        LoadPenguinImages(folder.wstring());
        EXPECT_EQ(SlotHeights(), c.slots);
        EXPECT_EQ(g_penguinImages.celebratingIsYatta, c.yatta);
        if (g_penguinImages.blowImage) {
            EXPECT_NE(g_penguinImages.blowImage.get(), g_penguinImages.idleImage.get()) << "a copy of its own";
        }
    }
    LoadPenguinImages(L"");  // releases what the last load held and loads nothing
    EXPECT_EQ(SlotHeights(), (Heights{0, 0, 0, 0}));
    EXPECT_FALSE(g_penguinImages.celebratingIsYatta);
}

TEST(ShippedArt, PosesAreWholePicturesReadyForTheFilters) {
    for (const wchar_t* pose : {L"idle.png", L"bubble.png", L"yatta.png", L"hurray.png"}) {
        const std::wstring path = JoinPath(ShippedArtFolder(), pose);
        SCOPED_TRACE(fs::path(path).string());
        Bitmap decoded(path.c_str());
        ASSERT_EQ(decoded.GetLastStatus(), Gdiplus::Ok);
        EXPECT_GE(decoded.GetHeight(), 480u) << "crisp at twice the standing height";

        // The loaded picture is exactly the filters run over the decoded
        // pixels: the working copy neither blends nor resamples.
        std::vector<uint8_t> expected = PixelsOf(decoded);
        const SpritePixels pixels{expected.data(), static_cast<int32_t>(decoded.GetWidth()),
                                  static_cast<int32_t>(decoded.GetHeight()),
                                  static_cast<ptrdiff_t>(decoded.GetWidth()) * 4};
        const std::vector<uint8_t> before = expected;
        RemoveSpecks(pixels);
        EXPECT_TRUE(expected == before) << "every part of the penguin is kept";
        SoftenOutline(pixels);
        BleedColours(pixels);
        const PoseSlot loaded = LoadSpriteFile(path);
        ASSERT_TRUE(loaded);
        EXPECT_TRUE(PixelsOf(*static_cast<Bitmap*>(loaded.get())) == expected);

        int softened = 0;
        for (size_t i = 3; i < expected.size(); i += 4) softened += expected[i] == 150;
        EXPECT_GT(softened, 100) << "the outline is dark enough to soften";
    }
}

TEST(ShippedArt, TheBlowingBeakEndsAt72PercentOfTheWidth) {
    const std::wstring path = JoinPath(ShippedArtFolder(), L"bubble.png");
    Bitmap picture(path.c_str());
    ASSERT_EQ(picture.GetLastStatus(), Gdiplus::Ok);
    const INT width = static_cast<INT>(picture.GetWidth());
    INT beakTip = -1;
    Gdiplus::Color c;
    // The beak is the only orange in the upper half (the feet are below).
    for (INT y = 0; y < static_cast<INT>(picture.GetHeight()) / 2; ++y) {
        for (INT x = 0; x < width; ++x) {
            picture.GetPixel(x, y, &c);
            const bool orange = c.GetA() == 255 && c.GetR() > 230 && c.GetG() > 140 && c.GetG() < 190 && c.GetB() < 80;
            if (orange && x > beakTip) beakTip = x;
        }
    }
    EXPECT_NEAR(beakTip, 0.72 * width, 0.02 * width);
}

}  // namespace

// The pose picture loader under Wine's GDI+: which file fills which slot in
// temporary asset folders, broken, tiny and huge PNG files, and the clean-up
// of the shipped penguin art.
#include <array>
#include <fstream>
#include <functional>
#include <map>

#include "assets/penguin_images_win.h"
#include "assets/pose_picture_filters.h"
#include "assets/pose_picture_prepare_win.h"
#include "tests/wine/gdiplus_test_support_win.h"

namespace fs = std::filesystem;
using Gdiplus::Bitmap;

namespace {

// A picture 30 wide whose height tells the loaded files apart.
void WriteTaggedPng(const fs::path& path, int height) {
    Bitmap bitmap(30, height, PixelFormat32bppARGB);
    Gdiplus::Graphics(&bitmap).Clear(Gdiplus::Color(255, 70, 100, 160));
    ASSERT_TRUE(SavePng(bitmap, path.wstring()));
}

void WriteBytes(const fs::path& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

class PenguinImages : public GdiplusTest {
protected:
    void SetUp() override {
        GdiplusTest::SetUp();
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    void TearDown() override {
        ReleasePenguinImages();
        fs::remove_all(folder);
        GdiplusTest::TearDown();
    }

    const fs::path folder = fs::temp_directory_path() / "penguin-assets";
};

// Heights of the standing, blowing, celebrating and cheering slots (0:
// empty) as LoadedPoseSize reports them.
using Heights = std::array<int32_t, 4>;
Heights SlotHeights() {
    Heights heights{};
    int32_t width = 0;
    for (PosePictureKind pose : {PosePictureKind::Idle, PosePictureKind::Blow, PosePictureKind::Celebrate, PosePictureKind::Cheer}) {
        LoadedPoseSize(pose, width, heights[static_cast<size_t>(pose)]);
    }
    return heights;
}

TEST_F(PenguinImages, EachSlotTakesTheFirstNameThatLoads) {
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
        if (g_penguinImages.blowPicture) {
            EXPECT_NE(g_penguinImages.blowPicture.get(), g_penguinImages.idlePicture.get()) << "a copy of its own";
        }
    }
    LoadPenguinImages(L"");  // releases what the last load held and loads nothing
    EXPECT_EQ(SlotHeights(), (Heights{0, 0, 0, 0}));
    EXPECT_FALSE(g_penguinImages.celebratingIsYatta);
}

TEST_F(PenguinImages, ShippedPosesAreWholePicturesReadyForTheFilters) {
    for (const wchar_t* pose : {L"idle.png", L"bubble.png", L"yatta.png", L"hurray.png"}) {
        const std::wstring path = JoinPath(JoinPath(JoinPath(ParentFolder(ExecutableFolder()), L"assets"),
                                                    L"penguin"), pose);
        SCOPED_TRACE(fs::path(path).string());
        Bitmap decoded(path.c_str());
        ASSERT_EQ(decoded.GetLastStatus(), Gdiplus::Ok);
        EXPECT_GE(decoded.GetHeight(), 480u) << "crisp at twice the standing height";

        // The loaded picture is exactly the filters run over the decoded
        // pixels: the working copy neither blends nor resamples.
        std::vector<uint32_t> expected = PixelsOf(decoded);
        const PicturePixels pixels{reinterpret_cast<uint8_t*>(expected.data()), static_cast<int32_t>(decoded.GetWidth()),
                                  static_cast<int32_t>(decoded.GetHeight()),
                                  static_cast<ptrdiff_t>(decoded.GetWidth()) * 4};
        const std::vector<uint32_t> before = expected;
        RemoveSpecks(pixels);
        EXPECT_TRUE(expected == before) << "every part of the penguin is kept";
        SoftenOutline(pixels);
        BleedColours(pixels);
        const OwnedPosePicture loaded = LoadPosePictureFile(path);
        ASSERT_TRUE(loaded);
        EXPECT_TRUE(PixelsOf(*static_cast<Bitmap*>(loaded->image.get())) == expected);
        EXPECT_GT(std::count_if(expected.begin(), expected.end(), [](uint32_t p) { return p >> 24 == 150; }), 100)
            << "the outline is dark enough to soften";
    }
}

// PNG files written here byte by byte, so that the ones GDI+ would never
// save itself (one bit per pixel, cut short) come from the test: rows are
// deflated as stored blocks, so a file is as long as its pixels.
void PutBigEndian(std::string& out, uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(value >> shift);
}

void PutChunk(std::string& png, const char* type, const std::string& data) {
    PutBigEndian(png, static_cast<uint32_t>(data.size()));
    const size_t start = png.size();
    png += type + data;
    uint32_t crc = 0xFFFFFFFFu;
    for (size_t i = start; i < png.size(); ++i) {
        crc ^= static_cast<uint8_t>(png[i]);
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
    }
    PutBigEndian(png, ~crc);
}

struct PngLook {
    uint8_t colourType;        // 0 grey, 2 RGB, 3 palette, 4 grey+alpha, 6 RGBA
    uint8_t depth;             // bits per sample
    std::string palette;       // RGB triples (colour type 3)
    std::string transparency;  // the tRNS chunk's data, if any
};

// row(y) gives the packed samples of row y, without the filter byte.
std::string PngFile(const PngLook& look, uint32_t width, uint32_t height,
                    const std::function<std::string(uint32_t)>& row) {
    std::string png = "\x89PNG\r\n\x1a\n", header;
    PutBigEndian(header, width);
    PutBigEndian(header, height);
    header += {static_cast<char>(look.depth), static_cast<char>(look.colourType), 0, 0, 0};
    PutChunk(png, "IHDR", header);
    if (!look.palette.empty()) PutChunk(png, "PLTE", look.palette);
    if (!look.transparency.empty()) PutChunk(png, "tRNS", look.transparency);

    std::string raw, zlib = "\x78\x01";
    for (uint32_t y = 0; y < height; ++y) raw += '\0' + row(y);  // filter: none
    for (size_t at = 0; at < raw.size() || at == 0; at += 65535) {
        const size_t length = std::min<size_t>(65535, raw.size() - at);
        zlib += static_cast<char>(at + length >= raw.size() ? 1 : 0);  // the last block ends the stream
        zlib += {static_cast<char>(length), static_cast<char>(length >> 8), static_cast<char>(~length),
                 static_cast<char>(~length >> 8)};
        zlib.append(raw, at, length);
    }
    uint32_t a = 1, b = 0;
    for (char c : raw) a = (a + static_cast<uint8_t>(c)) % 65521, b = (b + a) % 65521;
    PutBigEndian(zlib, (b << 16) | a);
    PutChunk(png, "IDAT", zlib);
    PutChunk(png, "IEND", "");
    return png;
}

// A 40 x 40 picture with a 20 x 20 square in the middle (10..29) drawn in
// `inside` and everything else in `outside`, each one pixel's samples.
std::string SquarePng(const PngLook& look, const std::string& inside, const std::string& outside) {
    return PngFile(look, 40, 40, [&](uint32_t y) {
        std::string row;
        for (uint32_t x = 0; x < 40; ++x) row += (x >= 10 && x < 30 && y >= 10 && y < 30) ? inside : outside;
        return row;
    });
}

TEST_F(PenguinImages, BrokenAndTinyPicturesNeverStopTheLoad) {
    const std::string whole = SquarePng({0, 8, "", ""}, "\x10", "\x20");
    const struct {
        const char* what;
        std::string idle;       // idle.png; standing.png, a fallback name, is 30 x 21
        int32_t width, height;  // of the standing slot
    } cases[] = {
        {"cut short in its pixels", whole.substr(0, whole.size() / 2), 30, 21},
        {"cut short in its header", whole.substr(0, 20), 30, 21},
        {"one pixel", PngFile({0, 8, "", ""}, 1, 1, [](uint32_t) { return std::string("\x80"); }), 1, 1},
    };
    WriteTaggedPng(folder / "standing.png", 21);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        WriteBytes(folder / "idle.png", c.idle);
        LoadPenguinImages(folder.wstring());
        int32_t width = 0, height = 0;
        ASSERT_TRUE(LoadedPoseSize(PosePictureKind::Idle, width, height));
        EXPECT_EQ(width, c.width);
        EXPECT_EQ(height, c.height);
    }
}

// Run on its own (it takes half a minute under Wine): 16384 x 16384 with
// one bit per pixel is 32 MB of file and a gigabyte once decoded. A band of
// 256 opaque rows over transparency keeps the speck search's lists short;
// an opaque picture this size takes a minute and five gigabytes.
TEST_F(PenguinImages, HugePictureIsLoadedWhole) {
    WriteBytes(folder / "idle.png",
               PngFile({3, 1, std::string("\0\0\0\x50\x8c\xc8", 6), std::string("\0", 1)}, 16384, 16384,
                       [](uint32_t y) { return std::string(2048, y < 256 ? '\xff' : '\0'); }));
    LoadPenguinImages(folder.wstring());
    int32_t width = 0, height = 0;
    ASSERT_TRUE(LoadedPoseSize(PosePictureKind::Idle, width, height));
    EXPECT_EQ(width, 16384);
    EXPECT_EQ(height, 16384);
    Gdiplus::Color colour;
    auto* prepared = static_cast<Bitmap*>(g_penguinImages.idlePicture->image.get());
    prepared->GetPixel(9000, 100, &colour);
    EXPECT_EQ(colour.GetValue(), 0xFF508CC8u) << "the band is the whole drawing: no speck";
    prepared->GetPixel(9000, 300, &colour);
    EXPECT_EQ(colour.GetAlpha(), 0);
}

}  // namespace

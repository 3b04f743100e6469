// The clean-up filters on small hand-made pictures: which blobs count as
// specks, which outline pixels soften and how far colours bleed, and that
// none writes past a row's pixels.
#include <gtest/gtest.h>

#include <ostream>
#include <utility>
#include <vector>

#include "assets/pose_picture_filters.h"

namespace {

struct Colour {
    uint8_t red = 0, green = 0, blue = 0, alpha = 0;
    friend bool operator==(const Colour&, const Colour&) = default;
};

void PrintTo(const Colour& c, std::ostream* os) {
    *os << "rgba(" << int{c.red} << ", " << int{c.green} << ", " << int{c.blue} << ", "
        << int{c.alpha} << ")";
}

constexpr Colour kClear{0, 0, 0, 0};
constexpr Colour kOutline{20, 24, 32, 255};
constexpr Colour kBody{60, 90, 140, 255};
constexpr Colour kRed{255, 0, 0, 255};
constexpr Colour kBlue{0, 0, 255, 255};

// A picture laid out as a lock hands it out, rows padded past their pixels.
class Picture {
public:
    Picture(int32_t width, int32_t height, Colour fill = kClear)
        : width_(width), height_(height), stride_(width * 4 + 12),
          bytes_(static_cast<size_t>(stride_ * height), 0xAB) {
        AddBlob(0, 0, width, width * height, fill);
    }

    // Every picture a test filtered: its rows' padding as it was.
    ~Picture() {
        for (int32_t y = 0; y < height_; ++y) {
            for (ptrdiff_t i = width_ * 4; i < stride_; ++i) EXPECT_EQ(bytes_[y * stride_ + i], 0xAB) << "row " << y;
        }
    }

    PicturePixels Pixels() { return {bytes_.data(), width_, height_, stride_}; }

    void Set(int32_t x, int32_t y, Colour c) {
        uint8_t* p = &bytes_[static_cast<size_t>(y * stride_ + x * 4)];
        p[0] = c.blue, p[1] = c.green, p[2] = c.red, p[3] = c.alpha;
    }

    Colour At(int32_t x, int32_t y) const {
        const uint8_t* p = &bytes_[static_cast<size_t>(y * stride_ + x * 4)];
        return {p[2], p[1], p[0], p[3]};
    }

    // Fills `count` pixels row by row, `columns` to a row, from (x, y): one
    // connected blob.
    void AddBlob(int32_t x, int32_t y, int32_t columns, int32_t count, Colour c) {
        for (int32_t i = 0; i < count; ++i) Set(x + i % columns, y + i / columns, c);
    }

private:
    int32_t width_, height_;
    ptrdiff_t stride_;
    std::vector<uint8_t> bytes_;
};

TEST(RemoveSpecks, KeepsOnlyBlobsAboveTheThreshold) {
    struct Blob {
        int32_t x, y, columns, count;
        bool kept;
    };
    const struct {
        const char* what;
        int32_t width, height;
        std::vector<Blob> blobs;
    } cases[] = {
        {"a 10-pixel blob alone is erased", 100, 100, {{10, 10, 5, 10, false}}},
        {"24 pixels is the least that survives", 100, 100, {{10, 10, 6, 24, true}, {50, 50, 6, 23, false}}},
        {"600 x 800: at least 30 pixels", 600, 800, {{10, 10, 6, 30, true}, {100, 100, 6, 29, false}}},
        {"a fortieth of a 200000-pixel penguin", 600, 800,
         {{0, 0, 500, 200000, true}, {0, 500, 100, 5000, true}, {200, 500, 100, 4999, false}}},
    };
    for (const auto& c : cases) {
        Picture picture(c.width, c.height);
        for (const Blob& blob : c.blobs) picture.AddBlob(blob.x, blob.y, blob.columns, blob.count, kBody);
        RemoveSpecks(picture.Pixels());
        for (const Blob& blob : c.blobs) {
            const int32_t lastX = blob.x + (blob.count - 1) % blob.columns;
            const int32_t lastY = blob.y + (blob.count - 1) / blob.columns;
            const Colour expected = blob.kept ? kBody : kClear;
            EXPECT_EQ(picture.At(blob.x, blob.y), expected) << c.what << ", blob of " << blob.count;
            EXPECT_EQ(picture.At(lastX, lastY), expected) << c.what << ", blob of " << blob.count;
        }
    }
}

TEST(RemoveSpecks, CornerContactConnectsAndFaintPixelsDoNotCount) {
    // 24 pixels that touch only at their corners are one blob and survive.
    Picture diagonal(100, 100);
    for (int32_t i = 0; i < 24; ++i) diagonal.Set(10 + i, 10 + i, kBody);
    RemoveSpecks(diagonal.Pixels());
    EXPECT_EQ(diagonal.At(10, 10), kBody);
    EXPECT_EQ(diagonal.At(33, 33), kBody);

    // With one of 24 pixels below the visible alpha the blob has 23 and is
    // erased; the faint pixel belongs to no blob and stays as it was.
    Picture faint(100, 100);
    faint.AddBlob(10, 10, 6, 24, kBody);
    const Colour faintBody{60, 90, 140, kVisibleAlpha - 1};
    faint.Set(12, 11, faintBody);
    RemoveSpecks(faint.Pixels());
    EXPECT_EQ(faint.At(10, 10), kClear);
    EXPECT_EQ(faint.At(12, 11), faintBody);
}

TEST(SoftenOutline, OpenSidesDecideTheAlpha) {
    struct Offset {
        int32_t dx, dy;
    };
    const struct {
        const char* what;
        int32_t x, y;               // in a 5 x 5 picture of opaque body colour
        Colour pixel;
        std::vector<Offset> open;   // neighbours made (nearly) transparent
        uint8_t openAlpha;
        uint8_t expectedAlpha;
    } cases[] = {
        {"enclosed", 2, 2, kOutline, {}, 0, 255},
        {"one open side", 2, 2, kOutline, {{1, 0}}, 0, 200},
        {"two open sides", 2, 2, kOutline, {{1, 0}, {1, 1}}, 0, 200},
        {"three open sides", 2, 2, kOutline, {{1, -1}, {1, 0}, {1, 1}}, 0, 150},
        {"alpha 23 is open", 2, 2, kOutline, {{1, -1}, {1, 0}, {1, 1}}, 23, 150},
        {"alpha 24 is closed", 2, 2, kOutline, {{1, -1}, {1, 0}, {1, 1}}, 24, 255},
        {"the picture's corner: five missing", 0, 0, kOutline, {}, 0, 150},
        {"the picture's edge: three missing", 2, 0, kOutline, {}, 0, 150},
        {"blue 50 is not dark", 2, 2, {40, 40, 50, 255}, {{1, -1}, {1, 0}, {1, 1}}, 0, 255},
        {"green 50 is not dark", 2, 2, {40, 50, 40, 255}, {{1, -1}, {1, 0}, {1, 1}}, 0, 255},
        {"red 50 is not dark", 2, 2, {50, 40, 40, 255}, {{1, -1}, {1, 0}, {1, 1}}, 0, 255},
        {"49 in every channel is dark", 2, 2, {49, 49, 49, 255}, {{1, -1}, {1, 0}, {1, 1}}, 0, 150},
        {"alpha 200 counts as opaque", 2, 2, {20, 24, 32, 200}, {{1, 0}, {1, 1}, {0, 1}}, 0, 150},
        {"alpha 199 is not outline", 2, 2, {20, 24, 32, 199}, {{1, 0}, {1, 1}, {0, 1}}, 0, 199},
        {"body colour keeps its edge", 2, 0, kBody, {}, 0, 255},
    };
    for (const auto& c : cases) {
        Picture picture(5, 5, kBody);
        picture.Set(c.x, c.y, c.pixel);
        for (const Offset& o : c.open) picture.Set(c.x + o.dx, c.y + o.dy, {0, 0, 0, c.openAlpha});
        SoftenOutline(picture.Pixels());
        Colour expected = c.pixel;
        expected.alpha = c.expectedAlpha;
        EXPECT_EQ(picture.At(c.x, c.y), expected) << c.what;
    }
    Picture smallest(2, 2, kOutline);  // every pixel a corner
    SoftenOutline(smallest.Pixels());
    EXPECT_EQ(smallest.At(1, 1).alpha, 150);
}

TEST(BleedColours, AveragesTheColouredNeighboursAndKeepsAlpha) {
    Picture picture(5, 5);
    picture.Set(1, 2, kRed);
    picture.Set(3, 2, kBlue);
    picture.Set(2, 2, {0, 0, 0, 5});  // faint, so still a pixel to colour
    BleedColours(picture.Pixels());
    EXPECT_EQ(picture.At(2, 2), (Colour{127, 0, 127, 5}));
    EXPECT_EQ(picture.At(0, 2), (Colour{255, 0, 0, 0})) << "beside the red pixel only";
    EXPECT_EQ(picture.At(1, 2), kRed) << "visible pixels keep their colour";
    for (const auto& [far, near] : {std::pair{0, 3}, {4, 1}}) {  // only the 3 x 3 around a pixel counts
        Picture twoAway(5, 5);
        twoAway.Set(2, far, kRed), twoAway.Set(2, near, kBlue);
        BleedColours(twoAway.Pixels());
        EXPECT_EQ(twoAway.At(2, 2), (Colour{0, 0, 255, 0})) << far;
    }
}

TEST(BleedColours, ReachesFourStepsOneRingPerPass) {
    // One green pixel in the middle of a 13 x 13 picture: rings 1 to 4
    // around it take its colour, ring 5 does not.
    const Colour green{0, 200, 0, 255};
    Picture picture(13, 13);
    picture.Set(6, 6, green);
    BleedColours(picture.Pixels());
    for (int32_t ring = 1; ring <= 5; ++ring) {
        const Colour expected = ring <= 4 ? Colour{0, 200, 0, 0} : kClear;
        for (const auto& [x, y] : {std::pair{6 - ring, 6 - ring}, std::pair{6 + ring, 6},
                                   std::pair{6, 6 + ring}, std::pair{6 + ring, 6 + ring}}) {
            EXPECT_EQ(picture.At(x, y), expected) << "ring " << ring << " at " << x << ", " << y;
        }
    }
}

}  // namespace

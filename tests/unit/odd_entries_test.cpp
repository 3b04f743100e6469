// Whatever stands where the Linux edition reads or writes one of its files
// (config.ini, high_score.txt, a pose picture, a font file) reads as no file
// and is never written over: a folder, a fifo nobody writes to, an empty
// file, a file whose reading fails as on a disk that went away, a file
// without read permission. Nothing waits and nothing throws; a wait would
// hang the test, so an alarm ends it instead.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "assets/file_paths.h"
#include "assets/font_folders.h"
#include "assets/fonts_linux.h"
#include "assets/penguin_images.h"
#include "settings/high_score.h"
#include "settings/settings.h"

namespace fs = std::filesystem;

namespace {

enum class Odd { kFolder, kFifo, kEmptyFile, kReadFails, kNoReadPermission };

struct OddCase {
    const char* what;
    Odd odd;
    fs::file_type type;  // what stands there, before and after
};

std::vector<OddCase> OddCases() {
    std::vector<OddCase> cases = {
        {"a folder", Odd::kFolder, fs::file_type::directory},
        {"a fifo", Odd::kFifo, fs::file_type::fifo},
        {"an empty file", Odd::kEmptyFile, fs::file_type::regular},
        {"a file whose reading fails", Odd::kReadFails, fs::file_type::symlink},
    };
    // Root reads every file: this one only counts for another user (run the
    // test as one to see it).
    if (geteuid() != 0) {
        cases.push_back({"a file without read permission", Odd::kNoReadPermission, fs::file_type::regular});
    }
    return cases;
}

std::string ReadBytes(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// Puts the odd entry at the path; a file without read permission holds
// `content`, which would be read if the permission were ignored.
void Put(const fs::path& path, Odd odd, const std::string& content) {
    fs::remove_all(path);
    fs::create_directories(path.parent_path());
    switch (odd) {
        case Odd::kFolder: fs::create_directory(path); break;
        case Odd::kFifo: ASSERT_EQ(mkfifo(path.c_str(), 0644), 0); break;
        case Odd::kEmptyFile: std::ofstream{path}; break;
        // This process's memory, a regular file, read from address 0,
        // which is never mapped: the open succeeds and every read fails.
        case Odd::kReadFails: fs::create_symlink("/proc/self/mem", path); break;
        case Odd::kNoReadPermission:
            std::ofstream(path, std::ios::binary) << content;
            fs::permissions(path, fs::perms::none);
            break;
    }
}

// An alarm bounds the whole test: a reader waiting at a fifo never returns.
struct Watchdog {
    Watchdog() { alarm(60); }
    ~Watchdog() { alarm(0); }
};

TEST(OddEntries, ReadAsNoFile) {
    Watchdog watchdog;
    const fs::path config = FilePath(AppDataFile(L"config.ini"));
    const fs::path best = FilePath(AppDataFile(L"high_score.txt"));
    const fs::path pose = FilePath(GetAppDataDirectory()) / "penguin" / "idle.png";
    const fs::path font = FilePath(GetAppDataDirectory()) / "Fonts" / "MPLUSRounded1c-Regular.ttf";
    const std::string realPose = ReadBytes(fs::path(PUFFINO_POSE_FOLDER) / "bubble.png");
    const std::string realFont = ReadBytes(FilePath(FindFontFile(kRegularFontFile)));
    ASSERT_FALSE(realPose.empty() || realFont.empty());

    for (const OddCase& c : OddCases()) {
        SCOPED_TRACE(c.what);
        Put(config, c.odd, "[Puffino]\r\nSoundEnabled=0\r\nBlockSystemShortcuts=0\r\n");
        Settings settings;
        LoadSettings(settings);
        EXPECT_TRUE(settings.soundEnabled && settings.blockSystemShortcuts && settings.volumeClampPercent == 0 &&
                    settings.language.empty());
        EXPECT_EQ(fs::symlink_status(config).type(), c.type) << "the first start's file not written over it";

        Put(best, c.odd, "42\r\n");
        g_bestScore = 5;
        LoadBestScore();
        EXPECT_EQ(g_bestScore, 0);

        Put(pose, c.odd, realPose);
        EXPECT_FALSE(LoadPosePictureFile(WidePath(pose)));

        Put(font, c.odd, realFont);
        LoadedFont face;
        EXPECT_EQ(LoadFontFile(face, WidePath(font)), nullptr);
        EXPECT_TRUE(face.bytes.empty() && !face.loaded);
    }
}

// Against them, the real rounded face: looked up once, then kept.
TEST(OddEntries, TheRealRoundedFaceLoadsOnceAndStays) {
    ReleaseFonts();
    const FontFace* face = RoundedFace(kRegularFontFile);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(RoundedFace(kRegularFontFile), face) << "the second call reports the first's outcome";
    ReleaseFonts();
}

TEST(OddEntries, OnlyAFileTakesTheBestScore) {
    Watchdog watchdog;
    const fs::path best = FilePath(AppDataFile(L"high_score.txt"));
    for (const OddCase& c : OddCases()) {
        // Written only where something could be: not into this process's
        // memory, nor a file this user may not touch.
        if (c.odd == Odd::kReadFails || c.odd == Odd::kNoReadPermission) continue;
        SCOPED_TRACE(c.what);
        Put(best, c.odd, "");
        g_bestScore = 42;
        SaveBestScore();
        EXPECT_EQ(fs::symlink_status(best).type(), c.type);
        if (c.type == fs::file_type::regular) EXPECT_EQ(ReadBytes(best), "42\r\n");
    }
}

}  // namespace

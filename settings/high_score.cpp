// high_score.txt: one positive decimal number and a line end, in the
// application-data folder.
#include "settings/high_score.h"

#include <filesystem>
#include <fstream>
#include <locale>

#include "assets/file_paths.h"
#include "settings/settings.h"

int32_t g_bestScore = 0;

namespace {

std::filesystem::path HighScoreFile() { return FilePath(AppDataFile(L"high_score.txt")); }

}  // namespace

int32_t ParseBestScore(std::istream& text) {
    // The "C" locale whatever the user's: no digit grouping, no other digits.
    text.imbue(std::locale::classic());
    int32_t value = 0;
    // A number beyond 32 bits fails the read, like text that is no number.
    if (!(text >> value) || value <= 0) return 0;
    return value;
}

void LoadBestScore() {
    g_bestScore = 0;
    std::ifstream file(HighScoreFile());
    if (file) g_bestScore = ParseBestScore(file);
}

void SaveBestScore() {
    const int32_t value = g_bestScore;
    EnsureAppDataDirectory();
    // CR LF written out, so that the file has the same bytes in both
    // editions and can be copied between them.
    std::ofstream file(HighScoreFile(), std::ios::out | std::ios::trunc | std::ios::binary);
    if (!file) return;
    file.imbue(std::locale::classic());
    file << value << "\r\n";
}

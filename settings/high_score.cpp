// high_score.txt: one positive decimal number and a line end, in the
// application-data folder.
#include "settings/high_score.h"

#include <filesystem>
#include <locale>
#include <optional>
#include <sstream>
#include <string>

#include "assets/file_paths.h"
#include "assets/whole_file.h"
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
    // A folder, a fifo or a file that cannot be read holds no best score.
    const std::optional<std::string> bytes = ReadWholeFile(HighScoreFile());
    if (!bytes) return;
    std::istringstream text(*bytes);
    g_bestScore = ParseBestScore(text);
}

void SaveBestScore() {
    const int32_t value = g_bestScore;
    EnsureAppDataDirectory();
    // CR LF written out, so that the file has the same bytes in both
    // editions and can be copied between them. Something other than a file
    // in its place is left alone; play goes on with the best score in memory.
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << value << "\r\n";
    WriteWholeFile(HighScoreFile(), text.str());
}

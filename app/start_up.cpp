// Puffino's run from start to end, the same in both editions: single
// instance, single thread; no command line, no log.
#include "app/host.h"
#include "app/host_platform.h"
#include "assets/asset_paths.h"
#include "assets/penguin_images.h"
#include "play/sound_bank.h"
#include "settings/high_score.h"
#include "settings/language.h"
#include "settings/settings.h"

int RunPuffino() {
    if (!StartProcess()) return 0;  // another run plays already: show nothing

    Settings settings;
    LoadSettings(settings);
    ApplySettings(settings);
    SetupLanguage(settings.language);
    EnsureAppDataDirectory();
    LoadBestScore();
    BuildSoundBank();

    // Without a display no home window can be made.
    if (!StartWindowSystem()) return 1;
    LoadPenguinImages(PoseFolder());
    RebuildDisplayWindows();
    if (!StartPlay()) {
        TearDown();  // an orderly exit, with nothing left shown
        return 1;
    }
    RunEventLoop();
    TearDown();
    return 0;  // however play ended
}

// Recording stand-ins for everything outside the shell that the shell calls.
#include "tests/wine/shell_fakes.h"

#include "assets/fonts.h"
#include "assets/penguin_images.h"
#include "play/play_field.h"
#include "play/pointer_input.h"
#include "play/sound_bank.h"
#include "render/frame_buffers.h"
#include "settings/volume_clamp.h"

ShellCalls g_calls;
PlayField g_playField;
bool g_soundEnabled = true;
int32_t g_volumeClampPercent = 0;

void PointerDown(Point point, bool isTouch) { g_calls.presses.push_back({point, isTouch}); }
void PointerUp() { ++g_calls.releases; }
void CancelPress() { ++g_calls.cancels; }
void AdvanceFrame() { ++g_calls.frames; }
void LayoutPlayField() { ++g_calls.layouts; }
void ClampMasterVolume() { ++g_calls.clamps; }
void RenderScenery(DisplayWindow&) { ++g_calls.sceneries; }
void ComposeFrame(DisplayWindow&, const Rect& dirty) { g_calls.composed.push_back(dirty); }
void ReleasePenguinImages() {}
void ReleaseFonts() {}

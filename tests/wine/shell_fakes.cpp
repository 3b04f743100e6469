// Recording stand-ins for everything outside the shell that the shell calls.
#include "tests/wine/shell_fakes.h"

#include "play/play_field.h"
#include "play/pointer_input.h"
#include "render/frame_buffers.h"
#include "settings/volume_clamp.h"

ShellCalls g_calls;
PlayField g_playField;

void PointerDown(Point point, bool isTouch) { g_calls.presses.push_back({point, isTouch}); }
void PointerUp() { ++g_calls.releases; }
void CancelPress() { ++g_calls.cancels; }
void AdvanceFrame() { ++g_calls.frames; }
void LayoutPlayField() { ++g_calls.layouts; }
void ClampMasterVolume() { ++g_calls.clamps; }
void RenderScenery(DisplayWindow&) { ++g_calls.sceneries; }
void ComposeFrame(DisplayWindow&, const Rect& dirty) { g_calls.composed.push_back(dirty); }

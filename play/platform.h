// What the play field needs from the operating system and the host, as
// plain free functions. Each edition implements them (app/platform_win.cpp,
// app/platform_linux.cpp, EndPlay in app/host.cpp); the native tests link a
// recording stand-in with a clock they set themselves. The pose picture
// sizes (LoadedPoseSize, assets/penguin_images.h) belong to the same seam.
#pragma once

#include <cstdint>

#include "play/geometry.h"
#include "play/window_handle.h"

// The millisecond tick counter (wraps after 49.7 days). Read only for the
// long press on the penguin and for spacing pop sounds.
uint32_t TickCount();

// Whether the left mouse button is down right now, as the input queue sees
// it; the hold tick asks this of a mouse press every frame.
bool LeftButtonDown();

// Sends every mouse message to the window until released, so that the
// release of a press on the penguin is seen wherever the mouse goes.
void CaptureMouse(WindowHandle window);

// The window holding the mouse capture of this thread, or null.
WindowHandle MouseCaptureWindow();

// Gives the mouse capture back.
void ReleaseMouseCapture();

// Starts playing a complete in-memory WAV image asynchronously, cutting off
// whatever sound is playing; never the system's default sound. The bytes
// must stay in place while the sound plays. Failures are ignored.
void PlayWavImage(const uint8_t* image);

// Marks a client rectangle of a display window for repainting, without
// erasing the background.
void InvalidateClientRect(WindowHandle window, const Rect& client);

// Ends play: called by the finish button and by Alt+F4 through the keyboard
// guard. A second call does nothing. Posts the quit; the teardown happens
// when the event loop has ended.
void EndPlay();

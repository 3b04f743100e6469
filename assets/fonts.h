// The rounded font faces and their installed fallbacks, loaded lazily by the
// first label drawn.
#pragma once

// Releases the font families, collections and file bytes; called by the
// teardown before GDI+ shuts down.
void ReleaseFonts();

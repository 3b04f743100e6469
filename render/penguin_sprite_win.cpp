// Drawing the penguin from its pose pictures.
#include "render/penguin_sprite_win.h"

void DrawPenguin(Gdiplus::Graphics&) {
    // The animated penguin joins with the sprite drawing.
}

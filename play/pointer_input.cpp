// Presses on buttons, bubbles and the penguin.
#include "play/pointer_input.h"

void PointerDown(Point, bool) {
    // Buttons, bubbles and the penguin answer presses with the play field.
}

void PointerUp() {}

void CancelPress() {}

/* A stand-in for libXinerama.so.1 that reports to Wine under Xvfb the
 * monitors in PUFFINO_FAKE_HEADS: WIDTHxHEIGHT+X+Y in X screen coordinates,
 * separated by commas, the primary first. Wine asks only while XRandR is
 * off. */
#include <stdio.h>
#include <stdlib.h>

typedef struct {
    int screen_number;
    short x_org, y_org, width, height;
} XineramaScreenInfo;

typedef struct _XDisplay Display;

enum { kMaxHeads = 16 };

/* The heads, in a new array the caller frees with XFree (which is free). */
static XineramaScreenInfo *ReadHeads(int *count) {
    const char *text = getenv("PUFFINO_FAKE_HEADS");
    XineramaScreenInfo *heads = malloc(sizeof *heads * kMaxHeads);
    int width, height, x, y, used;
    *count = 0;
    while (heads && text && *count < kMaxHeads &&
           sscanf(text, "%dx%d+%d+%d%n", &width, &height, &x, &y, &used) == 4) {
        XineramaScreenInfo head = {*count, (short)x, (short)y, (short)width, (short)height};
        heads[(*count)++] = head;
        text += used;
        if (*text++ != ',') break;
    }
    return heads;
}

int XineramaQueryExtension(Display *display, int *eventBase, int *errorBase) {
    (void)display;
    *eventBase = *errorBase = 0;
    return 1;
}

XineramaScreenInfo *XineramaQueryScreens(Display *display, int *number) {
    (void)display;
    return ReadHeads(number);
}

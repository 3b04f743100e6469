/* A stand-in for libXinerama.so.1 that reports the monitors named in the
 * environment variable PUFFINO_FAKE_HEADS, so that Wine under Xvfb sees the
 * monitor layout a test chooses. Format: heads separated by commas, each
 * WIDTHxHEIGHT+X+Y in X screen coordinates; the first head is the primary
 * monitor. Wine asks for these only while XRandR is off. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

typedef struct {
    int screen_number;
    short x_org;
    short y_org;
    short width;
    short height;
} XineramaScreenInfo;

typedef struct _XDisplay Display;
typedef int Bool;
typedef int Status;

enum { kMaxHeads = 16 };

static int ReadHeads(XineramaScreenInfo *heads) {
    const char *text = getenv("PUFFINO_FAKE_HEADS");
    int count = 0;
    while (text && *text && count < kMaxHeads) {
        int width, height, x, y, used = 0;
        if (sscanf(text, "%dx%d+%d+%d%n", &width, &height, &x, &y, &used) != 4) break;
        heads[count].screen_number = count;
        heads[count].x_org = (short)x;
        heads[count].y_org = (short)y;
        heads[count].width = (short)width;
        heads[count].height = (short)height;
        ++count;
        text += used;
        if (*text != ',') break;
        ++text;
    }
    return count;
}

Bool XineramaQueryExtension(Display *display, int *eventBase, int *errorBase) {
    (void)display;
    *eventBase = 0;
    *errorBase = 0;
    return 1;
}

Status XineramaQueryVersion(Display *display, int *major, int *minor) {
    (void)display;
    *major = 1;
    *minor = 1;
    return 1;
}

Bool XineramaIsActive(Display *display) {
    XineramaScreenInfo heads[kMaxHeads];
    (void)display;
    return ReadHeads(heads) > 0;
}

/* The caller frees the array with XFree, which is free(). */
XineramaScreenInfo *XineramaQueryScreens(Display *display, int *number) {
    XineramaScreenInfo heads[kMaxHeads];
    XineramaScreenInfo *copy;
    int count = ReadHeads(heads);
    (void)display;
    *number = 0;
    if (count == 0) return NULL;
    copy = malloc(sizeof heads[0] * (size_t)count);
    if (!copy) return NULL;
    memcpy(copy, heads, sizeof heads[0] * (size_t)count);
    *number = count;
    return copy;
}

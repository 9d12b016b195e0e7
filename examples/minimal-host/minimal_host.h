/* What the libraries of this example share. A real host has its devices behind this; here it is a few
 * numbers. */
#ifndef MINIMAL_HOST_H
#define MINIMAL_HOST_H

#include "hostlink/tarn_abi.h"

#ifdef _WIN32
#define HOST_FUNCTION __declspec(dllexport)
#else
#define HOST_FUNCTION __attribute__((visibility("default")))
#endif

/* Fills a text buffer as the boundary asks: at most its size, cut and not refused, a NUL where there is room.
 */
static inline TarnLong fill_text(const char* text, char* buffer, TarnLong buffer_size) {
    TarnLong written = 0;
    while (written < buffer_size && text[written] != '\0') {
        buffer[written] = text[written];
        ++written;
    }
    if (written < buffer_size) {
        buffer[written] = '\0';
    }
    return written;
}

#endif

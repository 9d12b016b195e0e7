/* Takes the place of minimal_host.h: a host that minds neither the size of a buffer nor the end of a text,
 * and claims to have written a million characters. */
#define MINIMAL_HOST_H

#include "hostlink/tarn_abi.h"

#ifdef _WIN32
#define HOST_FUNCTION __declspec(dllexport)
#else
#define HOST_FUNCTION __attribute__((visibility("default")))
#endif

static inline TarnLong fill_text(const char* text, char* buffer, TarnLong buffer_size) {
    enum { far_too_many = 4096 }; /* all the room that the program promises */
    (void)text;
    for (TarnLong i = 0; i < buffer_size + far_too_many; ++i) {
        buffer[i] = 'x';
    }
    return 1000000;
}

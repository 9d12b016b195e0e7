/* A video library with a longer record than ours, and numbers of no sense in it. It crashes when the board is
 * to be put down. */
#define TarnVideoBoardShutdown honest_shutdown
#define TarnVideoGetBufferDesc honest_buffer_desc
#include "../../../examples/minimal-host/tn_video.c" // NOLINT(bugprone-suspicious-include)
#undef TarnVideoBoardShutdown
#undef TarnVideoGetBufferDesc

#include <stdlib.h>
#include <string.h>

HOST_FUNCTION TarnLong TARN_CALL TarnVideoBoardShutdown(void) { abort(); }

HOST_FUNCTION TarnLong TARN_CALL TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) {
    (void)handle;
    memset(descriptor, 0x5a, sizeof *descriptor + 100);
    return 1;
}

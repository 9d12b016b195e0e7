/* Log, message boxes and unique keys. */
#include "minimal_host.h"

#include <stdio.h>
#include <string.h>
#include <time.h>

HOST_FUNCTION void TARN_CALL TarnPrintfVB(const char* line) {
    const size_t length = strlen(line);
    fputs(line, stderr);
    if (length == 0 || line[length - 1] != '\n') {
        fputc('\n', stderr);
    }
}

/* Nobody is asked: the answer that changes least. */
HOST_FUNCTION TarnLong TARN_CALL TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) {
    fprintf(stderr, "%s: %s\n", title, messageKey);
    switch (style & 0x0f) {
    case TARN_BOX_OK_CANCEL:
        return TARN_ANSWER_CANCEL;
    case TARN_BOX_YES_NO:
        return TARN_ANSWER_NO;
    default:
        return TARN_ANSWER_OK;
    }
}

HOST_FUNCTION TarnLong TARN_CALL TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) {
    static unsigned calls;
    char key[40];
    snprintf(key, sizeof key, "%lld-%u", (long long)time(NULL), ++calls);
    return fill_text(key, buffer, bufferSize);
}

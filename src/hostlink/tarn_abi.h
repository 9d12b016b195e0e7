/* The contract between the program and the host: the C signature of every host function that the program
 * calls.
 *
 * Rules for every function
 *  - Only plain data crosses: numbers, pointers to numbers, 8-bit texts, and the three records below. No
 *    exception, no C++ type, no callback.
 *  - Texts have the platform's 8-bit encoding (Windows: the ANSI code page, elsewhere UTF-8), are
 *    NUL-terminated and never null.
 *  - The caller owns every buffer and every record. The host keeps no pointer after a call has returned.
 *  - The host writes at most as many characters as a text buffer holds, and a NUL only if there is room for
 *    it. The result is the number of characters without the NUL. A longer text is truncated, not refused.
 *  - "Non-zero on success": the hosts of this project return 1; callers test for zero only.
 *  - A function that fails leaves the variables that it would have filled as they were: the last known value
 *    stays, and no 0 is invented.
 *  - All functions are called from the program's user-interface thread, whose window takes no input meanwhile.
 *    Each returns at once, within 20 ms: none waits for a device. Only TarnAutoFocusExt and TarnMessageBoxVB
 *    take longer, and what writes a file takes as long as the disk.
 *  - Axes: 1 = X, 2 = Y, 3 = Z, and 0 = all axes where a function says so. Stage positions and lengths are
 *    whole stage units (1 unit = 1 micrometre on the simulated stage).
 *
 * Adding a function, or changing an argument or the meaning of a result, breaks every existing host
 * library.
 */
#ifndef OCUVA_TARN_ABI_H
#define OCUVA_TARN_ABI_H

#include <stdint.h>

#if defined(_WIN32) && !defined(_WIN64)
#define TARN_CALL __stdcall
#else
#define TARN_CALL
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef int32_t TarnLong;
typedef float TarnSingle;
typedef double TarnDouble;

/* ---- records ---- */

/* Description of an image buffer. The caller sets recordSize to sizeof(TarnBufferDesc), the host fills the
 * rest. */
typedef struct TarnBufferDesc {
    TarnLong recordSize;
    TarnLong width;         /* pixels, 1 to 32767 */
    TarnLong height;        /* pixels, 1 to 32767; both together at most 100 million pixels */
    TarnLong bitsPerSample; /* 8 */
    TarnLong bands;         /* 1 = grey, 3 = colour */
} TarnBufferDesc;

/* TarnVideoBoardFunction, function code 0: the window for live video, and its scale.
 * windowHandle: the handle of the display control; a host in shared libraries draws into it.
 * zoom:         -n shows the picture reduced n times (-1 or -2).
 * fullSize:     -1 shows the picture pixel for pixel and overrides zoom; 0 follows zoom. */
typedef struct TarnDisplayRequest {
    TarnLong windowHandle;
    TarnLong zoom;
    TarnLong fullSize;
} TarnDisplayRequest;

/* TarnVideoBoardFunction, function code 1: save the current image. The extension of the name gives the
 * format: ".bmp" in any letter case is BMP, everything else is TIFF. */
typedef struct TarnSaveRequest {
    TarnLong subCode; /* 4 */
    const char* fileName;
} TarnSaveRequest;

enum {
    TARN_BOARD_FUNCTION_DISPLAY = 0, /* data: TarnDisplayRequest */
    TARN_BOARD_FUNCTION_SAVE = 1,    /* data: TarnSaveRequest */
    TARN_BOARD_FUNCTION_GAIN = 2,    /* data: one TarnLong, 0 to 4, or -1 for automatic gain */
    TARN_SAVE_SUB_CODE = 4,
    TARN_BUFFER_CURRENT = -1, /* TarnVideoBufferAlloc: the buffer that the board grabs into */
    TARN_BUFFER_NONE = -1     /* handle of a failed allocation */
};

/* TarnMessageBoxVB: the buttons, and the answer. */
enum {
    TARN_BOX_OK = 0,
    TARN_BOX_OK_CANCEL = 1,
    TARN_BOX_YES_NO = 4,
    TARN_BOX_CRITICAL = 16, /* added to the buttons: the critical icon */
    TARN_ANSWER_OK = 1,
    TARN_ANSWER_CANCEL = 2,
    TARN_ANSWER_YES = 6,
    TARN_ANSWER_NO = 7
};

/* TarnAutoFocusExt: where the search ended. A host that does not know returns any other value except 0. */
enum {
    TARN_FOCUS_NONE = 0,  /* no focus; Z is back where it began */
    TARN_FOCUS_FOUND = 2, /* Z is at the focus, inside the searched range */
    TARN_FOCUS_EDGE = 3   /* the image is sharpest at an end of the range, and Z is there */
};

/* ---- tn_reg: settings stores ----
 * The store is named as the program passes it: the application title + ".INI", "TARN.INI" or "TARN".
 * Sections and keys match in any letter case. */

/* Reads a whole number. Result: the value, or defaultValue if store, section or key is missing or the value
 * is not a number. */
TarnLong TARN_CALL TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                      const char* store);
/* Writes a value and creates section and key if they are missing. Non-zero on success. */
TarnLong TARN_CALL TarnRegisterSetString(const char* section, const char* key, const char* value,
                                         const char* store);
/* Reads a text, or defaultValue if it is missing. Result: characters written. The standards list uses a
 * buffer of 128 characters. */
TarnLong TARN_CALL TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                         char* buffer, TarnLong bufferSize, const char* store);

/* ---- tn_log, Tn_log: log, message boxes, unique keys ---- */

/* Writes one line to the host's log. The text may end with LF or CR LF; the log shows one line either way. */
void TARN_CALL TarnPrintfVB(const char* line);
/* Shows the host's message box and waits for the answer. messageKey names one of the host's messages; an
 * unknown key is shown as the text itself. style: TARN_BOX_...; result: TARN_ANSWER_.... */
TarnLong TARN_CALL TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style);
/* Writes a key that no other call on this machine has ever returned, at most 40 characters. Result:
 * characters written. */
TarnLong TARN_CALL TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize);

/* ---- tn_ocuva: messages ---- */

/* Sends a message, for example "OCUVA_WakeUp", to the running copies of the program. The name matches a
 * message identifier in any letter case. Result: non-zero if a copy received it. */
TarnLong TARN_CALL TarnOcuvaSendMsgByName(const char* name);

/* ---- tn_lib_proxy: host settings, limits, database, solver ---- */

/* Tell the host which video board (0 or 1) and which camera type (1 to 4) are in use. Non-zero on success. */
TarnLong TARN_CALL TarnSetVideoBoardType(TarnLong boardType);
TarnLong TARN_CALL TarnSetVideoCameraType(TarnLong cameraType);
/* Width and height of the whole field in stage units at magnification 100. Non-zero on success; on failure
 * the variables do not change. */
TarnLong TARN_CALL TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100);
TarnLong TARN_CALL TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100);
/* Lower and upper limit of axis 1, 2 or 3 in stage units. Non-zero on success. */
TarnLong TARN_CALL TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper);
/* The directory of the standards, without a trailing separator. Result: characters written. */
TarnLong TARN_CALL TarnGetDirStd(char* buffer, TarnLong bufferSize);
/* Opens an empty database object of a type ("OCUVASTD"). Result: its handle, or 0 on failure. */
TarnLong TARN_CALL TarnDbObjectNew(const char* typeName);
/* Reads the named object (the full path of a ".std" file) into the handle. Non-zero on success. */
TarnLong TARN_CALL TarnDbObjectRead(TarnLong handle, const char* name);
/* Frees the handle; the object stays in the database. Result: non-zero if the handle was open. */
TarnLong TARN_CALL TarnDbObjectDelete(TarnLong handle);
/* Stage position of the object that was read last, in stage units. Non-zero on success. */
TarnLong TARN_CALL TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z);
/* The number of entries in a section; and one entry, numbered from 1, as text "key=value" in a buffer of
 * 200 characters. Results: the count; the characters written, 0 for a number out of range. */
TarnLong TARN_CALL TarnIniEnumNb(const char* section, const char* store);
TarnLong TARN_CALL TarnIniEnumString(const char* section, TarnLong number, char* buffer, TarnLong bufferSize,
                                     const char* store);
/* Solves 2 or 3 linear equations (rows) with three unknowns. matrix: rows x 3 numbers, row by row;
 * rightSide: rows numbers; solution: a, b, c. Non-zero on success; zero, without a change to solution, if
 * it is not determined. */
TarnLong TARN_CALL TarnSolvePlan(TarnLong rows, const TarnDouble* matrix, const TarnDouble* rightSide,
                                 TarnDouble* solution);

/* ---- tn_micro_proxy: stage and focus ---- */

/* Starts the loaded move of one axis, or of all with 0, and does not wait for its end. Result: non-zero if a
 * move was loaded. The axis is busy at once: its status is 1 from this call until it is at rest, also before
 * the motor turns. */
TarnLong TARN_CALL TarnStartStage(TarnLong axis);
/* Loads an absolute target for axis 1, 2 or 3, rounded to whole units; TarnStartStage starts the move.
 * Non-zero on success; a target outside the limits is refused. */
TarnLong TARN_CALL TarnLoadStageAbs(TarnLong axis, TarnSingle target);
/* Loads a move relative to the current position of the axis, also while it moves. Non-zero on success; a
 * target outside the limits is refused, and nothing is loaded. */
TarnLong TARN_CALL TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance);
/* Current position of axis 1, 2 or 3. Non-zero on success. A device that does not answer is a failure, and
 * *position keeps the last known value. */
TarnLong TARN_CALL TarnReadStagePos(TarnLong axis, TarnLong* position);
/* Status of axis 1, 2 or 3: 1 while it moves, 0 while it is at rest. The second argument is always 0.
 * Non-zero on success. A move ends by report or by silence: the program takes an axis to be at rest when its
 * status is 0, and also when its status cannot be read. A host that loses its device while an axis moves
 * therefore fails here; it does not report a move for ever. */
TarnLong TARN_CALL TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status);
/* Searches for the focus and returns once Z has stopped at the chosen position, or back where it began.
 * flag: -1. Result: TARN_FOCUS_...; only the journal uses it. */
TarnLong TARN_CALL TarnAutoFocusExt(TarnLong flag);
/* Loads the move that takes up the play of an axis, or of all with 0: away against the working direction
 * and back to the start. TarnStartStage starts it. Result: non-zero if it was loaded. */
TarnLong TARN_CALL TarnBacklashStage(TarnLong axis);

/* ---- tn_video, tn_vduti: board, camera, buffers, statistics ---- */

/* Initialises the board. Non-zero on success. */
TarnLong TARN_CALL TarnVideoBoardInit(void);
/* Shuts the board down; a running grab ends. The result is not used. */
TarnLong TARN_CALL TarnVideoBoardShutdown(void);
/* Starts grabbing into the display window. continuous: 1, or 0 for one frame; show: always 1. Non-zero on
 * success; zero if the board is not ready. */
TarnLong TARN_CALL TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show);
/* Ends the grab; the last frame stays. The result is not used. */
TarnLong TARN_CALL TarnVideoBoardHaltGrab(void);
/* Board type 0 or 1. After a change the board is not ready. */
TarnLong TARN_CALL TarnVideoSetCurrentBoardType(TarnLong boardType);
TarnLong TARN_CALL TarnVideoGetCurrentBoardType(void);
/* Multi-purpose call. functionCode: TARN_BOARD_FUNCTION_...; data: the record of that function. Non-zero on
 * success. */
TarnLong TARN_CALL TarnVideoBoardFunction(TarnLong functionCode, void* data);
/* Returns a handle for the board's own image buffer, or TARN_BUFFER_NONE if no board is ready. parent is
 * TARN_BUFFER_CURRENT. The handle is not freed. */
TarnLong TARN_CALL TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent);
/* Fills in the description of a buffer. Non-zero on success. */
TarnLong TARN_CALL TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor);
/* Camera type: 1 (European black and white), 2 (US/Japanese colour), 3 (European colour), 4 (US/Japanese
 * black and white), or 0 if none is chosen. */
TarnLong TARN_CALL TarnVideoSetCurrentCameraType(TarnLong cameraType);
TarnLong TARN_CALL TarnVideoGetCurrentCameraType(void);
/* References from 0 to 100, limited by the host. group 1: contrast and brightness; group 2: hue and
 * saturation. -1.0 leaves a value unchanged. Non-zero on success. */
TarnLong TARN_CALL TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second);
TarnLong TARN_CALL TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second);
/* Grey-level statistics (0 to 255; colour pixels count with their luminance) of a region of a buffer.
 * Buffer 0 is the current frame; the region 0, 0, -1, -1 is all of it. Non-zero on success; before the
 * first frame the three results are 0. A sum that 32 bits do not hold is a failure. */
TarnLong TARN_CALL TarnVideoBufferComputeStatistics(TarnLong* buffer, TarnLong left, TarnLong top,
                                                    TarnLong right, TarnLong bottom, TarnLong* pixelCount,
                                                    TarnLong* pixelSum, TarnDouble* variance);

#ifdef __cplusplus
} /* extern "C" */

#include <cstddef>
static_assert(sizeof(TarnLong) == 4 && sizeof(TarnSingle) == 4 && sizeof(TarnDouble) == 8);
static_assert(sizeof(TarnBufferDesc) == 20 && offsetof(TarnBufferDesc, width) == 4 &&
              offsetof(TarnBufferDesc, height) == 8 && offsetof(TarnBufferDesc, bitsPerSample) == 12 &&
              offsetof(TarnBufferDesc, bands) == 16);
static_assert(sizeof(TarnDisplayRequest) == 12 && offsetof(TarnDisplayRequest, zoom) == 4 &&
              offsetof(TarnDisplayRequest, fullSize) == 8);
static_assert(offsetof(TarnSaveRequest, fileName) == sizeof(void*) &&
              sizeof(TarnSaveRequest) == 2 * sizeof(void*));
#endif

#endif

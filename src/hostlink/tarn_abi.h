/* The law of the boundary to the host: the C signature of every host function that the program calls.
 *
 * Rules that hold for every function here
 *  - Only plain data crosses: numbers, pointers to numbers, 8-bit texts, and the three records below. No
 * exception, no C++ type, no callback.
 *  - Texts are the platform's 8-bit text (on Windows the ANSI code page, elsewhere UTF-8), ended by a NUL,
 * never null.
 *  - The caller owns every buffer and every record. The host keeps no pointer after it has returned.
 *  - A text buffer is filled with at most its size in characters, and ended by a NUL only where there is room
 * for one; the result is the number of characters written without the NUL. A longer text is cut, not refused.
 *  - "non-zero on success" means 1 from our own hosts; callers test for zero only.
 *  - All functions are called from the program's one user-interface thread.
 *  - Axis codes: 1 = X, 2 = Y, 3 = Z, 0 = all axes where a function says so. Stage positions and lengths are
 * whole stage units (1 unit = 1 micrometre on the simulated stage).
 *
 * Adding a function, changing an argument or the meaning of a result breaks every host library that exists.
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

/* ---- records
 * ------------------------------------------------------------------------------------------------- */

/* Description of an image buffer. The caller sets recordSize to sizeof(TarnBufferDesc); the host fills the
 * rest. */
typedef struct TarnBufferDesc {
    TarnLong recordSize;
    TarnLong width;         /* pixels */
    TarnLong height;        /* pixels */
    TarnLong bitsPerSample; /* 8 */
    TarnLong bands;         /* 1 = grey, 3 = colour */
} TarnBufferDesc;

/* TarnVideoBoardFunction, function code 0: the window that live video is shown in, and how.
 * windowHandle: the handle of the display control; a real host draws into it.
 * zoom:         -n shows the picture reduced n times (-1 or -2).
 * fullSize:     -1 shows the picture pixel for pixel whatever zoom says, 0 obeys zoom. */
typedef struct TarnDisplayRequest {
    TarnLong windowHandle;
    TarnLong zoom;
    TarnLong fullSize;
} TarnDisplayRequest;

/* TarnVideoBoardFunction, function code 1: save the current image. The format follows the name's extension:
 * ".bmp" gives BMP, everything else TIFF, without regard to letter case. */
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

/* TarnMessageBoxVB: which buttons, and which was pressed. */
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

/* TarnAutoFocusExt: where the search ended. A host that cannot tell answers with another value that is not
 * zero. */
enum {
    TARN_FOCUS_NONE = 0,  /* no focus; Z is where it began */
    TARN_FOCUS_FOUND = 2, /* Z is at the focus, inside the range that was searched */
    TARN_FOCUS_EDGE = 3   /* it was sharpest at an end of the range, and Z is there */
};

/* ---- tn_reg: settings stores
 * ------------------------------------------------------------------------------------ store is the name as
 * the program passes it: the application title + ".INI", "TARN.INI" or "TARN". Sections and keys are found
 * without regard to letter case. */

/* Reads a whole number; the default when store, section or key is absent or its value is no number.
 * Needed by every reader of settings. */
TarnLong TARN_CALL TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                      const char* store);
/* Writes a value, making section and key where they are absent. Non-zero on success; only the standards list
 * looks. Needed by every writer of settings. */
TarnLong TARN_CALL TarnRegisterSetString(const char* section, const char* key, const char* value,
                                         const char* store);
/* Reads a text; the default when it is absent. Result: characters written. Needed by the standards list
 * (128-character buffer). */
TarnLong TARN_CALL TarnRegisterGetString(const char* section, const char* key, const char* defaultValue,
                                         char* buffer, TarnLong bufferSize, const char* store);

/* ---- tn_log, Tn_log: log, message boxes, unique keys
 * ------------------------------------------------------------ */

/* Writes one line to the host's log. The text may end with a line feed or CR LF of its own; the log shows one
 * line either way. */
void TARN_CALL TarnPrintfVB(const char* line);
/* Shows the host's message box and waits for the answer. messageKey names one of the host's messages; a key
 * that the host does not know is shown as the text itself. style: TARN_BOX_...; result: TARN_ANSWER_....
 * Needed by the calibration dialog. */
TarnLong TARN_CALL TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style);
/* Fills the buffer with a key that no other call on this machine ever returned (at most 40 characters).
 * Result: characters written. */
TarnLong TARN_CALL TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize);

/* ---- tn_ocuva: messages
 * ----------------------------------------------------------------------------------------- */

/* Sends the message of that name ("OCUVA_WakeUp") to the running copies of the program. The name stands for
 * the identifier that it equals without regard to letter case. Non-zero when a copy took it; nobody looks. */
TarnLong TARN_CALL TarnOcuvaSendMsgByName(const char* name);

/* ---- tn_lib_proxy: host settings, limits, database, solver
 * ------------------------------------------------------ */

/* Tells the host which video board (0 or 1) and which camera type (1 to 4) is in use. Non-zero on success. */
TarnLong TARN_CALL TarnSetVideoBoardType(TarnLong boardType);
TarnLong TARN_CALL TarnSetVideoCameraType(TarnLong cameraType);
/* Width and height of the whole field in stage units at magnification 100. Non-zero on success; on failure
 * the variables stay as they were. */
TarnLong TARN_CALL TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100);
TarnLong TARN_CALL TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100);
/* Lower and upper limit of axis 1, 2 or 3 in stage units. Non-zero on success. */
TarnLong TARN_CALL TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper);
/* The standards directory without a separator at its end. Result: characters written. */
TarnLong TARN_CALL TarnGetDirStd(char* buffer, TarnLong bufferSize);
/* Opens an empty database object of a type ("OCUVASTD"). Result: handle, 0 on failure. */
TarnLong TARN_CALL TarnDbObjectNew(const char* typeName);
/* Reads the object of that name (a full path of a ".std" file) into the handle. Non-zero on success. */
TarnLong TARN_CALL TarnDbObjectRead(TarnLong handle, const char* name);
/* Frees the handle; the object itself stays in the database. Non-zero when the handle was open. */
TarnLong TARN_CALL TarnDbObjectDelete(TarnLong handle);
/* Stage position of the object read last, in stage units. Non-zero on success. */
TarnLong TARN_CALL TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z);
/* Number of entries of a section, and the entry of a number counted from 1 as "key=value" text into a buffer
 * of 200 characters. Results: count; characters written, 0 for a number out of range. */
TarnLong TARN_CALL TarnIniEnumNb(const char* section, const char* store);
TarnLong TARN_CALL TarnIniEnumString(const char* section, TarnLong number, char* buffer, TarnLong bufferSize,
                                     const char* store);
/* Solves rows (2 or 3) equations of three unknowns: matrix is rows x 3 numbers row by row, rightSide has rows
 * numbers, solution receives a, b, c. Non-zero on success; zero, and an untouched solution, when the rows
 * leave it open. */
TarnLong TARN_CALL TarnSolvePlan(TarnLong rows, const TarnDouble* matrix, const TarnDouble* rightSide,
                                 TarnDouble* solution);

/* ---- tn_micro_proxy: stage and focus
 * ---------------------------------------------------------------------------- */

/* Sets loaded moves going: of one axis, or of all with 0. Non-zero when a move was loaded. */
TarnLong TARN_CALL TarnStartStage(TarnLong axis);
/* Loads an absolute target for axis 1, 2 or 3 (rounded to whole units); TarnStartStage sets it going.
 * Non-zero when it was taken; a target outside the limits is refused. */
TarnLong TARN_CALL TarnLoadStageAbs(TarnLong axis, TarnSingle target);
/* Loads a move relative to the axis's present position, also while it moves. Refused (zero, nothing loaded)
 * when the target would leave the limits. */
TarnLong TARN_CALL TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance);
/* Present position of axis 1, 2 or 3. Non-zero on success. */
TarnLong TARN_CALL TarnReadStagePos(TarnLong axis, TarnLong* position);
/* State of axis 1, 2 or 3: status is 1 while it moves and 0 when it stands. The second argument is always 0.
 * Result: non-zero when the status could be read. */
TarnLong TARN_CALL TarnReadStageStatus(TarnLong axis, TarnLong zero, TarnLong* status);
/* Searches the focus and returns when Z stands at the chosen position (or back where it began). flag: -1.
 * Result: TARN_FOCUS_..., for the journal alone. */
TarnLong TARN_CALL TarnAutoFocusExt(TarnLong flag);
/* Loads the move that takes up the play of an axis, or of all with 0: away against the working direction and
 * back. It ends where it began; TarnStartStage sets it going. Non-zero when it was loaded. Needed by the
 * Backlash command. */
TarnLong TARN_CALL TarnBacklashStage(TarnLong axis);

/* ---- tn_video, tn_vduti: board, camera, buffers, statistics
 * ----------------------------------------------------- */

/* Makes the board ready. Non-zero on success. */
TarnLong TARN_CALL TarnVideoBoardInit(void);
/* Puts the board down; a running grab ends. Result unused. */
TarnLong TARN_CALL TarnVideoBoardShutdown(void);
/* Starts grabbing into the display window. continuous: 1, or 0 for one frame; show: always 1. Non-zero when
 * the grab started; zero when the board is not ready. */
TarnLong TARN_CALL TarnVideoBoardStartGrab(TarnLong continuous, TarnLong show);
/* Ends the grab; the last frame stays. Result unused. */
TarnLong TARN_CALL TarnVideoBoardHaltGrab(void);
/* Board type 0 or 1. Setting it leaves the board not ready. */
TarnLong TARN_CALL TarnVideoSetCurrentBoardType(TarnLong boardType);
TarnLong TARN_CALL TarnVideoGetCurrentBoardType(void);
/* The multi-purpose call; functionCode is one of TARN_BOARD_FUNCTION_..., data the record that goes with it.
 * Non-zero on success; nobody looks. */
TarnLong TARN_CALL TarnVideoBoardFunction(TarnLong functionCode, void* data);
/* Allocates an image buffer; parent is TARN_BUFFER_CURRENT. Result: handle, TARN_BUFFER_NONE when no board is
 * ready. There is nothing to free: the handle stands for the board's own buffer. */
TarnLong TARN_CALL TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent);
/* Fills the descriptor of a buffer. Non-zero on success. */
TarnLong TARN_CALL TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor);
/* Camera type 1 (European black and white), 2 (US/Japanese colour), 3 (European colour), 4 (US/Japanese black
 * and white); 0 when none is chosen. */
TarnLong TARN_CALL TarnVideoSetCurrentCameraType(TarnLong cameraType);
TarnLong TARN_CALL TarnVideoGetCurrentCameraType(void);
/* References on a scale of 0 to 100, clamped by the host. group 1: contrast, brightness; group 2: hue,
 * saturation. -1.0 leaves a slot unchanged. Non-zero on success. */
TarnLong TARN_CALL TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second);
TarnLong TARN_CALL TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second);
/* Statistics of grey levels (0 to 255; a colour pixel counts with its luminance) in the region left, top,
 * right, bottom of a buffer; buffer 0 is the current frame, and 0, 0, -1, -1 all of it. Non-zero on success;
 * before the first frame the three values are 0. */
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

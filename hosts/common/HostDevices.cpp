// The libraries over the hardware: stage and focus, board and camera, statistics.

#include "hosts/common/HostLibraries.h"
#include "hosts/common/HostTexts.h"
#include "hosts/common/focus/FocusSearch.h"
#include "hosts/common/services/GuardedCall.h"

namespace hosts {

TarnLong MicroscopeLibrary::TarnStartStage(TarnLong axis) {
    return guardedCall(m_parts.log, "TarnStartStage", TarnLong{0}, [&] { return m_parts.stage.start(axis); });
}

TarnLong MicroscopeLibrary::TarnLoadStageAbs(TarnLong axis, TarnSingle target) {
    return guardedCall(m_parts.log, "TarnLoadStageAbs", TarnLong{0},
                       [&] { return m_parts.stage.loadAbsolute(axis, target); });
}

TarnLong MicroscopeLibrary::TarnLoadStageRelSecure(TarnLong axis, TarnSingle distance) {
    return guardedCall(m_parts.log, "TarnLoadStageRelSecure", TarnLong{0},
                       [&] { return m_parts.stage.loadRelative(axis, distance); });
}

TarnLong MicroscopeLibrary::TarnReadStagePos(TarnLong axis, TarnLong* position) {
    return guardedCall(m_parts.log, "TarnReadStagePos", TarnLong{0},
                       [&] { return position != nullptr && m_parts.stage.position(axis, *position); });
}

TarnLong MicroscopeLibrary::TarnReadStageStatus(TarnLong axis, TarnLong /*zero*/, TarnLong* status) {
    return guardedCall(m_parts.log, "TarnReadStageStatus", TarnLong{0}, [&] {
        bool moving = false;
        if (status == nullptr || !m_parts.stage.isMoving(axis, moving)) {
            return false;
        }
        *status = moving ? 1 : 0;
        return true;
    });
}

TarnLong MicroscopeLibrary::TarnAutoFocusExt(TarnLong /*flag*/) {
    return guardedCall(m_parts.log, "TarnAutoFocusExt", TarnLong{0}, [&] {
        const FocusPlan plan = readFocusPlan(m_parts.stores, m_parts.log);
        FocusSearch search(
            m_parts.stage, *m_parts.devices.clock,
            [this] { return m_parts.board.isReady() ? m_parts.board.frameAfterNow() : nullptr; },
            m_parts.log);
        switch (search.run(plan)) {
        case FocusVerdict::found:
            return TARN_FOCUS_FOUND;
        case FocusVerdict::edge:
            return TARN_FOCUS_EDGE;
        default:
            return TARN_FOCUS_NONE;
        }
    });
}

TarnLong MicroscopeLibrary::TarnBacklashStage(TarnLong axis) {
    return guardedCall(m_parts.log, "TarnBacklashStage", TarnLong{0},
                       [&] { return m_parts.stage.loadBacklash(axis); });
}

TarnLong VideoLibrary::TarnVideoBoardInit() {
    return guardedCall(m_parts.log, "TarnVideoBoardInit", TarnLong{0}, [&] { return m_parts.board.init(); });
}

TarnLong VideoLibrary::TarnVideoBoardShutdown() {
    return guardedCall(m_parts.log, "TarnVideoBoardShutdown", TarnLong{0}, [&] {
        m_parts.board.shutdown();
        return true;
    });
}

TarnLong VideoLibrary::TarnVideoBoardStartGrab(TarnLong continuous, TarnLong /*show*/) {
    return guardedCall(m_parts.log, "TarnVideoBoardStartGrab", TarnLong{0},
                       [&] { return m_parts.board.startGrab(continuous != 0); });
}

TarnLong VideoLibrary::TarnVideoBoardHaltGrab() {
    return guardedCall(m_parts.log, "TarnVideoBoardHaltGrab", TarnLong{0}, [&] {
        m_parts.board.haltGrab();
        return true;
    });
}

TarnLong VideoLibrary::TarnVideoSetCurrentBoardType(TarnLong boardType) {
    return guardedCall(m_parts.log, "TarnVideoSetCurrentBoardType", TarnLong{0},
                       [&] { return m_parts.board.setBoardType(boardType); });
}

TarnLong VideoLibrary::TarnVideoGetCurrentBoardType() {
    return guardedCall(m_parts.log, "TarnVideoGetCurrentBoardType", TarnLong{0},
                       [&] { return m_parts.board.boardType(); });
}

TarnLong VideoLibrary::TarnVideoBoardFunction(TarnLong functionCode, void* data) {
    return guardedCall(m_parts.log, "TarnVideoBoardFunction", TarnLong{0}, [&] {
        if (data == nullptr) {
            return false;
        }
        switch (functionCode) {
        case TARN_BOARD_FUNCTION_DISPLAY:
            m_parts.board.setDisplay(*static_cast<const TarnDisplayRequest*>(data));
            return true;
        case TARN_BOARD_FUNCTION_SAVE:
            return save(*static_cast<const TarnSaveRequest*>(data));
        case TARN_BOARD_FUNCTION_GAIN:
            return m_parts.board.setGain(*static_cast<const TarnLong*>(data));
        default:
            return false;
        }
    });
}

TarnLong VideoLibrary::TarnVideoBufferAlloc(TarnBufferDesc* descriptor, TarnLong parent) {
    return guardedCall(m_parts.log, "TarnVideoBufferAlloc", TarnLong{TARN_BUFFER_NONE}, [&] {
        const TarnLong handle = m_parts.board.allocateBuffer();
        const bool described = descriptor != nullptr && m_parts.board.describeBuffer(handle, *descriptor);
        return described && parent == TARN_BUFFER_CURRENT ? handle : TarnLong{TARN_BUFFER_NONE};
    });
}

TarnLong VideoLibrary::TarnVideoGetBufferDesc(TarnLong handle, TarnBufferDesc* descriptor) {
    return guardedCall(m_parts.log, "TarnVideoGetBufferDesc", TarnLong{0}, [&] {
        return descriptor != nullptr && m_parts.board.describeBuffer(handle, *descriptor);
    });
}

TarnLong VideoLibrary::TarnVideoSetCurrentCameraType(TarnLong cameraType) {
    return guardedCall(m_parts.log, "TarnVideoSetCurrentCameraType", TarnLong{0},
                       [&] { return m_parts.chooseCamera(cameraType); });
}

TarnLong VideoLibrary::TarnVideoGetCurrentCameraType() {
    return guardedCall(m_parts.log, "TarnVideoGetCurrentCameraType", TarnLong{0},
                       [&] { return m_parts.board.cameraType(); });
}

TarnLong VideoLibrary::TarnVideoCameraSetReferences(TarnLong group, TarnDouble first, TarnDouble second) {
    return guardedCall(m_parts.log, "TarnVideoCameraSetReferences", TarnLong{0},
                       [&] { return m_parts.board.setReferences(group, first, second); });
}

TarnLong VideoLibrary::TarnVideoCameraGetReferences(TarnLong group, TarnDouble* first, TarnDouble* second) {
    return guardedCall(m_parts.log, "TarnVideoCameraGetReferences", TarnLong{0}, [&] {
        return first != nullptr && second != nullptr && m_parts.board.references(group, *first, *second);
    });
}

} // namespace hosts

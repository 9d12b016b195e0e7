// The libraries that need no hardware: settings, log, messages, and the general library.

#include "hostlink/HostArguments.h"
#include "hosts/common/HostLibraries.h"
#include "hosts/common/HostTexts.h"
#include "hosts/common/services/GuardedCall.h"
#include "hosts/common/services/PlanSolver.h"
#include "hosts/common/services/UniqueKey.h"

namespace hosts {

namespace {

/// UTF-8, as every text that crosses the boundary.
std::string pathText(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace

TarnLong SettingsLibrary::TarnRegisterGetInt(const char* section, const char* key, TarnLong defaultValue,
                                             const char* store) {
    return guardedCall(m_parts.log, "TarnRegisterGetInt", defaultValue, [&] {
        return m_parts.stores.getInt(textOf(section), textOf(key), defaultValue, textOf(store));
    });
}

TarnLong SettingsLibrary::TarnRegisterSetString(const char* section, const char* key, const char* value,
                                                const char* store) {
    return guardedCall(m_parts.log, "TarnRegisterSetString", TarnLong{0}, [&] {
        return m_parts.stores.setString(textOf(section), textOf(key), textOf(value), textOf(store));
    });
}

TarnLong SettingsLibrary::TarnRegisterGetString(const char* section, const char* key,
                                                const char* defaultValue, char* buffer, TarnLong bufferSize,
                                                const char* store) {
    return guardedCall(m_parts.log, "TarnRegisterGetString", TarnLong{0}, [&] {
        return copyText(
            m_parts.stores.getString(textOf(section), textOf(key), textOf(defaultValue), textOf(store)),
            buffer, bufferSize);
    });
}

void LogLibrary::TarnPrintfVB(const char* line) { m_parts.log.line(textOf(line)); }

TarnLong LogLibrary::TarnMessageBoxVB(const char* messageKey, const char* title, TarnLong style) {
    return guardedCall(m_parts.log, "TarnMessageBoxVB", ocuva::answerOfNobody(style), [&] {
        const std::string text = messageText(textOf(messageKey));
        const TarnLong answer = m_parts.options.showMessage
                                    ? m_parts.options.showMessage(text, std::string(textOf(title)), style)
                                    : ocuva::answerOfNobody(style);
        m_parts.log.line("message box \"" + text + "\", answer " + std::to_string(answer));
        return answer;
    });
}

TarnLong LogLibrary::TarnGetUniqueObjectKey(char* buffer, TarnLong bufferSize) {
    return guardedCall(m_parts.log, "TarnGetUniqueObjectKey", TarnLong{0},
                       [&] { return copyText(uniqueKey(), buffer, bufferSize); });
}

TarnLong MessageLibrary::TarnOcuvaSendMsgByName(const char* name) {
    return guardedCall(m_parts.log, "TarnOcuvaSendMsgByName", TarnLong{0}, [&] {
        const std::string text(textOf(name));
        return m_parts.options.sendByName ? m_parts.options.sendByName(text) : m_parts.bus().sendByName(text);
    });
}

TarnLong GeneralLibrary::TarnSetVideoBoardType(TarnLong boardType) {
    return guardedCall(m_parts.log, "TarnSetVideoBoardType", TarnLong{0},
                       [&] { return m_parts.board.noteBoardType(boardType); });
}

TarnLong GeneralLibrary::TarnSetVideoCameraType(TarnLong cameraType) {
    return guardedCall(m_parts.log, "TarnSetVideoCameraType", TarnLong{0},
                       [&] { return m_parts.chooseCamera(cameraType); });
}

TarnLong GeneralLibrary::TarnGetVideoMag100Factors(TarnSingle* x100, TarnSingle* y100) {
    return guardedCall(m_parts.log, "TarnGetVideoMag100Factors", TarnLong{0}, [&] {
        if (x100 == nullptr || y100 == nullptr) {
            return false;
        }
        const FieldSize factors = m_parts.field.factors();
        *x100 = static_cast<TarnSingle>(factors.width);
        *y100 = static_cast<TarnSingle>(factors.height);
        return true;
    });
}

TarnLong GeneralLibrary::TarnSetVideoMag100Factors(const TarnSingle* x100, const TarnSingle* y100) {
    return guardedCall(m_parts.log, "TarnSetVideoMag100Factors", TarnLong{0}, [&] {
        return x100 != nullptr && y100 != nullptr && m_parts.field.setFactors(*x100, *y100);
    });
}

TarnLong GeneralLibrary::TarnGetStageLimits(TarnLong axis, TarnLong* lower, TarnLong* upper) {
    return guardedCall(m_parts.log, "TarnGetStageLimits", TarnLong{0}, [&] {
        return lower != nullptr && upper != nullptr && m_parts.stage.limits(axis, *lower, *upper);
    });
}

TarnLong GeneralLibrary::TarnGetDirStd(char* buffer, TarnLong bufferSize) {
    return guardedCall(m_parts.log, "TarnGetDirStd", TarnLong{0},
                       [&] { return copyText(pathText(m_parts.folder.standards()), buffer, bufferSize); });
}

TarnLong GeneralLibrary::TarnDbObjectNew(const char* typeName) {
    return guardedCall(m_parts.log, "TarnDbObjectNew", TarnLong{0},
                       [&] { return m_parts.database.objectNew(textOf(typeName)); });
}

TarnLong GeneralLibrary::TarnDbObjectRead(TarnLong handle, const char* name) {
    return guardedCall(m_parts.log, "TarnDbObjectRead", TarnLong{0},
                       [&] { return m_parts.database.objectRead(handle, textOf(name)); });
}

TarnLong GeneralLibrary::TarnDbObjectDelete(TarnLong handle) {
    return guardedCall(m_parts.log, "TarnDbObjectDelete", TarnLong{0},
                       [&] { return m_parts.database.objectDelete(handle); });
}

TarnLong GeneralLibrary::TarnDbGetStagePos(TarnLong handle, TarnLong* x, TarnLong* y, TarnLong* z) {
    return guardedCall(m_parts.log, "TarnDbGetStagePos", TarnLong{0}, [&] {
        return x != nullptr && y != nullptr && z != nullptr && m_parts.database.stagePos(handle, x, y, z);
    });
}

TarnLong GeneralLibrary::TarnIniEnumNb(const char* section, const char* store) {
    return guardedCall(m_parts.log, "TarnIniEnumNb", TarnLong{0},
                       [&] { return m_parts.stores.entryCount(textOf(section), textOf(store)); });
}

TarnLong GeneralLibrary::TarnIniEnumString(const char* section, TarnLong number, char* buffer,
                                           TarnLong bufferSize, const char* store) {
    return guardedCall(m_parts.log, "TarnIniEnumString", TarnLong{0}, [&] {
        return copyText(m_parts.stores.entry(textOf(section), number, textOf(store)), buffer, bufferSize);
    });
}

TarnLong GeneralLibrary::TarnSolvePlan(TarnLong rows, const TarnDouble* matrix, const TarnDouble* rightSide,
                                       TarnDouble* solution) {
    return guardedCall(m_parts.log, "TarnSolvePlan", TarnLong{0}, [&] {
        return matrix != nullptr && rightSide != nullptr && solution != nullptr &&
               solvePlan(rows, matrix, rightSide, solution);
    });
}

} // namespace hosts

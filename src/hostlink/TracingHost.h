#pragma once
// Makes every crossing of the seam visible: a host that hands each call on to another and writes it down.

#include "hostlink/Host.h"

#include <filesystem>
#include <memory>

namespace ocuva {

/// Wraps any host. Each call becomes one line of JSON in the trace file, written as the call returns:
///
///     {"seq":1,"ms":12.345,"lib":"tn_micro_proxy","fn":"TarnLoadStageRelSecure","in":[1,-25],"out":[],"ret":1}
///
///  - seq counts the lines of this object from 1; ms is the time of the return, in milliseconds since this
///    object was made.
///  - lib and fn are the names of library and function as Host.h has them.
///  - in holds what was passed, in order. Pure outputs (position, limits, text buffers) are left out; what is
///    read and written through one pointer (the buffer number of TarnVideoBufferComputeStatistics) stands in
///    both. A buffer descriptor stands as [recordSize], the arrays of TarnSolvePlan as arrays, and the record
///    of TarnVideoBoardFunction as [windowHandle,zoom,fullSize], [subCode,"file"] or [gain] by function code,
///    or null for another code.
///  - out holds what stands behind the pointers after the call, in order: a text buffer as the text filled
///  in, a
///    buffer descriptor as [recordSize,width,height,bitsPerSample,bands], a solution as [a,b,c].
///  - ret is the result, null where there is none.
///
/// Notifier traffic stands as lib "m_notifier" with fn "Subscribe", "Send", and "OnNotify" with in
/// [msgHandler,component,subComponent,id], which is written before the receiver is called. How values are
/// written: JsonText.h.
///
/// Results and outputs pass through unchanged, and trouble with the file never reaches the program (see
/// TraceWriter). Used from the user-interface thread, like the host itself.
class TracingHost final : public Host {
public:
    /// `host` outlives this object, and this object outlives the notifiers that it makes.
    TracingHost(Host& host, const std::filesystem::path& traceFile);
    ~TracingHost() override;

    TARN_LIBRARIES(TARN_ACCESS)
    std::unique_ptr<Notifier> createNotifier() override;

private:
    struct Libraries;
    std::unique_ptr<Libraries> m_libraries;
};

} // namespace ocuva

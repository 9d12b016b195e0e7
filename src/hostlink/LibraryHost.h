#pragma once
// The real host: its shared libraries, loaded while the program runs.

#include "hostlink/CallMark.h"
#include "hostlink/Host.h"

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>

namespace ocuva {

/// Why the libraries cannot be used: one sentence for the operator that names the library, or the function
/// that it lacks.
class LibraryHostError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Loads tn_reg, tn_log, tn_ocuva, tn_lib_proxy, tn_micro_proxy, tn_video and tn_vduti, each with the
/// system's suffix (".dll", ".so"), and finds every function of tarn_abi.h in them before the first one is
/// called.
///
/// A library may misbehave: texts are taken through buffers of our own with room behind them and cut to what
/// the caller asked for, whatever length the library claims, and so is the description of a buffer.
/// Everything else passes unchanged. Used from the user-interface thread.
class LibraryHost final : public Host {
public:
    using MakeNotifier = std::function<std::unique_ptr<Notifier>()>;

    /// Files of the seven libraries, without folder and suffix.
    static constexpr std::array<const char*, 7> names{
        "tn_reg", "tn_log", "tn_ocuva", "tn_lib_proxy", "tn_micro_proxy", "tn_video", "tn_vduti"};

    /// Whether all seven files are in the folder.
    static bool allIn(const std::filesystem::path& folder);

    /// Loads the libraries from the folder; with an empty one from where the system looks for libraries.
    /// Throws LibraryHostError, and has nothing loaded then. createNotifier makes the notifiers, which no
    /// library exports. The mark, when there is one, says at each moment which library is being loaded or
    /// which of its functions runs; it outlives the host.
    LibraryHost(const std::filesystem::path& folder, MakeNotifier createNotifier, CallMark* mark = nullptr);
    ~LibraryHost() override;

    TARN_LIBRARIES(TARN_ACCESS)
    std::unique_ptr<Notifier> createNotifier() override;

private:
    struct Libraries;
    std::unique_ptr<Libraries> m_libraries;
    MakeNotifier m_createNotifier;
};

} // namespace ocuva

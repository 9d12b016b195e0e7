#pragma once
// The seam between the program and its host: one abstract class per host library, its functions under their
// host names, as HostFunctionTable.h lists them. What each function does, its units and its results are
// defined in tarn_abi.h; nothing here or in any class that only hands on (LibraryHost, TracingHost) decides
// anything.

#include "hostlink/HostFunctionTable.h"
#include "hostlink/Notifier.h"

#include <array>
#include <string_view>
#include <type_traits>

namespace ocuva {

// One class a library: TnReg, TnLog, TnLogKeys, TnOcuva, TnLibProxy, TnMicroProxy, TnVideo, TnVduti.
#define DECLARE_FUNCTION(library, result, name, failure, ...)                                                \
    virtual result name(TARN_PARAMETERS(__VA_ARGS__)) = 0;
#define DECLARE_LIBRARY(Class, library, file, FUNCTIONS)                                                     \
    class Class {                                                                                            \
    public:                                                                                                  \
        virtual ~Class() = default;                                                                          \
        FUNCTIONS(DECLARE_FUNCTION)                                                                          \
    };
TARN_LIBRARIES(DECLARE_LIBRARY)
#undef DECLARE_LIBRARY
#undef DECLARE_FUNCTION

// The table and the C functions must be the same.
#define CHECK_FUNCTION(library, result, name, failure, ...)                                                  \
    static_assert(std::is_same_v<decltype(::name), result TARN_CALL(TARN_PARAMETERS(__VA_ARGS__))>,          \
                  #name " has another signature in tarn_abi.h");
TARN_FUNCTIONS(CHECK_FUNCTION)
#undef CHECK_FUNCTION

/// The names of all functions, in the table's order.
#define NAME_FUNCTION(library, result, name, failure, ...) #name,
inline constexpr auto hostFunctionNames = std::to_array<std::string_view>({TARN_FUNCTIONS(NAME_FUNCTION)});
#undef NAME_FUNCTION

/// Declares the functions of a library in a class that implements it: `TN_REG(TARN_OVERRIDE)`.
#define TARN_OVERRIDE(library, result, name, failure, ...) result name(TARN_PARAMETERS(__VA_ARGS__)) override;

/// A whole host: its libraries and its notifier. Implementations own what they hand out and outlive every
/// user.
class Host {
public:
    virtual ~Host() = default;
#define DECLARE_ACCESS(Class, library, file, FUNCTIONS) virtual Class& library() = 0;
    TARN_LIBRARIES(DECLARE_ACCESS)
#undef DECLARE_ACCESS
    /// Makes the host's notifier object; the caller owns it.
    virtual std::unique_ptr<Notifier> createNotifier() = 0;
};

/// Declares the access to every library in a class that implements Host: `TARN_LIBRARIES(TARN_ACCESS)`.
#define TARN_ACCESS(Class, library, file, FUNCTIONS) ocuva::Class& library() override;

} // namespace ocuva

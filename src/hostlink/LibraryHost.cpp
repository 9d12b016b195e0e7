#include "hostlink/LibraryHost.h"

#include "hostlink/LibraryFunctions.h"

#include <system_error>
#include <utility>

namespace ocuva {

namespace {

// The functions of a library, found by their names when it is made.
#define LOADED_FUNCTION(library, result, name, failure, ...)                                                 \
public:                                                                                                      \
    result name(TARN_PARAMETERS(__VA_ARGS__)) override { return m_##name(TARN_PASSED(__VA_ARGS__)); }        \
                                                                                                             \
private:                                                                                                     \
    MarkedFunction<decltype(&::name)> m_##name{m_find(#name)};
#define LOADED_LIBRARY(Class, library, file, FUNCTIONS)                                                      \
    class Loaded##Class final : public Class {                                                               \
    public:                                                                                                  \
        explicit Loaded##Class(const LibraryFunctions& find)                                                 \
            : m_find(find) {}                                                                                \
                                                                                                             \
    private:                                                                                                 \
        const LibraryFunctions& m_find;                                                                      \
        FUNCTIONS(LOADED_FUNCTION)                                                                           \
    };
TARN_LIBRARIES(LOADED_LIBRARY)
#undef LOADED_LIBRARY
#undef LOADED_FUNCTION

} // namespace

struct LibraryHost::Libraries {
    Libraries(const std::filesystem::path& where, CallMark* givenMark)
        : folder(where)
        , mark(givenMark != nullptr ? *givenMark : ownMark) {
        if (!lacks.empty()) {
            const std::size_t others = lacks.size() - 1;
            throw LibraryHostError(
                lacks.front() + (others == 0 ? "." : ". " + std::to_string(others) + " more are missing."));
        }
    }

    std::filesystem::path folder;
    CallMark ownMark;
    CallMark& mark;
    std::vector<std::string> lacks;
    LibraryFunctions tn_reg{folder, "tn_reg", lacks, mark};
    LibraryFunctions tn_log{folder, "tn_log", lacks, mark};
    LibraryFunctions tn_ocuva{folder, "tn_ocuva", lacks, mark};
    LibraryFunctions tn_lib_proxy{folder, "tn_lib_proxy", lacks, mark};
    LibraryFunctions tn_micro_proxy{folder, "tn_micro_proxy", lacks, mark};
    LibraryFunctions tn_video{folder, "tn_video", lacks, mark};
    LibraryFunctions tn_vduti{folder, "tn_vduti", lacks, mark};

#define LOADED_MEMBER(Class, library, file, FUNCTIONS) Loaded##Class loaded_##library{file};
    TARN_LIBRARIES(LOADED_MEMBER)
#undef LOADED_MEMBER
};

bool LibraryHost::allIn(const std::filesystem::path& folder) {
    return std::all_of(names.begin(), names.end(), [&folder](const char* name) {
        std::error_code ignored;
        return std::filesystem::is_regular_file(folder / (std::string(name) + SharedLibrary::suffix),
                                                ignored);
    });
}

LibraryHost::LibraryHost(const std::filesystem::path& folder, MakeNotifier createNotifier, CallMark* mark)
    : m_libraries(std::make_unique<Libraries>(folder, mark))
    , m_createNotifier(std::move(createNotifier)) {}

LibraryHost::~LibraryHost() = default;

#define LOADED_ACCESS(Class, library, file, FUNCTIONS)                                                       \
    Class& LibraryHost::library() { return m_libraries->loaded_##library; }
TARN_LIBRARIES(LOADED_ACCESS)
#undef LOADED_ACCESS

std::unique_ptr<Notifier> LibraryHost::createNotifier() { return m_createNotifier(); }

} // namespace ocuva

# Helpers that give every target of the tree the same rules.

# The headers of Windows define words such as "near" as macros, so a source that includes them is not joined with others.
function(ocuva_keep_system_headers_apart target)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(source ${sources})
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
        if(NOT EXISTS ${source})
            continue()
        endif()
        file(STRINGS ${source} system_headers REGEX "#include (<windows\\.h>|\"platform/SystemWindow\\.h\")")
        if(system_headers)
            set_source_files_properties(${source} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
        endif()
    endforeach()
endfunction()

# Warnings as errors and, where asked for, sanitizers.
function(ocuva_target_rules target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
        -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # GCC 12 sees overlapping copies in any "text" + std::string.
        target_compile_options(${target} PRIVATE -Wno-restrict)
    endif()
    if(CMAKE_UNITY_BUILD)
        if(WIN32)
            # At the end of the folder, when all sources of the target are known.
            cmake_language(EVAL CODE "cmake_language(DEFER CALL ocuva_keep_system_headers_apart ${target})")
        endif()
        # Among joined sources a local name hides the constants of another source, which the other does not mean.
        target_compile_options(${target} PRIVATE -Wno-shadow)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            # ... and GCC takes each of them for a header, in which local types would be a mistake.
            target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
        endif()
    endif()
    # The arithmetic of the picture and of the lengths must be the same on every machine.
    target_compile_options(${target} PRIVATE -ffp-contract=off)
    if(OCUVA_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all
            -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
    if(OCUVA_SANITIZE_THREADS)
        target_compile_options(${target} PRIVATE -fsanitize=thread -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=thread)
    endif()
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
    set_target_properties(${target} PROPERTIES UNITY_BUILD_BATCH_SIZE 12
        UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
endfunction()

# What Debian builds its packages with, so that an error in memory ends a shipped program instead of being of use to somebody.
# Not with sanitizers, which do the same better, and not for test programs.
function(ocuva_hardened target)
    if(WIN32 OR OCUVA_SANITIZE OR OCUVA_SANITIZE_THREADS)
        return()
    endif()
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-fstack-protector-strong -fstack-clash-protection
        -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|amd64")
        target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-fcf-protection>)
    endif()
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
        target_link_options(${target} PRIVATE -pie -Wl,-z,relro -Wl,-z,now)
    endif()
endfunction()
if(WIN32)
    # Asserts and the like name their file; not where it lay when the program was built.
    add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endif()

# The thread sanitizer needs a build of its own, and understands only programs that run no Qt: these.
option(OCUVA_SANITIZE_THREADS "Thread sanitizer" OFF)
set(ocuva_thread_tests test_display test_grab test_log_and_trace test_simulated_camera test_hosts_services)
add_custom_target(tsan)

option(OCUVA_PCH "Precompile the headers of Qt and GoogleTest" ON)
# Precompiled headers are shared between targets, so all are compiled as Qt wants it.
add_compile_options(-fPIC)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # ... and ccache can tell that two of them are the same.
    add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp>")
endif()

# Tests run once for each build of them, so time spent on making them fast is lost; what they test stays as it is shipped.
function(ocuva_test_rules target)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O0 -U_FORTIFY_SOURCE>)
    endif()
endfunction()

# ocuva_precompiled(<target> <group>): reuses the precompiled headers of one group, which are made at the
# group's first use. Sources go on including what they need; this only makes it cheap.
function(ocuva_precompiled target group)
    if(NOT OCUVA_PCH)
        return()
    endif()
    if(WIN32 AND group STREQUAL "gtest")
        # Qt's targets there define what the system's headers depend on, so tests with and without Qt cannot share them.
        return()
    endif()
    set(headers_qt <QApplication> <QMainWindow> <QPainter>)
    set(headers_gtest <gmock/gmock.h> <gtest/gtest.h>)
    set(headers_qt_gtest ${headers_qt} ${headers_gtest})
    set(link_qt Qt6::Widgets)
    set(link_gtest GTest::gmock)
    set(link_qt_gtest ${link_qt} ${link_gtest})
    set(pch ocuva_pch_${group})
    if(NOT TARGET ${pch})
        file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/pch/${group}.cpp CONTENT "")
        add_library(${pch} OBJECT ${PROJECT_BINARY_DIR}/pch/${group}.cpp)
        set_target_properties(${pch} PROPERTIES AUTOMOC OFF)
        target_link_libraries(${pch} PRIVATE ${link_${group}})
        target_precompile_headers(${pch} PRIVATE ${headers_${group}})
        ocuva_target_rules(${pch})
        if(group MATCHES "gtest")
            ocuva_test_rules(${pch})
        else()
            ocuva_hardened(${pch})
        endif()
    endif()
    target_precompile_headers(${target} REUSE_FROM ${pch})
endfunction()

# ocuva_library(<name> <files>... [LINK <targets>...]): one folder of the tree as a static library; it is
# included by its path from the root of the tree.
function(ocuva_library name)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_UNPARSED_ARGUMENTS})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_LINK})
    ocuva_target_rules(${name})
    ocuva_hardened(${name})
    if("Qt6::Widgets" IN_LIST ARG_LINK)
        ocuva_precompiled(${name} qt)
    endif()
endfunction()

# ocuva_test(<name> <files>... [LINK <targets>...] [QT]): one GoogleTest program, run by ctest as one test.
# QT gives it a QApplication on the offscreen platform. What it did is left in test-results/<name>.json below the build.
function(ocuva_test name)
    cmake_parse_arguments(ARG "QT" "" "LINK" ${ARGN})
    add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    if(ARG_QT)
        target_link_libraries(${name} PRIVATE tests_qt_main)
        if(WIN32)
            qt_import_plugins(${name} INCLUDE Qt6::QOffscreenIntegrationPlugin)
        endif()
        ocuva_precompiled(${name} qt_gtest)
    else()
        target_link_libraries(${name} PRIVATE GTest::gmock GTest::gtest_main)
        ocuva_precompiled(${name} gtest)
    endif()
    target_link_libraries(${name} PRIVATE ${ARG_LINK})
    ocuva_target_rules(${name})
    ocuva_test_rules(${name})
    add_test(NAME ${name} COMMAND ${name})
    if(name IN_LIST ocuva_thread_tests)
        set_tests_properties(${name} PROPERTIES LABELS tsan)
        add_dependencies(tsan ${name})
    endif()
    set_property(GLOBAL APPEND PROPERTY ocuva_tests ${name})
    set(results ${PROJECT_BINARY_DIR}/test-results)
    set(qt "QT_QPA_PLATFORM=offscreen")
    set(timeout 300)
    if(CMAKE_CROSSCOMPILING AND WIN32)
        string(PREPEND results "Z:") # where Wine has this machine's files
        # Wine passes on what begins with QT_ only under these names. The platform finds no fonts by itself.
        set(qt "WINEQT_QPA_PLATFORM=offscreen;WINEQT_FORCE_STDERR_LOGGING=1;WINEQT_QPA_FONTDIR=Z:/usr/share/fonts/truetype/dejavu")
        set(timeout 900)
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${timeout}
        ENVIRONMENT "${qt};GTEST_OUTPUT=json:${results}/${name}.json;ASAN_OPTIONS=detect_leaks=1;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp")
endfunction()

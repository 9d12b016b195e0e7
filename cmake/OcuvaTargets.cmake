# Helpers that give every target of the tree the same rules.

# Warnings as errors and, where asked for, sanitizers.
function(ocuva_target_rules target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
        -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
    # The arithmetic of the picture and of the lengths must be the same on every machine.
    target_compile_options(${target} PRIVATE -ffp-contract=off)
    if(OCUVA_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all
            -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
endfunction()

# ocuva_library(<name> <files>... [LINK <targets>...]): one folder of the tree as a static library; it is
# included by its path from the root of the tree.
function(ocuva_library name)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_UNPARSED_ARGUMENTS})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_LINK})
    ocuva_target_rules(${name})
endfunction()

# ocuva_test(<name> <files>... [LINK <targets>...] [QT]): one GoogleTest program, run by ctest as one test.
# QT gives it a QApplication on the offscreen platform.
function(ocuva_test name)
    cmake_parse_arguments(ARG "QT" "" "LINK" ${ARGN})
    add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    if(ARG_QT)
        target_link_libraries(${name} PRIVATE tests_qt_main)
    else()
        target_link_libraries(${name} PRIVATE GTest::gmock GTest::gtest_main)
    endif()
    target_link_libraries(${name} PRIVATE ${ARG_LINK})
    ocuva_target_rules(${name})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;ASAN_OPTIONS=detect_leaks=1;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp")
endfunction()

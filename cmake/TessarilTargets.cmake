# How every target of the project is built, and the functions that the folders call.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

# Warnings, sanitizers and Qt's strictness for the targets that link it.
add_library(tessaril_options INTERFACE)
target_compile_options(tessaril_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Wconversion>
    $<$<BOOL:${TESSARIL_WERROR}>:-Werror>
    $<$<AND:$<COMPILE_LANG_AND_ID:CXX,GNU>,$<BOOL:${TESSARIL_PCH}>>:-fpch-preprocess>
)
target_compile_definitions(tessaril_options INTERFACE
    QT_NO_CAST_TO_ASCII
    QT_NO_FOREACH
    QT_DISABLE_DEPRECATED_BEFORE=0x060400
)
if(TESSARIL_SANITIZE)
    target_compile_options(tessaril_options INTERFACE
        -fsanitize=${TESSARIL_SANITIZE} -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(tessaril_options INTERFACE -fsanitize=${TESSARIL_SANITIZE})
endif()

# Reading Qt's headers is most of a compilation, so each group of targets shares one precompiled set.
function(tessaril_precompile target owner)
    if(NOT TESSARIL_PCH)
        return()
    endif()
    if(owner STREQUAL target)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    else()
        target_precompile_headers(${target} REUSE_FROM ${owner})
    endif()
endfunction()

# Qt defines each test's build folder for its data files. It would keep the tests from sharing one set
# of precompiled headers, and none of ours looks for files there.
function(tessaril_share_test_headers)
    get_target_property(definitions Qt6::Test INTERFACE_COMPILE_DEFINITIONS)
    list(FILTER definitions EXCLUDE REGEX "QT_TESTCASE_(BUILD|SOURCE)DIR")
    set_target_properties(Qt6::Test PROPERTIES INTERFACE_COMPILE_DEFINITIONS "${definitions}")
endfunction()

# Lets the target count which of its lines run, in a build for coverage.
function(tessaril_count_lines target)
    if(TESSARIL_COVERAGE)
        target_compile_options(${target} PRIVATE -O0 --coverage)
        target_link_options(${target} PUBLIC --coverage)
    endif()
endfunction()

# tessaril_library(<folder> SOURCES ... LIBRARIES ...): the library of one folder of src, static unless
# TESSARIL_SHARED asks for libraries that can change without a new link of what uses them.
function(tessaril_library folder)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
    set(target tessaril_${folder})
    if(TESSARIL_SHARED)
        add_library(${target} SHARED ${ARG_SOURCES})
        # No macro of each library's own, so that they share precompiled headers; and -fPIC comes from
        # Qt already, so that the same command compiles both kinds and ccache knows it.
        set_target_properties(${target} PROPERTIES DEFINE_SYMBOL "" POSITION_INDEPENDENT_CODE OFF)
    else()
        add_library(${target} STATIC ${ARG_SOURCES})
    endif()
    add_library(Tessaril::${folder} ALIAS ${target})
    target_include_directories(${target} PUBLIC "${tessaril_SOURCE_DIR}/src")
    target_link_libraries(${target} PUBLIC ${ARG_LIBRARIES} PRIVATE tessaril_options)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    tessaril_count_lines(${target})
endfunction()

# tessaril_tests(<folder> LABEL <label> LIBRARIES ... CLASSES ...): one program for each class,
# tests/<folder>/tst_<Class>.cpp, run in an empty home and working directory of its own. All tests of
# a label are built by the target tessaril_<label>_tests.
function(tessaril_tests folder)
    cmake_parse_arguments(ARG "" "LABEL;TIMEOUT" "LIBRARIES;CLASSES" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    foreach(class IN LISTS ARG_CLASSES)
        set(target tst_${class})
        add_executable(${target} tst_${class}.cpp)
        target_link_libraries(${target} PRIVATE ${ARG_LIBRARIES} Tessaril::testsupport Qt6::Test
            tessaril_options)
        set_target_properties(${target} PROPERTIES AUTOMOC ON)
        tessaril_precompile(${target} tessaril_testsupport)
        if(NOT TARGET tessaril_${ARG_LABEL}_tests)
            add_custom_target(tessaril_${ARG_LABEL}_tests)
        endif()
        add_dependencies(tessaril_${ARG_LABEL}_tests ${target})
        tessaril_add_test(${folder}/${class} ${target} ${ARG_LABEL} ${ARG_TIMEOUT})
    endforeach()
endfunction()

# tessaril_add_test(<name> <target> <label> <timeout> [arguments...])
function(tessaril_add_test name target label timeout)
    add_test(NAME ${name}
        COMMAND "${tessaril_SOURCE_DIR}/tests/support/run-clean" "${tessaril_BINARY_DIR}/home/${name}"
            $<TARGET_FILE:${target}> ${ARGN})
    set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT ${timeout})
    if(NOT label STREQUAL "window")
        set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    endif()
endfunction()

# miniz: the system's own package if there is one, else the two files that tools/setup keeps in
# build/deps (unmodified, checked by their digests, never committed).

find_package(miniz QUIET)
if(NOT TARGET miniz::miniz)
    find_path(TESSARIL_MINIZ_DIR miniz.c
        PATHS "${CMAKE_CURRENT_SOURCE_DIR}/build/deps/miniz"
        NO_DEFAULT_PATH
        DOC "Folder of miniz.c and miniz.h"
    )
    if(NOT TESSARIL_MINIZ_DIR)
        message(FATAL_ERROR "miniz is missing: run tools/setup, or set TESSARIL_MINIZ_DIR")
    endif()
    add_library(tessaril_miniz STATIC "${TESSARIL_MINIZ_DIR}/miniz.c")
    target_include_directories(tessaril_miniz SYSTEM PUBLIC "${TESSARIL_MINIZ_DIR}")
    target_compile_definitions(tessaril_miniz PRIVATE _LARGEFILE64_SOURCE=1)
    target_compile_options(tessaril_miniz PRIVATE -w)
    set_target_properties(tessaril_miniz PROPERTIES POSITION_INDEPENDENT_CODE ${TESSARIL_SHARED})
    if(TESSARIL_SANITIZE)
        target_compile_options(tessaril_miniz PRIVATE
            -fsanitize=address $<$<BOOL:${TESSARIL_FUZZ}>:-fsanitize=fuzzer-no-link>)
    endif()
    add_library(miniz::miniz ALIAS tessaril_miniz)
endif()

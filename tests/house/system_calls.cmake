# Fails if the library calls the operating system past Qt and its siblings.
# cmake -DNM=<nm> -DLIBRARY=<library> -P system_calls.cmake
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/Symbols.cmake")

lines_of(lines ${NM} --dynamic --demangle --undefined-only "${LIBRARY}")
if(NOT lines MATCHES "QString::")
    message(FATAL_ERROR "'${LIBRARY}' names no undefined symbols.")
endif()
find_system_calls("${lines}" calls)
fail_on_complaints("${LIBRARY} must not call" "${calls}")

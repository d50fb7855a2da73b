# Fails if the library exports a symbol that is not of its own classes.
# cmake -DNM=<nm> -DLIBRARY=<library> -P exports.cmake
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/Symbols.cmake")

lines_of(lines ${NM} --dynamic --demangle --defined-only "${LIBRARY}")
if(NOT lines MATCHES " T KpbAParameter::")
    message(FATAL_ERROR "'${LIBRARY}' does not export KpbAParameter.")
endif()
find_strange_exports("${lines}" strange)
fail_on_complaints("${LIBRARY} must not export" "${strange}")

# Fails if the library is linked to another library than it may be.
# cmake -DREADELF=<readelf> -DLIBRARY=<library> -P needed.cmake
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/Symbols.cmake")

lines_of(lines ${READELF} --dynamic --wide "${LIBRARY}")
if(NOT lines MATCHES "libQt5Core")
    message(FATAL_ERROR "'${LIBRARY}' names no needed libraries.")
endif()
find_strange_libraries("${lines}" strange)
fail_on_complaints("${LIBRARY} must not need" "${strange}")

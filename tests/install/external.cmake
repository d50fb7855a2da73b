# Installs the sibling libraries alone, and builds the library against them as against those of another suite.
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/Steps.cmake")

step("Installing" ${CMAKE_COMMAND} --install "${BUILD}" --prefix "${WORK}/moved" --component suite)
if(EXISTS "${WORK}/moved/include/kestrin/param")
    message(FATAL_ERROR "The siblings' component holds headers of the library.")
endif()
# Built as it is shipped: the optimiser finds warnings that the other builds do not show.
configure("${SOURCE}" "${WORK}/build" -DKESTRIN_SUITE=external -DKESTRIN_BUILD_APPS=OFF -DKESTRIN_BUILD_TESTS=OFF
    -DCMAKE_BUILD_TYPE=Release)
step("Building" ${CMAKE_COMMAND} --build "${WORK}/build" --target kestrin_param)

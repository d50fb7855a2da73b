# Fails if a source of the project includes what does not stand below it.
# cmake -DROOT=<root folder> -P floors.cmake
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/Floors.cmake")

find_upward_includes("${ROOT}" complaints count)
list(JOIN complaints "\n" text)
if(complaints)
    message(FATAL_ERROR "Includes that do not keep to the floors:\n${text}")
endif()
if(count EQUAL 0)
    message(FATAL_ERROR "No include was found below '${ROOT}'.")
endif()
message(STATUS "${count} includes keep to the floors.")

# Fails if the README shows another program, or another output of it, than the tests build and run.
# cmake -DREADME=<file> -DCONSUMER=<folder> -P readme.cmake
cmake_minimum_required(VERSION 3.25)

file(READ "${README}" readme)
foreach(shown main.cpp CMakeLists.txt expected.txt)
    file(READ "${CONSUMER}/${shown}" code)
    string(FIND "${readme}" "\n${code}```" at)
    if(at EQUAL -1)
        message(SEND_ERROR "${README} does not show ${CONSUMER}/${shown} as it stands.")
    endif()
endforeach()

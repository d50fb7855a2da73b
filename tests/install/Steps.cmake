# The steps that the tests of the installation share. A step that fails shows what it printed and ends the test.

# step(<title> <program> <argument>...): runs the program and gives what it prints on its standard output in
# STEP_OUTPUT.
function(step title)
    message(STATUS "${title}")
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${title}: ended with ${result}\n${output}\n${errors}")
    endif()
    set(STEP_OUTPUT "${output}" PARENT_SCOPE)
endfunction()

# configure(<source> <build> <cmake option>...)
function(configure source build)
    step("Configuring ${source}" ${CMAKE_COMMAND} -S "${source}" -B "${build}" -G "${GENERATOR}" "-DWORK=${WORK}"
        -C "${CACHE}" ${ARGN})
endfunction()

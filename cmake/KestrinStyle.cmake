# The checks of style, as targets: `format` rewrites the sources, and `tidy`, in the preset clang, runs clang-tidy over
# them.

file(GLOB_RECURSE KESTRIN_STYLED_FILES CONFIGURE_DEPENDS
    apps/*.cpp apps/*.h bench/*.cpp bench/*.h fuzz/*.cpp fuzz/*.h include/*.h param/*.cpp param/*.h
    suite/*.cpp suite/*.h tests/*.cpp tests/*.h cmake/*.h)
# Other versions of the formatter break lines elsewhere.
find_program(KESTRIN_CLANG_FORMAT NAMES clang-format-14)
find_program(KESTRIN_RUN_CLANG_TIDY NAMES run-clang-tidy run-clang-tidy-14)

if(KESTRIN_CLANG_FORMAT)
    add_custom_target(format COMMAND ${KESTRIN_CLANG_FORMAT} -i ${KESTRIN_STYLED_FILES} COMMAND_EXPAND_LISTS VERBATIM)
endif()
# It reads the precompiled headers of the build, which must be clang's.
if(KESTRIN_RUN_CLANG_TIDY AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_custom_target(tidy
        COMMAND ${KESTRIN_RUN_CLANG_TIDY} -quiet -p "${CMAKE_BINARY_DIR}" "^${KESTRIN_ROOT}/(apps|param|suite)/"
        VERBATIM)
    add_dependencies(tidy kestrin_param)
    if(TARGET kparam)
        add_dependencies(tidy kparam)
    endif()
endif()

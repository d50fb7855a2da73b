# What every target of the project shares: the language level, the warnings, hidden visibility, precompiled headers, the
# compiler cache, the fast linker and the installed packages.

get_filename_component(KESTRIN_ROOT "${CMAKE_CURRENT_LIST_DIR}" DIRECTORY)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}" "$ORIGIN")

option(KESTRIN_WARNINGS_AS_ERRORS "Treat warnings in the project's own code as errors" ON)
option(KESTRIN_USE_CCACHE "Compile through ccache where it is installed" ON)
option(KESTRIN_USE_MOLD "Link with mold where it is installed" ON)
set(KESTRIN_SANITIZE "" CACHE STRING "Sanitizers of the whole build, such as address,undefined")

if(KESTRIN_USE_CCACHE)
    find_program(KESTRIN_CCACHE ccache)
    if(KESTRIN_CCACHE)
        # The two kinds of sloppiness are what ccache asks for before it caches with precompiled headers.
        set(CMAKE_CXX_COMPILER_LAUNCHER
            ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${KESTRIN_CCACHE})
    endif()
endif()
if(KESTRIN_USE_MOLD)
    find_program(KESTRIN_MOLD mold)
    if(KESTRIN_MOLD)
        add_link_options(-fuse-ld=mold)
    endif()
endif()
if(KESTRIN_SANITIZE)
    add_compile_options(-fsanitize=${KESTRIN_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=${KESTRIN_SANITIZE})
endif()

# The warnings, as errors, of the project's own code.
function(kestrin_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
    if(KESTRIN_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS)
endfunction()

# kestrin_precompile(<target> <header>): precompiles the header in the way that lets the compiler cache work with it.
function(kestrin_precompile target header)
    target_precompile_headers(${target} PRIVATE "${KESTRIN_ROOT}/cmake/${header}")
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    else()
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
endfunction()

# kestrin_library(<name> <include root> SOURCES ... PUBLIC ... PRIVATE ...): a shared library libKestrin_<name>.so with
# the alias Kestrin::<name>, its headers below <include root>, exported from the build tree and from the installation.
function(kestrin_library name include_root)
    cmake_parse_arguments(arg "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(kestrin_${name} SHARED ${arg_SOURCES})
    add_library(Kestrin::${name} ALIAS kestrin_${name})
    string(TOUPPER ${name} upper)
    set_target_properties(kestrin_${name} PROPERTIES OUTPUT_NAME Kestrin_${name} EXPORT_NAME ${name}
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    target_compile_definitions(kestrin_${name} PRIVATE KESTRIN_${upper}_LIBRARY)
    target_include_directories(kestrin_${name} PUBLIC
        $<BUILD_INTERFACE:${include_root}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/kestrin>)
    target_link_libraries(kestrin_${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
    target_compile_features(kestrin_${name} PUBLIC cxx_std_20)
    # Calls within the library go straight to their target: nobody replaces a function of it from outside.
    target_compile_options(kestrin_${name} PRIVATE -fno-semantic-interposition)
    target_link_options(kestrin_${name} PRIVATE -Wl,-Bsymbolic-functions)
    kestrin_precompile(kestrin_${name} pch.h)
    kestrin_warnings(kestrin_${name})
endfunction()

# kestrin_package_name(<variable> <name>): the name under which find_package finds the library, such as KestrinBasic
# or KestrinGeosPython.
function(kestrin_package_name variable name)
    set(package "Kestrin")
    string(REPLACE "_" ";" words ${name})
    foreach(word IN LISTS words)
        string(SUBSTRING ${word} 0 1 initial)
        string(TOUPPER ${initial} initial)
        string(SUBSTRING ${word} 1 -1 rest)
        string(APPEND package "${initial}${rest}")
    endforeach()
    set(${variable} ${package} PARENT_SCOPE)
endfunction()

# kestrin_install(<name> <header folder> <folder below include/kestrin>): installs the library and its headers, and puts
# it into the export set of its package.
function(kestrin_install name header_folder below)
    kestrin_package_name(package ${name})
    install(TARGETS kestrin_${name} EXPORT ${package}Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(DIRECTORY ${header_folder}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kestrin/${below}
        FILES_MATCHING PATTERN "*.h")
endfunction()

# kestrin_package(<name>): installs the package of a sibling library. Its config finds what the library links publicly.
function(kestrin_package name)
    kestrin_package_name(package ${name})
    set(destination ${CMAKE_INSTALL_LIBDIR}/cmake/${package})
    get_target_property(links kestrin_${name} INTERFACE_LINK_LIBRARIES)
    set(KESTRIN_DEPENDENCIES "")
    foreach(link IN LISTS links)
        if(link MATCHES "^Qt5::(.+)$")
            string(APPEND KESTRIN_DEPENDENCIES "find_dependency(Qt5${CMAKE_MATCH_1} 5.15)\n")
        elseif(link MATCHES "^Kestrin::(.+)$")
            kestrin_package_name(dependency ${CMAKE_MATCH_1})
            string(APPEND KESTRIN_DEPENDENCIES
                "find_dependency(${dependency} ${PROJECT_VERSION} PATHS \"\${${package}_PREFIX}\")\n")
        endif()
    endforeach()
    set(KESTRIN_PACKAGE ${package})
    configure_package_config_file("${KESTRIN_ROOT}/cmake/KestrinSiblingConfig.cmake.in"
        "${CMAKE_BINARY_DIR}/${package}Config.cmake" INSTALL_DESTINATION ${destination})
    write_basic_package_version_file("${CMAKE_BINARY_DIR}/${package}ConfigVersion.cmake"
        COMPATIBILITY SameMajorVersion)
    install(EXPORT ${package}Targets NAMESPACE Kestrin:: DESTINATION ${destination})
    install(FILES "${CMAKE_BINARY_DIR}/${package}Config.cmake" "${CMAKE_BINARY_DIR}/${package}ConfigVersion.cmake"
        DESTINATION ${destination})
endfunction()

# kestrin_test(<name> SOURCES ... LINK ...): one test binary, each of its tests known to CTest by name.
function(kestrin_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LINK} GTest::gmock GTest::gtest)
    target_include_directories(${name} PRIVATE "${KESTRIN_ROOT}/tests")
    target_compile_definitions(${name} PRIVATE KESTRIN_SOURCE_DIR="${KESTRIN_ROOT}")
    kestrin_precompile(${name} pch_tests.h)
    kestrin_warnings(${name})
    # No test needs a display.
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()

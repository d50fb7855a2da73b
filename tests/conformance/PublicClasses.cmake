# Writes a header that names every parameter class of the library which can be made:
#   cmake -D HEADERS=<folder> -D OUT=<file> -P PublicClasses.cmake
#
# It lists the classes that stand at the left margin of a header. Templates are left out, since there is nothing to make
# before they are instantiated; an instantiation that is to be stored has a class and a name of its own. The compiler
# then leaves out what is no parameter, and abstract classes, of which there are no objects.
cmake_minimum_required(VERSION 3.25)
file(GLOB_RECURSE headers RELATIVE "${HEADERS}/.." "${HEADERS}/*.h")
list(SORT headers)

set(includes "")
set(rows "")
foreach(header IN LISTS headers)
    string(APPEND includes "#include <${header}>\n")
    file(READ "${HEADERS}/../${header}" text)
    # These mean something to lists.
    string(REPLACE ";" "@" text "${text}")
    string(REGEX REPLACE "[][\\]" " " text "${text}")
    string(REGEX REPLACE "//[^\n]*" "" text "${text}")
    string(REGEX MATCHALL "\n(template[^@{}]*>[ \n]+)?class +([A-Z_]+ +)?[A-Za-z0-9_]+( final)?[ \n]*[:{]" heads
        "${text}")
    foreach(head IN LISTS heads)
        if(NOT head MATCHES "^\ntemplate" AND head MATCHES "([A-Za-z0-9_]+)( final)?[ \n]*[:{]$")
            string(APPEND rows "    add<${CMAKE_MATCH_1}>(names, \"${CMAKE_MATCH_1}\");\n")
        endif()
    endforeach()
endforeach()

file(WRITE "${OUT}" "// Made from the headers of the library.
#pragma once

#include <QtCore/QStringList>

${includes}
#include <concepts>
#include <type_traits>

namespace PublicClasses {

template <class T>
void add(QStringList& names, const char* name)
{
    if constexpr (std::derived_from<T, KpbAParameter> && !std::is_abstract_v<T>)
        names.append(QString::fromLatin1(name));
}

/// The parameter classes of the library of which there are objects.
inline QStringList getNames()
{
    QStringList names;
${rows}    return names;
}

} // namespace PublicClasses
")

# The check of the floors on files made for it: what it lets pass, and what it says.
# cmake -DWORK=<scratch folder> -P floors_test.cmake
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/Floors.cmake")

# expect(<file> <include line> <complaint>): a tree that holds that one file with that one line gives the complaint.
function(expect file line complaint)
    file(REMOVE_RECURSE "${WORK}")
    file(WRITE "${WORK}/apps/kparam/Tool.h" "")
    file(WRITE "${WORK}/${file}" "${line}\n")
    find_upward_includes("${WORK}" complaints count)
    if(NOT count EQUAL 1)
        message(SEND_ERROR "${file} with '${line}': ${count} includes were read")
    endif()
    if(NOT complaints STREQUAL complaint)
        message(SEND_ERROR "${file} with '${line}':\nexpected '${complaint}'\nbut was  '${complaints}'")
    endif()
endfunction()

expect(suite/basic/A.h "#include <QtCore/QString>" "")
expect(suite/basic/A.cpp "#include <udunits2.h>" "")
expect(suite/geos/A.cpp "#include <Eigen/Cholesky>" "")
expect(suite/util/A.h "#include <basic/MbbGlobal.h>" "")
expect(suite/util/A.h "#include <geos/MgmMatrix.h>" "")
expect(suite/util/A.cpp "#include <proj.h>" "")
expect(param/atomic/A.cpp "#include <param/atomic/A.h>" "")
expect(apps/kparam/A.cpp "#include \"Tool.h\"" "")
expect(tests/apps/A.cpp "#include \"../../apps/kparam/Tool.h\"" "")
expect(tests/param/A.cpp "#include <sqlite3.h>" "")
expect(param/A.cpp "#include <vector>" "")

expect(suite/basic/A.h "#include <util/B.h>" "suite/basic/A.h includes util/B.h: basic must not include util")
expect(include/observer/A.h "  #  include <util/B.h>"
    "include/observer/A.h includes util/B.h: observer must not include util")
expect(suite/geos/A.cpp "#include <util/B.h>" "suite/geos/A.cpp includes util/B.h: geos must not include util")
expect(suite/util/A.cpp "#include <Eigen/Cholesky>"
    "suite/util/A.cpp includes Eigen/Cholesky: util must not include eigen headers")
expect(suite/util/A.cpp "#include <study/B.h>" "suite/util/A.cpp includes study/B.h: util must not include study")
expect(suite/study/A.h "#include <param/B.h>" "suite/study/A.h includes param/B.h: study must not include param")
expect(param/A.cpp "#include \"../apps/kparam/Tool.h\""
    "param/A.cpp includes ../apps/kparam/Tool.h: nothing includes apps")
expect(tests/param/A.cpp "#include \"../../apps/kparam/Tool.h\""
    "tests/param/A.cpp includes ../../apps/kparam/Tool.h: nothing includes apps")
expect(param/A.cpp "#include <QtSql/QSqlQuery>" "param/A.cpp includes QtSql/QSqlQuery: param must not include QtSql")
expect(suite/basic/A.cpp "#include <QtXml/QDomNode>"
    "suite/basic/A.cpp includes QtXml/QDomNode: basic must not include QtXml")
expect(param/A.cpp "#include <QString>" "param/A.cpp includes QString: the Qt module is not named")
expect(param/A.cpp "#include <sqlite3.h>" "param/A.cpp includes sqlite3.h: param must not include sqlite headers")
expect(param/A.cpp "#include <Eigen/Dense>" "param/A.cpp includes Eigen/Dense: param must not include eigen headers")
expect(param/A.cpp "#include <udunits2.h>" "param/A.cpp includes udunits2.h: param must not include udunits headers")
expect(param/A.cpp "#include <unistd.h>" "param/A.cpp includes unistd.h: param must not include system headers")
expect(param/A.cpp "#include <thread>" "param/A.cpp includes thread: param must not include system headers")

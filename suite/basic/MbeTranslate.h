#pragma once

#include <basic/MbeError.h>

#include <new>
#include <typeinfo>
#include <utility>

/// Runs `body` and gives what it gives. A standard exception that leaves it becomes an `MbeError`, and anything else
/// that is not of the suite's own family too; `MbeException` and its derivatives pass unchanged.
template <class Body>
decltype(auto) mbeTranslate(Body&& body)
{
    try {
        return std::forward<Body>(body)();
    }
    catch (const MbeException&) {
        throw;
    }
    catch (const std::bad_alloc& e) {
        throw MbeMemoryError(QStringLiteral("std::bad_alloc: %1").arg(QString::fromUtf8(e.what())));
    }
    catch (const std::bad_cast& e) {
        throw MbeProgrammingError(QStringLiteral("std::bad_cast: %1").arg(QString::fromUtf8(e.what())));
    }
    catch (const std::bad_typeid& e) {
        throw MbeProgrammingError(QStringLiteral("std::bad_typeid: %1").arg(QString::fromUtf8(e.what())));
    }
    catch (const std::bad_exception& e) {
        throw MbeProgrammingError(QStringLiteral("std::bad_exception: %1").arg(QString::fromUtf8(e.what())));
    }
    catch (const std::exception& e) {
        throw MbeError(MbeError::Unknown, QStringLiteral("std::exception: %1").arg(QString::fromUtf8(e.what())));
    }
    catch (...) {
        throw MbeError(MbeError::Unknown, QStringLiteral("Unknown exception."));
    }
}

/// The same, and every `MbeError` that leaves is re-thrown as an `MbeError` on the caught one with the context text
/// that `context()` gives. The text is only made when it is needed.
template <class Body, class Context>
decltype(auto) mbeTranslate(Body&& body, Context&& context)
{
    try {
        return mbeTranslate(std::forward<Body>(body));
    }
    catch (const MbeError& e) {
        throw MbeError(e, context());
    }
}

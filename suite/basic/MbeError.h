#pragma once

#include <basic/MbeException.h>

/// A failure that an operation reports to its caller.
class KESTRIN_BASIC_EXPORT MbeError : public MbeException
{
public:
    /// What kind of failure it is. Other numbers are allowed: the type is the thrower's to choose.
    enum Type
    {
        User = 1,
        Programming = 2,
        Memory = 3,
        Storage = 4,
        Unknown = 6, ///< a standard or foreign exception without a class of its own here
    };

    MbeError(int type, const QString& message, Qt::TextFormat format = Qt::PlainText);
    /// The error `cause` seen from further out: `context` stands on a line of its own before the cause's message. The
    /// type stays that of the cause.
    MbeError(const MbeError& cause, const QString& context);
    MbeError(const MbeError&) = default;
    MbeError& operator=(const MbeError&) = default;
    ~MbeError() override;

    int getType() const { return _type; }

private:
    int _type;
};

/// A failed internal check: the caller broke a contract.
class KESTRIN_BASIC_EXPORT MbeProgrammingError : public MbeError
{
public:
    explicit MbeProgrammingError(const QString& message, Qt::TextFormat format = Qt::PlainText);
    MbeProgrammingError(const MbeProgrammingError&) = default;
    MbeProgrammingError& operator=(const MbeProgrammingError&) = default;
    ~MbeProgrammingError() override;
};

/// Memory could not be had.
class KESTRIN_BASIC_EXPORT MbeMemoryError : public MbeError
{
public:
    explicit MbeMemoryError(const QString& message, Qt::TextFormat format = Qt::PlainText);
    MbeMemoryError(const MbeMemoryError&) = default;
    MbeMemoryError& operator=(const MbeMemoryError&) = default;
    ~MbeMemoryError() override;
};

/// A failure that the user can mend: a wrong condition, an item that is gone.
class KESTRIN_BASIC_EXPORT MbeUserError : public MbeError
{
public:
    explicit MbeUserError(const QString& message, Qt::TextFormat format = Qt::PlainText);
    MbeUserError(const MbeUserError&) = default;
    MbeUserError& operator=(const MbeUserError&) = default;
    ~MbeUserError() override;
};

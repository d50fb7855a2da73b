#include <basic/MbeError.h>
#include <basic/MbeException.h>

MbeException::MbeException(const QString& message, Qt::TextFormat format)
    : _message(message),
      _utf8(message.toUtf8()),
      _format(format)
{}

MbeException::~MbeException() = default;

MbeError::MbeError(int type, const QString& message, Qt::TextFormat format) : MbeException(message, format), _type(type)
{}

MbeError::MbeError(const MbeError& cause, const QString& context)
    : MbeException(context + QLatin1Char('\n') + cause.getMessage(), cause.getFormat()),
      _type(cause._type)
{}

MbeError::~MbeError() = default;

MbeProgrammingError::MbeProgrammingError(const QString& message, Qt::TextFormat format)
    : MbeError(Programming, message, format)
{}

MbeProgrammingError::~MbeProgrammingError() = default;

MbeMemoryError::MbeMemoryError(const QString& message, Qt::TextFormat format) : MbeError(Memory, message, format) {}

MbeMemoryError::~MbeMemoryError() = default;

MbeUserError::MbeUserError(const QString& message, Qt::TextFormat format) : MbeError(User, message, format) {}

MbeUserError::~MbeUserError() = default;

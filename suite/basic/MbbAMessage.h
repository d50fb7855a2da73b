#pragma once

#include <QtCore/QString>

#include <basic/BasicExport.h>

/// Where messages for people go, one call a message. It owns nothing; what becomes of a message is the derived class's
/// to say.
class KESTRIN_BASIC_EXPORT MbbAMessage
{
public:
    virtual ~MbbAMessage();
    /// Prints plain text as it stands.
    virtual void print(const QString& text) = 0;
    /// Prints a text of the rich text of `MbbHtml`.
    virtual void printHtml(const QString& text) = 0;

protected:
    MbbAMessage() = default;
    MbbAMessage(const MbbAMessage&) = default;
    MbbAMessage& operator=(const MbbAMessage&) = default;
};

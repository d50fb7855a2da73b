#pragma once

#include <QtCore/QByteArray>

/// Goes forward through a text in UTF-8 and tells lines and columns, both counted from 1, the columns in characters.
class TextPlace
{
public:
    explicit TextPlace(const QByteArray& bytes) : _bytes(bytes) {}

    /// `offset` must not lie before the present one.
    void goTo(int offset);
    int getLine() const { return _line; }
    int getColumn() const { return _column; }

private:
    const QByteArray& _bytes;
    int _offset = 0;
    int _line = 1;
    int _column = 1;
};

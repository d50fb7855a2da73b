#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <algorithm>
#include <string_view>

/// Text of XML in UTF-8, growing at its end. What becomes larger than a `QByteArray` can be ends in `std::bad_alloc`.
class KuxXmlOutput
{
public:
    void append(char c)
    {
        *_room(1) = c;
        ++_size;
    }
    void appendBytes(std::string_view bytes)
    {
        std::copy(bytes.begin(), bytes.end(), _room(qint64(bytes.size())));
        _size += int(bytes.size());
    }
    /// The text as it stands.
    void append(const QString& text);
    void appendBlanks(int count)
    {
        std::fill_n(_room(count), count, ' ');
        _size += count;
    }
    /// Without the characters that XML cannot hold, and with references where it wants them.
    void appendText(const QString& text);
    void appendAttributeValue(const QString& text);

    QByteArray take();

private:
    template <class Table>
    void _appendEscaped(const QString& text, const Table& table);
    /// Where as many bytes can be written.
    char* _room(qint64 bytes)
    {
        if (bytes > _bytes.size() - _size)
            _grow(bytes);
        return _data + _size;
    }
    void _grow(qint64 bytes);

    /// Longer than what is written so far.
    QByteArray _bytes;
    char* _data = nullptr;
    int _size = 0;
};

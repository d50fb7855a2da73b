#include <util/KuxXmlOutput.h>

#include <array>
#include <limits>
#include <new>
#include <utility>

namespace {

/// The longest text that stands for one unit of UTF-16.
constexpr int longest = 6;
constexpr std::string_view replacements[] = {"", "&amp;", "&lt;", "&gt;", "&#13;", "&quot;", "&#9;", "&#10;"};

/// For each character of ASCII: itself, or which of the replacements stands for it.
using Table = std::array<uchar, 128>;
constexpr uchar itself = 0xff;
constexpr uchar nothing = 0;

constexpr Table forText = [] {
    Table table{};
    for (std::size_t c = 0; c < table.size(); ++c)
        table[c] = c < ' ' ? nothing : itself;
    table['\t'] = table['\n'] = itself;
    table['&'] = 1;
    table['<'] = 2;
    table['>'] = 3;
    table['\r'] = 4;
    return table;
}();

constexpr Table forAttributes = [] {
    Table table = forText;
    table['"'] = 5;
    table['\t'] = 6;
    table['\n'] = 7;
    return table;
}();

char* writeUtf8(char* to, uint code)
{
    const auto rest = [code](int shift) { return char(0x80 | (code >> shift & 0x3f)); };
    if (code < 0x800) {
        *to++ = char(0xc0 | code >> 6);
        *to++ = rest(0);
        return to;
    }
    if (code < 0x10000) {
        *to++ = char(0xe0 | code >> 12);
    }
    else {
        *to++ = char(0xf0 | code >> 18);
        *to++ = rest(12);
    }
    *to++ = rest(6);
    *to++ = rest(0);
    return to;
}

/// Writes the character at `i`, which is not ASCII, and moves `i` to the last unit of it.
char* writeWide(char* to, const QString& text, int& i)
{
    const QChar c = text.at(i);
    if (!c.isSurrogate())
        return c.unicode() < 0xfffe ? writeUtf8(to, c.unicode()) : to;
    if (!c.isHighSurrogate() || i + 1 == text.size() || !text.at(i + 1).isLowSurrogate())
        return to;
    ++i;
    return writeUtf8(to, QChar::surrogateToUcs4(c, text.at(i)));
}

} // namespace

void KuxXmlOutput::append(const QString& text)
{
    char* to = _room(text.size());
    for (const QChar c : text) {
        if (c.unicode() >= 0x80) {
            const QByteArray bytes = text.toUtf8();
            return appendBytes(std::string_view(bytes.constData(), std::size_t(bytes.size())));
        }
        *to++ = char(c.unicode());
    }
    _size += text.size();
}

// Room is made for one piece after the other, since a long text is seldom as long as it could become.
template <class Table>
void KuxXmlOutput::_appendEscaped(const QString& text, const Table& table)
{
    constexpr int pieceSize = 1024;
    const int size = text.size();
    for (int i = 0; i < size;) {
        const int end = size - i > pieceSize ? i + pieceSize : size;
        char* to = _room(qint64(end - i) * longest);
        for (; i < end; ++i) {
            const ushort code = text.at(i).unicode();
            if (code >= table.size()) {
                to = writeWide(to, text, i);
            }
            else if (table[code] == itself) {
                *to++ = char(code);
            }
            else {
                const std::string_view replacement = replacements[table[code]];
                to = std::copy(replacement.begin(), replacement.end(), to);
            }
        }
        _size = int(to - _data);
    }
}

void KuxXmlOutput::appendText(const QString& text)
{
    _appendEscaped(text, forText);
}

void KuxXmlOutput::appendAttributeValue(const QString& text)
{
    _appendEscaped(text, forAttributes);
}

void KuxXmlOutput::_grow(qint64 bytes)
{
    constexpr qint64 most = std::numeric_limits<int>::max() - 64;
    constexpr qint64 least = 4096;
    const qint64 needed = _size + bytes;
    if (needed > most)
        throw std::bad_alloc();
    _bytes.resize(int(std::min(std::max({needed, 2 * qint64(_size), least}), most)));
    _data = _bytes.data();
}

QByteArray KuxXmlOutput::take()
{
    _bytes.resize(_size);
    _data = nullptr;
    _size = 0;
    return std::exchange(_bytes, {});
}

#include <util/KuxXml.h>
#include <util/KuxXmlPlainReader.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// What a byte can be part of.
enum Part : uchar
{
    NameStart = 1,
    NameRest = 2,
    Text = 4,
    Value = 8,
    Section = 16
};

/// U+F000 and beyond, whose bytes begin with 0xef and more, is part of nothing: there are the characters that XML does
/// not allow, the byte order mark, and the one that stands for what could not be decoded.
constexpr int firstUnknownByte = 0xef;

constexpr uchar partsOf(int byte)
{
    if (byte == '\n' || byte == '\t')
        return Text | Section;
    if (byte < ' ' || byte >= firstUnknownByte)
        return 0;
    if (byte == '<' || byte == '&')
        return Section;
    if (byte == '>')
        return Value | Section;
    const bool isLetter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_';
    const bool isNameRest = isLetter || (byte >= '0' && byte <= '9') || byte == '-' || byte == '.';
    return uchar(Text | Value | Section | (isLetter ? NameStart : 0) | (isNameRest ? NameRest : 0));
}

constexpr std::array<uchar, 256> partsOfBytes = [] {
    std::array<uchar, 256> parts{};
    for (int byte = 0; byte < 256; ++byte)
        parts[std::size_t(byte)] = partsOf(byte);
    return parts;
}();

bool isPart(char byte, Part part)
{
    return (partsOfBytes[uchar(byte)] & part) != 0;
}

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\n' || byte == '\t';
}

struct Reference
{
    std::string_view name;
    char meaning;
};

constexpr Reference references[] = {{"&amp;", '&'},   {"&lt;", '<'},   {"&gt;", '>'},   {"&quot;", '"'},
                                    {"&apos;", '\''}, {"&#13;", '\r'}, {"&#10;", '\n'}, {"&#9;", '\t'}};

struct NotPlain
{};

[[noreturn]] void giveUp()
{
    throw NotPlain();
}

QString decoded(std::string_view bytes)
{
    QString text = QString::fromUtf8(bytes.data(), int(bytes.size()));
    if (text.contains(QChar(QChar::ReplacementCharacter)))
        giveUp();
    return text;
}

/// Goes through the text once, and gives up at the first thing that is not plain.
class Reader
{
public:
    // An allocation of this size makes the GNU C library join the small blocks that have been freed before, so that the
    // nodes come to lie side by side. In the blocks as they are after a large tree has died, building, walking and
    // destroying a document of 100,000 elements takes twice the time.
    Reader(std::string_view text, const KuxXmlLimits& limits) : _text(text), _limits(limits), _parent(_document)
    {
        _open.reserve(256);
    }

    QDomDocument run()
    {
        _skipDeclaration();
        _skipBlanks();
        _readStartTag();
        while (!_open.empty())
            _readContent();
        _skipBlanks();
        if (_at != _text.size())
            giveUp();
        return _document;
    }

private:
    struct Name
    {
        std::string_view bytes;
        QString text;
    };

    void _skipDeclaration()
    {
        if (!_skip("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"))
            _skip("<?xml version=\"1.0\"?>");
    }

    void _readContent()
    {
        if (_next() != '<')
            return _readText();
        if (_nextIs("</"))
            return _readEndTag();
        if (_nextIs("<!"))
            return _readSection();
        _readStartTag();
    }

    void _readText()
    {
        const std::string_view piece = _readWhile([](char byte) { return isPart(byte, Text); });
        const bool onlyBlanks = _pending.isEmpty() && std::all_of(piece.begin(), piece.end(), isBlank);
        if (_next() == '<') {
            if (!onlyBlanks)
                _pending += decoded(piece);
            return;
        }
        _pending += decoded(piece);
        _pending += _readReference();
    }

    void _flushText()
    {
        if (_pending.isEmpty())
            return;
        if (!KuxXml::isBlank(_pending))
            _parent.appendChild(_document.createTextNode(_pending));
        _pending = QString();
    }

    void _readSection()
    {
        _expect("<![CDATA[");
        const size_t end = _text.find("]]>", _at);
        if (end == std::string_view::npos || end == _at)
            giveUp();
        const std::string_view section = _readWhile([](char byte) { return isPart(byte, Section); }, end);
        _expect("]]>");
        _flushText();
        _parent.appendChild(_document.createCDATASection(decoded(section)));
    }

    void _readStartTag()
    {
        _flushText();
        _expect("<");
        const std::string_view name = _readName();
        if (int(_open.size()) >= _limits.maxDepth)
            giveUp();
        QDomElement element = _document.createElement(_shared(name));
        int attributes = 0;
        while (_skipBlanks() && isPart(_next(), NameStart)) {
            if (++attributes > _limits.maxAttributes)
                giveUp();
            _readAttribute(element, attributes > 1);
        }
        _parent.appendChild(element);
        if (!_skip("/>")) {
            _expect(">");
            _open.push_back(name);
            _parent = element;
        }
    }

    void _readAttribute(QDomElement& element, bool hasOthers)
    {
        const QString& name = _shared(_readName());
        if (hasOthers && element.hasAttribute(name))
            giveUp();
        _skipBlanks();
        _expect("=");
        _skipBlanks();
        element.setAttribute(name, _readValue());
    }

    QString _readValue()
    {
        const char quote = _next();
        if (quote != '"' && quote != '\'')
            giveUp();
        ++_at;
        const auto belongs = [quote](char byte) { return isPart(byte, Value) && byte != quote; };
        QString value = decoded(_readWhile(belongs));
        while (_next() != quote) {
            value += _readReference();
            value += decoded(_readWhile(belongs));
        }
        ++_at;
        return value;
    }

    void _readEndTag()
    {
        _flushText();
        _expect("</");
        _expect(_open.back());
        _skipBlanks();
        _expect(">");
        _open.pop_back();
        _parent = _parent.parentNode();
    }

    QChar _readReference()
    {
        for (const Reference& reference : references) {
            if (_skip(reference.name))
                return QLatin1Char(reference.meaning);
        }
        giveUp();
    }

    /// Names that begin with "xml" have meanings of their own.
    std::string_view _readName()
    {
        const std::string_view name = _readWhile([](char byte) { return isPart(byte, NameRest); });
        if (name.empty() || !isPart(name.front(), NameStart) || name.starts_with("xml") ||
            name.size() > size_t(std::max(_limits.maxNameLength, 0)))
            giveUp();
        return name;
    }

    /// The name, in the same memory as last time if it can be. Documents have few names.
    const QString& _shared(std::string_view name)
    {
        Name& known = _names[(name.size() + uchar(name.front())) % _names.size()];
        if (known.bytes != name)
            known = {name, decoded(name)};
        return known.text;
    }

    /// A character that no document holds at the end.
    char _next() const { return _at < _text.size() ? _text[_at] : '\0'; }
    bool _nextIs(std::string_view expected) const { return _text.substr(_at, expected.size()) == expected; }

    bool _skip(std::string_view expected)
    {
        const bool isNext = _nextIs(expected);
        _at += isNext ? expected.size() : 0;
        return isNext;
    }

    void _expect(std::string_view expected)
    {
        if (!_skip(expected))
            giveUp();
    }

    /// Gives whether there were any.
    bool _skipBlanks() { return !_readWhile(isBlank).empty(); }

    template <class Belongs>
    std::string_view _readWhile(Belongs belongs, size_t end = std::string_view::npos)
    {
        const size_t from = _at;
        end = std::min(end, _text.size());
        while (_at < end && belongs(_text[_at]))
            ++_at;
        return _text.substr(from, _at - from);
    }

    std::string_view _text;
    const KuxXmlLimits& _limits;
    size_t _at = 0;
    QDomDocument _document = QDomDocument(QString());
    QDomNode _parent;
    /// The names of the elements that have not ended.
    std::vector<std::string_view> _open;
    /// The text since the last markup. Blanks alone are not text.
    QString _pending;
    std::array<Name, 16> _names;
};

} // namespace

std::optional<QDomDocument> KuxXmlPlainReader::read(const QByteArray& bytes, const KuxXmlLimits& limits)
{
    try {
        return Reader(std::string_view(bytes.constData(), size_t(bytes.size())), limits).run();
    }
    catch (const NotPlain&) {
        return std::nullopt;
    }
}

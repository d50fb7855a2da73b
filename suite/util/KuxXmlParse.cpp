#include <QtCore/QBuffer>
#include <QtCore/QRegularExpression>
#include <QtCore/QTextCodec>
#include <QtCore/QXmlStreamReader>

#include <util/KuxXml.h>
#include <util/KuxXmlPlainReader.h>

#include <algorithm>
#include <new>
#include <string_view>

namespace {

const qint64 mostBytes = qint64(1) << 30;
const int utf8Mib = 106;
const int utf16BigEndianMib = 1013;
const int utf16LittleEndianMib = 1014;

/// Ends the reading with this message and place.
struct Refusal
{
    QString message;
    qint64 line;
    qint64 column;
};

[[noreturn]] void refuse(const QString& message, qint64 line = 1, qint64 column = 1)
{
    throw Refusal{message, std::max<qint64>(line, 1), std::max<qint64>(column, 1)};
}

/// Refuses at a place of a document in UTF-8.
[[noreturn]] void refuseAt(const QByteArray& bytes, int position, const QString& message)
{
    const QByteArray before = bytes.left(position);
    const QByteArray lineStart = before.mid(before.lastIndexOf('\n') + 1);
    refuse(message, before.count('\n') + 1, QString::fromUtf8(lineStart).size() + 1);
}

/// The encoding that the document's first bytes show, or null if they look like text in bytes.
QTextCodec* codecOfFirstBytes(const QByteArray& bytes)
{
    if (QTextCodec* codec = QTextCodec::codecForUtfText(bytes, nullptr))
        return codec;
    if (bytes.startsWith(QByteArray("\0<", 2)))
        return QTextCodec::codecForMib(utf16BigEndianMib);
    if (bytes.startsWith(QByteArray("<\0", 2)))
        return QTextCodec::codecForMib(utf16LittleEndianMib);
    return nullptr;
}

/// The encoding that the XML declaration names, or null if it names none that is known.
QTextCodec* codecOfDeclaration(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes.left(1024));
    const bool declared = reader.readNext() == QXmlStreamReader::StartDocument;
    const QByteArray name = declared ? reader.documentEncoding().toString().toLatin1() : QByteArray();
    return name.isEmpty() ? nullptr : QTextCodec::codecForName(name);
}

/// Where the text shows that it was decoded wrongly.
int findDecodingFailure(const QString& text)
{
    const int replaced = text.indexOf(QChar(QChar::ReplacementCharacter));
    return replaced < 0 ? text.size() : replaced;
}

/// Where half of a surrogate pair stands alone, or -1.
int findLoneSurrogate(const QString& text)
{
    int found = KuxXml::findForbiddenCharacter(text);
    while (found >= 0 && !text[found].isSurrogate())
        found = KuxXml::findForbiddenCharacter(text, found + 1);
    return found;
}

QString decoded(const QByteArray& bytes, QTextCodec& codec)
{
    QTextCodec::ConverterState state;
    const QString text = codec.toUnicode(bytes.constData(), bytes.size(), &state);
    const bool failed = state.invalidChars > 0 || state.remainingChars > 0;
    const int failure = failed ? findDecodingFailure(text) : findLoneSurrogate(text);
    if (failure >= 0) {
        const QByteArray before = text.left(failure).toUtf8();
        refuseAt(before, before.size(),
                 QStringLiteral("The document is not valid text in the encoding %1.")
                     .arg(QString::fromLatin1(codec.name())));
    }
    return text;
}

QByteArray withoutDeclaredEncoding(const QString& text)
{
    static const QRegularExpression encoding(
        QStringLiteral("\\A(<\\?xml[^>]*?)\\s+encoding\\s*=\\s*(\"[^\"]*\"|'[^']*')"));
    const auto match = encoding.match(text.left(1024));
    return match.hasMatch() ? (match.captured(1) + text.midRef(match.capturedEnd())).toUtf8() : text.toUtf8();
}

/// The document in UTF-8. Without a byte order mark or a declaration it is taken to be that already.
QByteArray inUtf8(const QByteArray& bytes)
{
    QTextCodec* codec = codecOfFirstBytes(bytes);
    if (!codec) {
        codec = codecOfDeclaration(bytes);
        if (!codec || codec->mibEnum() == utf8Mib)
            return bytes;
        if (codec->name().startsWith("UTF-16") || codec->name().startsWith("UTF-32"))
            refuse(QStringLiteral("The document says that its encoding is %1, but it is not.")
                       .arg(QString::fromLatin1(codec->name())));
    }
    return withoutDeclaredEncoding(decoded(bytes, *codec));
}

/// Looks over a document in UTF-8 for what must be refused before a parser works on it, since the parser would take too
/// much time over it, act on it or report it unclearly. What else is not well-formed is left to the parser.
class Inspection
{
public:
    Inspection(const QByteArray& bytes, const KuxXmlLimits& limits)
        : _bytes(bytes),
          _text(bytes.constData(), size_t(bytes.size())),
          _limits(limits)
    {}

    void run() const
    {
        _checkCharacters();
        _checkEnd();
        for (size_t at = _text.find('<'); at < _text.size(); at = _text.find('<', at))
            at = _afterMarkup(at);
    }

private:
    void _checkCharacters() const
    {
        const auto isForbidden = [](char c) { return uchar(c) < 0x20 && c != '\t' && c != '\n' && c != '\r'; };
        const auto found = std::find_if(_text.begin(), _text.end(), isForbidden);
        if (found != _text.end())
            _refuseAt(size_t(found - _text.begin()),
                      QStringLiteral("The document holds the character U+%1, which XML does not allow.")
                          .arg(QString::number(int(*found), 16).toUpper(), 4, QLatin1Char('0')));
    }

    /// The parser ignores half of a character at the end, where only markup and blanks can stand.
    void _checkEnd() const
    {
        if (!_text.empty() && uchar(_text.back()) >= 0x80)
            _refuseAt(_text.size(), QStringLiteral("The document does not end with markup."));
    }

    /// Where to go on after the markup that starts at `at`.
    size_t _afterMarkup(size_t at) const
    {
        const std::string_view rest = _text.substr(at);
        if (rest.starts_with("<!--"))
            return _after("-->", at + 4);
        if (rest.starts_with("<![CDATA["))
            return _after("]]>", at + 9);
        if (rest.starts_with("<?"))
            return _after("?>", at + 2);
        if (rest.starts_with("<!DOCTYPE"))
            return _afterDocumentType(at);
        return rest.starts_with("</") ? _after(">", at + 2) : _afterTag(at);
    }

    size_t _afterDocumentType(size_t at) const
    {
        for (; at < _text.size() && _text[at] != '>'; at = _afterQuotedOrOne(at))
            if (_text[at] == '[')
                _refuseAt(at, QStringLiteral("The document type has an internal subset, which is not allowed."));
        return at;
    }

    size_t _afterTag(size_t at) const
    {
        int attributes = 0;
        for (; at < _text.size() && _text[at] != '>'; at = _afterQuotedOrOne(at))
            if (_text[at] == '=' && ++attributes > _limits.maxAttributes)
                _refuseAt(at, QStringLiteral("An element has more than %1 attributes.").arg(_limits.maxAttributes));
        return at;
    }

    size_t _afterQuotedOrOne(size_t at) const
    {
        const bool quoted = _text[at] == '"' || _text[at] == '\'';
        return quoted ? _after(_text.substr(at, 1), at + 1) : at + 1;
    }

    size_t _after(std::string_view end, size_t from) const
    {
        const size_t found = _text.find(end, from);
        return found == std::string_view::npos ? _text.size() : found + end.size();
    }

    [[noreturn]] void _refuseAt(size_t position, const QString& message) const
    {
        refuseAt(_bytes, int(position), message);
    }

    const QByteArray& _bytes;
    std::string_view _text;
    const KuxXmlLimits& _limits;
};

/// Notes the entity that the parser does not know. With an external document type the parser would take it as it
/// stands.
class UndeclaredEntity : public QXmlStreamEntityResolver
{
public:
    QString resolveUndeclaredEntity(const QString& name) override
    {
        _name = name;
        return {};
    }

    const QString& getName() const { return _name; }

private:
    QString _name;
};

/// Builds a DOM document from the parser's tokens.
class Builder
{
public:
    Builder(QXmlStreamReader& reader, const KuxXmlLimits& limits) : _reader(reader), _limits(limits), _parent(_document)
    {}

    QDomDocument run()
    {
        UndeclaredEntity undeclared;
        _reader.setEntityResolver(&undeclared);
        while (!_reader.atEnd()) {
            const auto token = _reader.readNext();
            if (!undeclared.getName().isEmpty())
                _refuse(QStringLiteral("The entity '%1' is not declared.").arg(undeclared.getName()));
            _take(token);
        }
        if (_reader.hasError())
            _refuse(_isEmpty() ? QStringLiteral("The document is empty.") : _reader.errorString());
        return _document;
    }

private:
    void _take(QXmlStreamReader::TokenType token)
    {
        if (token == QXmlStreamReader::Characters && !_reader.isCDATA()) {
            _text += _reader.text();
            return;
        }
        _flushText();
        switch (token) {
        case QXmlStreamReader::StartElement:
            return _startElement();
        case QXmlStreamReader::EndElement:
            _parent = _parent.parentNode();
            --_depth;
            return;
        case QXmlStreamReader::Characters:
            return _append(_document.createCDATASection(_reader.text().toString()));
        case QXmlStreamReader::Comment:
            return _append(_document.createComment(_reader.text().toString()));
        case QXmlStreamReader::ProcessingInstruction:
            return _append(_document.createProcessingInstruction(_name(_reader.processingInstructionTarget()),
                                                                 _reader.processingInstructionData().toString()));
        case QXmlStreamReader::DTD:
            return _documentType();
        default:
            return;
        }
    }

    void _startElement()
    {
        if (++_depth > _limits.maxDepth)
            _refuse(QStringLiteral("Elements are nested more than %1 deep.").arg(_limits.maxDepth));
        QDomElement element = _document.createElement(_name(_reader.qualifiedName()));
        const auto attributes = _reader.attributes();
        for (const QXmlStreamAttribute& attribute : attributes)
            element.setAttribute(_name(attribute.qualifiedName()), attribute.value().toString());
        _append(element);
        _parent = element;
    }

    /// Starts the document anew with its type, which can only be given at the beginning, and what came before.
    void _documentType()
    {
        QDomDocument document(QDomImplementation().createDocumentType(
            _name(_reader.dtdName()), _reader.dtdPublicId().toString(), _reader.dtdSystemId().toString()));
        while (_document.hasChildNodes())
            document.appendChild(_document.firstChild());
        _document = document;
        _parent = document;
    }

    void _flushText()
    {
        if (!KuxXml::isBlank(_text))
            _append(_document.createTextNode(_text));
        _text.clear();
    }

    void _append(const QDomNode& node) { _parent.appendChild(node); }

    QString _name(const QStringRef& name) const
    {
        if (name.size() > _limits.maxNameLength)
            _refuse(QStringLiteral("A name is longer than %1 characters.").arg(_limits.maxNameLength));
        return name.toString();
    }

    bool _isEmpty() const
    {
        return _reader.error() == QXmlStreamReader::PrematureEndOfDocumentError && _document.documentElement().isNull();
    }

    [[noreturn]] void _refuse(const QString& message) const
    {
        refuse(message, _reader.lineNumber(), _reader.columnNumber());
    }

    QXmlStreamReader& _reader;
    const KuxXmlLimits& _limits;
    QDomDocument _document = QDomDocument(QString());
    QDomNode _parent;
    QString _text;
    int _depth = 0;
};

QDomDocument read(const QByteArray& bytes, const KuxXmlLimits& limits)
{
    if (bytes.size() > std::min(limits.maxBytes, mostBytes))
        refuse(QStringLiteral("The document is larger than %1 bytes.").arg(std::min(limits.maxBytes, mostBytes)));
    if (const auto plain = KuxXmlPlainReader::read(bytes, limits))
        return *plain;
    QByteArray utf8 = inUtf8(bytes);
    Inspection(utf8, limits).run();
    QBuffer buffer(&utf8);
    buffer.open(QIODevice::ReadOnly);
    QXmlStreamReader reader(&buffer);
    reader.setNamespaceProcessing(false);
    return Builder(reader, limits).run();
}

QByteArray readAll(QIODevice& device, const KuxXmlLimits& limits)
{
    if (!device.isReadable())
        refuse(QStringLiteral("The document cannot be read: the device is not open for reading."));
    const int wanted = int(std::min(limits.maxBytes, mostBytes)) + 1;
    QByteArray bytes;
    QByteArray block(1 << 16, Qt::Uninitialized);
    for (qint64 got = 1; got > 0 && bytes.size() < wanted;) {
        got = device.read(block.data(), std::min(wanted - bytes.size(), block.size()));
        if (got < 0 && !device.isSequential())
            refuse(QStringLiteral("The document cannot be read: %1").arg(device.errorString()));
        bytes.append(block.constData(), int(std::max<qint64>(got, 0)));
    }
    return bytes;
}

/// Runs `body`, which gives the document or refuses it.
template <typename Body>
KuxXmlResult guarded(QDomDocument* out, Body&& body)
{
    try {
        *out = body();
        return {};
    }
    catch (const Refusal& refusal) {
        return {false, refusal.message, refusal.line, refusal.column};
    }
    catch (const std::bad_alloc&) {
        return {false, QStringLiteral("There is not enough memory to read the document."), 1, 1};
    }
}

} // namespace

KuxXmlResult KuxXml::parse(const QByteArray& bytes, QDomDocument* out, const KuxXmlLimits& limits)
{
    return guarded(out, [&] { return read(bytes, limits); });
}

KuxXmlResult KuxXml::parse(QIODevice& device, QDomDocument* out, const KuxXmlLimits& limits)
{
    return guarded(out, [&] { return read(readAll(device, limits), limits); });
}

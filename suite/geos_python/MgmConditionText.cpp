#include <QtCore/QVector>

#include <basic/MbeError.h>
#include <geos_python/MgmConditionText.h>
#include <geos_python/MgmPythonInterpreter.h>

#include <algorithm>
#include <iterator>

namespace {

// How much of a long line is shown on either side of the place.
constexpr int ShownLength = 60;

// The words of Python that no condition needs. The tables have no destructors: conditions may be checked after `main`.
constexpr const char* ForbiddenWords[] = {"None",     "as",     "assert", "async", "await",  "break",    "class",
                                          "continue", "def",    "del",    "elif",  "except", "finally",  "for",
                                          "from",     "global", "import", "is",    "lambda", "nonlocal", "pass",
                                          "raise",    "return", "try",    "while", "with",   "yield"};
constexpr const char* SignPairs[] = {"==", "!=", "<=", ">=", "**", "//"};

template <std::size_t N>
bool contains(const char* const (&texts)[N], const QString& text)
{
    return std::any_of(std::begin(texts), std::end(texts), [&](const char* one) { return text == QLatin1String(one); });
}

bool isDecimal(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isWordStart(QChar c)
{
    return c.isLetter() || c == QLatin1Char('_');
}

bool isWordPart(QChar c)
{
    return c.isLetterOrNumber() || c.isMark() || c == QLatin1Char('_');
}

// Goes once through a text, sign by sign, and refuses what must not go to Python.
class Scanner
{
public:
    explicit Scanner(const MgmConditionText& condition) : _condition(condition), _text(condition.getText()) {}

    void scan()
    {
        while (_at < _text.size())
            _scanOne();
        if (!_brackets.isEmpty())
            _condition.refuse(_brackets.last(), QStringLiteral("This bracket is never closed."));
    }

private:
    QChar _look(int ahead = 0) const { return _at + ahead < _text.size() ? _text[_at + ahead] : QChar(); }
    [[noreturn]] void _refuse(const QString& reason) const { _condition.refuse(_at, reason); }

    void _scanOne()
    {
        const QChar c = _look();
        if (c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n'))
            ++_at;
        else if (c == QLatin1Char('"') || c == QLatin1Char('\''))
            _scanString(c);
        else if (isDecimal(c) || (c == QLatin1Char('.') && isDecimal(_look(1))))
            _scanNumber();
        else if (isWordStart(c))
            _scanWord();
        else
            _scanSign(c);
    }

    void _scanString(QChar quote)
    {
        const int start = _at;
        if (_look(1) == quote && _look(2) == quote)
            _refuse(QStringLiteral("Texts over several lines are not allowed in a condition."));
        for (++_at; _look() != quote; ++_at) {
            if (_at >= _text.size() || _look() == QLatin1Char('\n'))
                _condition.refuse(start, QStringLiteral("This text is never closed."));
            _checkTextCharacter();
        }
        ++_at;
        _signs = 0;
    }

    void _checkTextCharacter()
    {
        if (_look() == QLatin1Char('\\')) {
            ++_at;
            if (!QStringLiteral("\\'\"").contains(_look()))
                _refuse(QStringLiteral("This escape is not allowed in a condition."));
        }
        else if (_look().isHighSurrogate() && _look(1).isLowSurrogate()) {
            ++_at;
        }
        else if (_look().isSurrogate() || _look().category() == QChar::Other_Control) {
            if (_look() != QLatin1Char('\t'))
                _refuseCharacter();
        }
    }

    // The number of characters up to the end of the digits that begin `from` characters ahead.
    int _countDigits(int from) const
    {
        while (isDecimal(_look(from)))
            ++from;
        return from;
    }

    void _scanNumber()
    {
        int length = _countDigits(0);
        if (_look(length) == QLatin1Char('.'))
            length = _countDigits(length + 1);
        if (_look(length).toLower() == QLatin1Char('e')) {
            const bool isSigned = QStringLiteral("+-").contains(_look(length + 1));
            length = _countDigits(length + (isSigned ? 2 : 1));
        }
        if (isWordPart(_look(length)))
            _refuse(QStringLiteral("This is not a number."));
        if (length > MgmConditionText::MaximumDigits)
            _refuse(QStringLiteral("This number is too long."));
        _at += length;
        _signs = 0;
    }

    void _scanWord()
    {
        int length = 1;
        while (isWordPart(_look(length)))
            ++length;
        const QString word = _text.mid(_at, length);
        if (_look(length) == QLatin1Char('"') || _look(length) == QLatin1Char('\''))
            _refuse(QStringLiteral("Texts with a prefix are not allowed in a condition."));
        if (contains(ForbiddenWords, word))
            _refuse(QStringLiteral("'%1' is not allowed in a condition.").arg(word));
        if (word == QLatin1String("if"))
            _count(_choices, MgmConditionText::MaximumChoices, QStringLiteral("There are too many choices."));
        if (word == QLatin1String("not"))
            _countSign();
        else
            _signs = 0;
        _at += length;
    }

    void _scanSign(QChar c)
    {
        const QString pair = _text.mid(_at, 2);
        if (pair == QLatin1String("**"))
            _count(_powers, MgmConditionText::MaximumPowers, QStringLiteral("There are too many powers."));
        if (c == QLatin1Char('-') || c == QLatin1Char('+'))
            _countSign();
        else
            _signs = 0;
        if (contains(SignPairs, pair))
            _at += 2;
        else if (QStringLiteral("([").contains(c))
            _open();
        else if (QStringLiteral(")]").contains(c))
            _close(c);
        else if (c == QLatin1Char('.'))
            _refuse(QStringLiteral("Attributes are not allowed in a condition."));
        else if (c == QLatin1Char('='))
            _refuse(QStringLiteral("'=' is not allowed in a condition. Equality is '=='."));
        else if (QStringLiteral("+-*/%<>&|^,").contains(c))
            ++_at;
        else
            _refuseCharacter();
    }

    [[noreturn]] void _refuseCharacter() const
    {
        _refuse(QStringLiteral("This character is not allowed in a condition."));
    }

    void _open()
    {
        if (_brackets.size() == MgmConditionText::MaximumBrackets)
            _refuse(QStringLiteral("The condition is nested too deeply."));
        _brackets.append(_at++);
    }

    void _close(QChar c)
    {
        const QChar opening = c == QLatin1Char(')') ? QLatin1Char('(') : QLatin1Char('[');
        if (_brackets.isEmpty() || _text[_brackets.last()] != opening)
            _refuse(QStringLiteral("This bracket closes none."));
        _brackets.removeLast();
        ++_at;
    }

    void _countSign() { _count(_signs, MgmConditionText::MaximumSigns, QStringLiteral("There are too many signs.")); }

    void _count(int& counter, int maximum, const QString& reason) const
    {
        if (++counter > maximum)
            _refuse(reason);
    }

    const MgmConditionText& _condition;
    const QString& _text;
    int _at = 0;
    QVector<int> _brackets; // the positions of those that are open
    int _signs = 0;         // in a row
    int _powers = 0;
    int _choices = 0;
};

} // namespace

MgmConditionText::MgmConditionText(const QString& text) : _text(text.trimmed())
{
    if (_text.isEmpty())
        refuse(0, QStringLiteral("The condition is empty."));
    if (_text.size() > MgmPythonInterpreter::MaximumLength)
        refuse(MgmPythonInterpreter::MaximumLength, QStringLiteral("The condition is too long."));
    Scanner(*this).scan();
}

int MgmConditionText::getPosition(int line, int utf8Column) const
{
    const int start = _getLineStart(line);
    const QByteArray bytes = _text.mid(start, _getLineEnd(start) - start).toUtf8();
    return start + QString::fromUtf8(bytes.left(qMax(0, utf8Column))).size();
}

int MgmConditionText::getPositionOfCharacter(int line, int column) const
{
    const int end = _getLineEnd(_getLineStart(line));
    int position = _getLineStart(line);
    for (; column > 0 && position < end; --column)
        position += _text[position].isHighSurrogate() ? 2 : 1;
    return position;
}

void MgmConditionText::refuse(int position, const QString& reason) const
{
    const int start = position > 0 ? _text.lastIndexOf(QLatin1Char('\n'), position - 1) + 1 : 0;
    const int from = _beforePair(qMax(start, position - ShownLength));
    const QString shown = _text.mid(from, _beforePair(qMin(_getLineEnd(start), position + ShownLength)) - from);
    QString indent;
    for (const QChar c : _text.mid(from, position - from)) {
        if (!c.isLowSurrogate())
            indent += c == QLatin1Char('\t') ? c : QLatin1Char(' ');
    }
    throw MbeUserError(QStringLiteral("<pre>%1\n%2\n%3^").arg(reason.toHtmlEscaped(), shown.toHtmlEscaped(), indent),
                       Qt::RichText);
}

int MgmConditionText::_beforePair(int position) const
{
    const bool isInPair = position > 0 && position < _text.size() && _text[position - 1].isHighSurrogate() &&
                          _text[position].isLowSurrogate();
    return isInPair ? position - 1 : position;
}

int MgmConditionText::_getLineStart(int line) const
{
    int start = 0;
    for (; line > 1; --line) {
        const int end = _getLineEnd(start);
        if (end == _text.size())
            return start;
        start = end + 1;
    }
    return start;
}

int MgmConditionText::_getLineEnd(int start) const
{
    const int end = _text.indexOf(QLatin1Char('\n'), start);
    return end < 0 ? _text.size() : end;
}

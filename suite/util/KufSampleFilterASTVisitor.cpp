#include <util/KufSampleFilterASTVisitor.h>

#include <QtCore/QObject>

#include <basic/MbeError.h>
#include <util/KufISampleFilter.h>

#include <algorithm>
#include <cstddef>

namespace {

// What stands in a program besides indices of rules; the greater, the closer it binds.
enum Operator : int
{
    Open = -4,
    Or = -3,
    And = -2,
    Not = -1,
};

bool isWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isRuleName(const QString& word)
{
    if (word.size() < 2 || word.at(0).toUpper() != QLatin1Char('R'))
        return false;
    return std::all_of(word.begin() + 1, word.end(), isDigit);
}

} // namespace

/// Turns the text into the program, with a stack of the operators whose operands are not complete.
class KufSampleFilterASTVisitor::Parser
{
public:
    Parser(KufSampleFilterASTVisitor& visitor, const QString& text, int ruleCount)
        : _visitor(visitor),
          _text(text),
          _ruleCount(ruleCount)
    {}

    void parse()
    {
        while (_visitor.isValid() && _skipBlanks())
            _operandExpected ? _readOperand() : _readOperator();
        if (_visitor.isValid())
            _finish();
    }

private:
    struct Pending
    {
        int operation;
        int position;
    };

    bool _skipBlanks()
    {
        while (_position < _text.size() && _text.at(_position).isSpace())
            ++_position;
        return _position < _text.size();
    }

    QString _word() const
    {
        int end = _position;
        while (end < _text.size() && isWordCharacter(_text.at(end)))
            ++end;
        return _text.mid(_position, end - _position);
    }

    static bool _is(const QString& word, QLatin1String keyword)
    {
        return word.compare(keyword, Qt::CaseInsensitive) == 0;
    }

    void _readOperand()
    {
        if (_text.at(_position) == QLatin1Char('(')) {
            _push(Open, 1);
            return;
        }
        const QString word = _word();
        if (_is(word, QLatin1String("not"))) {
            _push(Not, word.size());
            return;
        }
        if (isRuleName(word)) {
            _readRule(word);
            return;
        }
        _fail(_position, QObject::tr("Rule, 'not' or '(' expected instead of %1").arg(_shown(word)));
    }

    void _readRule(const QString& word)
    {
        bool fits = false;
        const int number = word.mid(1).toInt(&fits);
        if (!fits || number < 1 || number > _ruleCount) {
            _fail(_position, QObject::tr("There is no rule %1").arg(_shown(word)));
            return;
        }
        _visitor._program.push_back(number - 1);
        _position += word.size();
        _operandExpected = false;
    }

    void _readOperator()
    {
        if (_text.at(_position) == QLatin1Char(')')) {
            _close();
            return;
        }
        const QString word = _word();
        if (_is(word, QLatin1String("and")))
            _pushBinary(And, word.size());
        else if (_is(word, QLatin1String("or")))
            _pushBinary(Or, word.size());
        else
            _fail(_position, QObject::tr("'and', 'or' or ')' expected instead of %1").arg(_shown(word)));
    }

    void _push(int operation, int length)
    {
        _pending.push_back({operation, _position});
        _position += length;
    }

    void _pushBinary(int operation, int length)
    {
        while (!_pending.empty() && _pending.back().operation >= operation)
            _emit();
        _push(operation, length);
        _operandExpected = true;
    }

    void _emit()
    {
        _visitor._program.push_back(_pending.back().operation);
        _pending.pop_back();
    }

    void _close()
    {
        while (!_pending.empty() && _pending.back().operation != Open)
            _emit();
        if (_pending.empty()) {
            _fail(_position, QObject::tr("')' without '('"));
            return;
        }
        _pending.pop_back();
        ++_position;
    }

    void _finish()
    {
        if (_operandExpected) {
            _fail(_text.size(), _pending.empty() ? QObject::tr("The combination is empty")
                                                 : QObject::tr("Rule, 'not' or '(' expected"));
            return;
        }
        for (; !_pending.empty(); _emit()) {
            if (_pending.back().operation == Open) {
                _fail(_pending.back().position, QObject::tr("'(' without ')'"));
                return;
            }
        }
    }

    // The one character there, which may be two units long.
    QString _character() const
    {
        const bool isPair = _text.at(_position).isHighSurrogate() && _position + 1 < _text.size() &&
                            _text.at(_position + 1).isLowSurrogate();
        return _text.mid(_position, isPair ? 2 : 1);
    }

    // A word in full, or else the one character there; the beginning of a long one.
    QString _shown(const QString& word) const
    {
        constexpr int longest = 40;
        const QString text = word.isEmpty() ? _character() : word;
        return QLatin1Char('\'') + (text.size() > longest ? text.left(longest) + QLatin1String("...") : text) +
               QLatin1Char('\'');
    }

    void _fail(int position, const QString& message) { _visitor._fail(position, message); }

    KufSampleFilterASTVisitor& _visitor;
    const QString& _text;
    const int _ruleCount;
    int _position = 0;
    bool _operandExpected = true;
    std::vector<Pending> _pending;
};

KufSampleFilterASTVisitor::KufSampleFilterASTVisitor(const KufISampleFilter* filter)
{
    const QString text = filter ? filter->getCombination() : QString();
    if (text.size() > MaximumLength) {
        _fail(MaximumLength, QObject::tr("The combination is too long"));
        return;
    }
    Parser(*this, text, filter ? filter->getRulesCount() : 0).parse();
}

void KufSampleFilterASTVisitor::_fail(int position, const QString& message)
{
    _errorPosition = position;
    _errorMessage = QObject::tr("%1, at character %2.").arg(message, QString::number(position + 1));
}

bool KufSampleFilterASTVisitor::evaluate(const std::vector<bool>& rules) const
{
    if (!isValid())
        throw MbeProgrammingError(_errorMessage);
    _stack.clear();
    for (const int step : _program) {
        if (step >= 0) {
            _stack.push_back(std::size_t(step) < rules.size() && rules[std::size_t(step)]);
            continue;
        }
        const bool last = _stack.back();
        if (step == Not) {
            _stack.back() = !last;
            continue;
        }
        _stack.pop_back();
        _stack.back() = step == And ? _stack.back() && last : _stack.back() || last;
    }
    return _stack.back();
}

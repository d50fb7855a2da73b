#include <basic/MbbGlobal.h>
#include <basic/MbeError.h>
#include <study/KsbValues.h>

#include <QtCore/QtEndian>

#include <cmath>
#include <limits>

namespace {

constexpr int lengthSize = sizeof(quint32);

[[noreturn]] void failDamaged()
{
    throw MbeError(MbeError::Storage, QStringLiteral("The stored values are damaged."));
}

/// How the values of a type are stored: their width, and which of them are allowed.
template <class Stored>
struct Form
{
    Stored undefined;
    double minimum;
    double maximum;
    bool whole;

    bool holds(double value) const
    {
        return value >= minimum && value <= maximum && (!whole || value == std::floor(value));
    }
};

/// Gives what `use` gives with the form of the type.
template <class Use>
auto withForm(const MbdEVarType& type, Use use)
{
    constexpr double highestDouble = std::numeric_limits<double>::max();
    constexpr double highestFloat = std::numeric_limits<float>::max();
    if (type == MbdEVarType::BYTE)
        return use(Form<qint16>{MbbGlobal::I16_FFFF, 0, 255, true});
    if (type == MbdEVarType::INTEGER)
        return use(Form<qint32>{MbbGlobal::I32_FFFF, -2147483647.0, 2147483647.0, true});
    if (type == MbdEVarType::FLOAT)
        return use(Form<float>{MbbGlobal::F_FFFF, -highestFloat, highestFloat, false});
    if (type == MbdEVarType::DOUBLE)
        return use(Form<double>{MbbGlobal::D_FFFF, -highestDouble, highestDouble, false});
    if (type == MbdEVarType::BOOLEAN)
        return use(Form<qint8>{-1, 0, 1, true});
    if (type == MbdEVarType::ENUM)
        return use(Form<qint16>{MbbGlobal::I16_FFFF, -32767, 32767, true});
    throw MbeUserError(QStringLiteral("The values of a variable of texts are no numbers."));
}

template <class Stored>
std::vector<Stored> toStored(const Form<Stored>& form, const std::vector<double>& values)
{
    std::vector<Stored> stored(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double value = values[i];
        if (value == MbbGlobal::D_FFFF) {
            stored[i] = form.undefined;
            continue;
        }
        stored[i] = form.holds(value) ? Stored(value) : form.undefined;
        if (stored[i] == form.undefined)
            throw MbeUserError(
                QStringLiteral("The value %1 of the sample %2 is none of the variable's type.").arg(value).arg(i + 1));
    }
    return stored;
}

} // namespace

QByteArray KsbValues::encode(const MbdEVarType& type, const std::vector<double>& values)
{
    return withForm(type, [&](const auto& form) {
        const auto stored = toStored(form, values);
        using Stored = typename std::decay_t<decltype(stored)>::value_type;
        QByteArray bytes(int(stored.size() * sizeof(Stored)), Qt::Uninitialized);
        if (!stored.empty())
            qToLittleEndian<Stored>(stored.data(), qsizetype(stored.size()), bytes.data());
        return bytes;
    });
}

std::vector<double> KsbValues::decode(const MbdEVarType& type, const QByteArray& bytes, int count)
{
    return withForm(type, [&](const auto& form) {
        using Stored = decltype(std::decay_t<decltype(form)>::undefined);
        if (qint64(bytes.size()) != qint64(count) * qint64(sizeof(Stored)))
            failDamaged();
        if (count == 0)
            return std::vector<double>();
        std::vector<Stored> stored;
        stored.resize(std::size_t(count));
        qFromLittleEndian<Stored>(bytes.constData(), count, stored.data());
        std::vector<double> values(std::size_t(count), MbbGlobal::D_FFFF);
        for (std::size_t i = 0; i < stored.size(); ++i) {
            if (stored[i] == form.undefined)
                continue;
            if (!form.holds(stored[i]))
                failDamaged();
            values[i] = stored[i];
        }
        return values;
    });
}

QByteArray KsbValues::encode(const QStringList& texts)
{
    qint64 size = 0;
    for (const QString& text : texts)
        size += lengthSize + qint64(text.size()) * 2;
    if (size > std::numeric_limits<int>::max())
        throw MbeUserError(QStringLiteral("The texts are too long to be stored."));
    QByteArray bytes(int(size), Qt::Uninitialized);
    char* place = bytes.data();
    for (const QString& text : texts) {
        qToLittleEndian<quint32>(quint32(text.size()), place);
        qToLittleEndian<quint16>(text.utf16(), text.size(), place + lengthSize);
        place += lengthSize + text.size() * 2;
    }
    return bytes;
}

QStringList KsbValues::decodeTexts(const QByteArray& bytes, int count)
{
    QStringList texts;
    qint64 place = 0;
    for (int i = 0; i < count; ++i) {
        if (bytes.size() - place < lengthSize)
            failDamaged();
        const qint64 length = qFromLittleEndian<quint32>(bytes.constData() + place);
        place += lengthSize;
        if (bytes.size() - place < length * 2)
            failDamaged();
        QString text(int(length), Qt::Uninitialized);
        qFromLittleEndian<quint16>(bytes.constData() + place, length, text.data());
        place += length * 2;
        texts.append(text);
    }
    if (place != bytes.size())
        failDamaged();
    return texts;
}

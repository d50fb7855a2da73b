#include <study/Ks.h>

#include <algorithm>

const QString Ks::KEY_PATH = QStringLiteral("path");
const QString Ks::KEY_FILE = QStringLiteral("file");
const QString Ks::KEY_SUPPORT = QStringLiteral("support");
const QString Ks::KEY_NAME = QStringLiteral("name");
const QString Ks::KEY_MACRO = QStringLiteral("macro");

namespace {

constexpr int longestName = 255;

bool isForbidden(QChar character)
{
    const ushort code = character.unicode();
    return code < 0x20 || code == '/' || code >= 0xFFFE;
}

bool hasLoneSurrogate(const QString& text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (!text.at(i).isSurrogate())
            continue;
        const bool paired = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (!paired)
            return true;
        ++i;
    }
    return false;
}

} // namespace

MbbOrderedMap<QString, QString> Ks::removeInvalidKeys(const MbbOrderedMap<QString, QString>& map)
{
    MbbOrderedMap<QString, QString> valid;
    for (const auto& entry : map) {
        for (const QString& key : {KEY_PATH, KEY_FILE, KEY_SUPPORT, KEY_NAME, KEY_MACRO}) {
            if (entry.key == key)
                valid.insert(entry.key, entry.value);
        }
    }
    return valid;
}

QString Ks::describeInvalidName(const QString& name)
{
    if (name.isEmpty())
        return QStringLiteral("A name cannot be empty.");
    if (name.size() > longestName)
        return QStringLiteral("A name cannot be longer than %1 characters.").arg(longestName);
    if (std::any_of(name.begin(), name.end(), isForbidden) || hasLoneSurrogate(name))
        return QStringLiteral("The name '%1' contains '/' or a character that is not allowed.").arg(name);
    return QString();
}

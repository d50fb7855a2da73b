#include <tree/Assignment.h>

#include <cli/Failure.h>
#include <cli/SafeText.h>
#include <param/composite/KpcAbstractList.h>
#include <param/composite/KpcCatalogCategory.h>
#include <tree/ParameterPath.h>

namespace {

using Form = KpbAParameter::SerialForm;

const QString separator = QStringLiteral("/");

[[noreturn]] void fail(const QString& message)
{
    throw Failure(ExitCode::Usage, message);
}

KpbAParameter* find(const QString& path, const KpbAParameter& root)
{
    KpbPath keys;
    keys.append(path.split(separator));
    return root.getParameterByRelativePath(keys);
}

/// The same where the root, which has no path, is ".".
KpbAParameter* findOrRoot(const QString& path, KpbAParameter& root)
{
    return path == QLatin1String(".") ? &root : find(path, root);
}

/// The parameters that could be meant: those with the same last key.
QString hintFor(const QString& path, const KpbAParameter& root)
{
    const QString key = path.section(separator, -1);
    QStringList paths;
    forEachParameter(root, [&](const KpbAParameter& parameter) {
        if (parameter.getKey().compare(key, Qt::CaseInsensitive) == 0 && &parameter != &root)
            paths.append(SafeText::inLine(pathBelow(root, parameter)));
    });
    return paths.isEmpty() ? QString() : QStringLiteral(" Did you mean %1?").arg(paths.join(QStringLiteral(" or ")));
}

[[noreturn]] void failUnknown(const QString& path, const KpbAParameter& root)
{
    fail(QStringLiteral("There is no parameter %1.%2").arg(SafeText::quoted(path), hintFor(path, root)));
}

/// A selection leaves out what says nothing, and a category the new name that is the old one. With another value, they
/// are stored.
bool isLeftOutOnlyNow(const KpbAParameter& parameter)
{
    const KpbAParameter* parent = parameter.getParent();
    return parent && (parent->isA(KpbEType::SELECTION) || (dynamic_cast<const KpcCatalogCategory*>(parent) &&
                                                           parameter.getKey() == QLatin1String("OPERATION_VALUE")));
}

/// What a parameter leaves out of its form, it marks when it is serialized.
bool isStored(const KpbAParameter* parameter)
{
    for (; parameter; parameter = parameter->getParent()) {
        if (parameter->getParent())
            parameter->getParent()->serialize();
        if (parameter->isVolatile() && !isLeftOutOnlyNow(*parameter))
            return false;
    }
    return true;
}

QString listed(const QStringList& names)
{
    constexpr int most = 12;
    const QString more = names.size() > most ? QStringLiteral(" and more") : QString();
    return SafeText::inLine(names.mid(0, most).join(QStringLiteral(", "))) + more;
}

/// The only entry of a parameter, which its path alone means.
QString requireOnlyEntry(const KpbAParameter& parameter, const QString& path)
{
    const Form form = parameter.serialize();
    if (form.size() == 1)
        return form.keyAt(0);
    const QStringList itemEntries = getItemEntries(parameter);
    if (itemEntries.value(0) == QLatin1String("name") && !itemEntries.contains(QStringLiteral("folder")))
        return itemEntries.first();
    if (!itemEntries.isEmpty())
        fail(QStringLiteral("%1 has several entries: %2.").arg(SafeText::quoted(path), listed(itemEntries)));
    if (dynamic_cast<const KpcAbstractList*>(&parameter))
        fail(QStringLiteral("%1 is a list: %2/+=VALUE adds an item, %2/-=KEY takes one out.")
                 .arg(SafeText::quoted(path), SafeText::inLine(path)));
    if (form.isEmpty())
        fail(QStringLiteral("%1 has no value of its own.").arg(SafeText::quoted(path)));
    fail(QStringLiteral("%1 has several entries: %2.").arg(SafeText::quoted(path), listed(form.keys())));
}

/// An entry that the parameter has, or that it would read beside those.
void requireEntry(const KpbAParameter& parameter, const QString& path, const QString& entry)
{
    const Form form = parameter.serialize();
    Form wanted = form;
    wanted.insert(entry, QString());
    if (!form.contains(entry) && !isEntryRead(parameter, form, wanted, entry))
        fail(QStringLiteral("%1 has no entry %2; it has %3.")
                 .arg(SafeText::quoted(path), SafeText::quoted(entry), listed(form.keys())));
}

void requireItem(const KpcAbstractList& list, const QString& path, const QString& key)
{
    if (!list.getChild(key))
        fail(QStringLiteral("%1 has no item %2; it has %3.")
                 .arg(SafeText::quoted(path), SafeText::quoted(key),
                      list.isEmpty() ? QStringLiteral("none") : listed(list.getItemKeys())));
}

void requireNewItem(const KpcAbstractList& list, const QString& path, const QString& text)
{
    if (!text.isEmpty() && list.getAbstractPrototype()->serialize().size() != 1)
        fail(QStringLiteral("The items of %1 have no single value: %2/+= adds one as the prototype is.")
                 .arg(SafeText::quoted(path), SafeText::inLine(path)));
}

/// The greatest identifier in use and one more.
QString nextItemKey(const KpcAbstractList& list)
{
    int id = 0;
    for (const QString& key : list.getItemKeys())
        id = std::max(id, KpcAbstractList::itemKeyToItemId(key));
    return QStringLiteral("ITEM_%1").arg(id + 1);
}

/// Adds an item with the entries; null if the list has its value already and is to have it once.
KpbAParameter* appendItem(KpcAbstractList& list, const Form& form)
{
    const int count = list.getItemCount();
    if (list.needToUnserializeAtomicItems()) {
        QList<Form> forms;
        for (int i = 0; i < count; ++i)
            forms.append(list.getAbstractItemAt(i)->serialize());
        list.unserializeAtomicItems(list.getItemKeys() << nextItemKey(list), forms << form);
    }
    else {
        list.appendItem();
        if (KpbAParameter* item = list.getAbstractItemAt(count))
            item->unserialize(form);
    }
    return list.getAbstractItemAt(count);
}

} // namespace

KpbAParameter& requireParameter(const QString& path, const KpbAParameter& root)
{
    KpbAParameter* parameter = find(path, root);
    if (!parameter)
        failUnknown(path, root);
    return *parameter;
}

Assignment Assignment::parse(const QString& argument, KpbAParameter& root)
{
    const int equals = argument.indexOf(QLatin1Char('='));
    if (equals < 0)
        fail(QStringLiteral("%1 is not of the form PATH=VALUE.").arg(SafeText::quoted(argument)));
    Assignment assignment;
    assignment._path = argument.left(equals);
    assignment._text = argument.mid(equals + 1);
    assignment._find(root);
    if (!isStored(assignment._parameter))
        fail(QStringLiteral("%1 is not stored.").arg(SafeText::quoted(assignment._path)));
    return assignment;
}

void Assignment::_find(KpbAParameter& root)
{
    _parameter = findOrRoot(_path, root);
    if (_parameter) {
        _entry = requireOnlyEntry(*_parameter, _path);
        return;
    }
    const QString parentPath = _path.contains(separator) ? _path.section(separator, 0, -2) : QStringLiteral(".");
    const QString name = _path.section(separator, -1);
    _parameter = findOrRoot(parentPath, root);
    const auto* list = dynamic_cast<const KpcAbstractList*>(_parameter);
    if (list && name == QLatin1String("+")) {
        _kind = NewItem;
        requireNewItem(*list, parentPath, _text);
    }
    else if (list && name == QLatin1String("-")) {
        _kind = ItemGone;
        requireItem(*list, parentPath, _text);
    }
    else if (list && !list->isEmpty()) {
        requireItem(*list, parentPath, name);
    }
    else if (!_parameter || name.isEmpty() ||
             (_parameter->serialize().isEmpty() && getItemEntries(*_parameter).isEmpty())) {
        failUnknown(_path, root);
    }
    else {
        requireEntry(*_parameter, parentPath, name);
        _entry = name;
    }
}

AssignmentResult Assignment::apply() const
{
    switch (_kind) {
    case NewItem:
        return _addItem();
    case ItemGone:
        return _removeItem();
    default:
        return _setEntry();
    }
}

AssignmentResult Assignment::_setEntry() const
{
    const std::unique_ptr<KpbAParameter> former(_parameter->duplicate(QString()));
    // A location is the whole of an item.
    const bool isLocation = _entry == QLatin1String("url");
    Form wanted = isLocation ? Form() : former->serialize();
    wanted.insert(_entry, _text);
    const KuoPointer<KpbAParameter> guarded(_parameter);
    _parameter->unserialize(wanted);
    // An item whose value an earlier one has leaves a list that is to have each value once.
    if (!guarded)
        return {_path, std::nullopt, ValueReading::Refused};
    return {_path, isLocation ? _text : _parameter->serialize().value(_entry),
            wanted.size() == 1 && !isLocation ? judgeReading(*_parameter, wanted, *former)
                                              : judgeEntry(*_parameter, wanted, _entry, *former)};
}

AssignmentResult Assignment::_addItem() const
{
    auto& list = dynamic_cast<KpcAbstractList&>(*_parameter);
    const KpbAParameter& prototype = *list.getAbstractPrototype();
    Form wanted = prototype.serialize();
    if (!_text.isEmpty())
        wanted.insert(wanted.keyAt(0), _text);
    const KpbAParameter* item = appendItem(list, wanted);
    if (!item)
        return {_path, std::nullopt, ValueReading::Refused};
    const QString path = _path.chopped(1) + item->getKey();
    const Form stored = item->serialize();
    return {path, stored.size() == 1 ? stored.valueAt(0) : QStringLiteral("(new)"),
            stored.isEmpty() ? ValueReading::Same : judgeReading(*item, wanted, prototype)};
}

AssignmentResult Assignment::_removeItem() const
{
    auto& list = dynamic_cast<KpcAbstractList&>(*_parameter);
    list.removeItemAt(list.getItemKeys().indexOf(_text));
    return {_path.chopped(1) + _text, std::nullopt, ValueReading::Same};
}

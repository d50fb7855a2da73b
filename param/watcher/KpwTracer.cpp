#include <param/watcher/KpwTracer.h>

#include <basic/MbbDebug.h>
#include <basic/MbbHtml.h>

namespace {

QString wordsOf(Kp::NotificationFlags flags)
{
    QString words;
    if (flags & Kp::NotifyValue)
        words += QLatin1String(" value");
    if (flags & Kp::NotifyConfig)
        words += QLatin1String(" configuration");
    if (flags & Kp::NotifyChildren)
        words += QLatin1String(" children");
    if (flags & Kp::NotifyItem)
        words += QLatin1String(" item");
    return words;
}

QString lineOf(const KpbAParameter& parameter, Kp::NotificationFlags flags)
{
    return QLatin1String("&nbsp;&nbsp;parameter '") +
           MbbHtml::format(parameter.getAbsolutePath().toString(), MbbHtml::Fixed | MbbHtml::NoBreak) +
           QLatin1String("' has been modified. [<small><b>") + wordsOf(flags) + QLatin1String(" </small></b>]") +
           MbbHtml::emptyLine(1);
}

} // namespace

KpwTracer::KpwTracer(const QString& name) : _name(name) {}

KpwTracer::KpwTracer(const KpwTracer& other, const KpcGroup* newParent)
    : KpwAWatcher(other, newParent),
      _name(other._name)
{}

KpwTracer::~KpwTracer() = default;

KpwTracer* KpwTracer::duplicate(const KpcGroup* newParent) const
{
    return new KpwTracer(*this, newParent);
}

void KpwTracer::setRoot(KpbAParameter* root)
{
    if (!root)
        return;
    _registerTrigger(root, AnyChange);
    MbbDebug().print(_name + QLatin1String(": start watching root ") + root->getKey());
}

void KpwTracer::_trigger(const KpnModif& modif)
{
    QString html =
        MbbHtml::format(_name, MbbHtml::Heading) + QLatin1String(" ----------------------") + MbbHtml::emptyLine(1);
    if (modif.isEmpty())
        html += QLatin1String(">>> KpwTracer::update: no modifs!");
    modif.forEach([&](const KpnPath& path, Kp::NotificationFlags flags) {
        if (const KpbAParameter* origin = path.getFirst())
            html += lineOf(*origin, flags);
    });
    html += QLatin1String("---------------------------------") + MbbHtml::emptyLine(1);
    MbbDebug().printHtml(html);
}

#include <QtCore/QTextStream>
#include <QtXml/QDomDocument>

#include <param/KpnModif.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcGroup.h>
#include <study/KstATransactableDefault.h>

namespace {

// A form that is not part of a study project.
class NoProject : public KstATransactableDefault
{};

// Prints what changes: where, and the flags of the change.
class Printer : public KuoIObserver<KpnModif>
{
public:
    void update(const KpnModif& modif) override { QTextStream(stdout) << modif.debug(0) << '\n'; }
};

} // namespace

int main()
{
    NoProject context;
    Printer printer;
    KpcGroup form("FORM", context);
    auto* count = new KpaInteger("COUNT"); // the form owns it
    count->setRange(1, 12);
    form.addChild(count);

    form.addObserver(&printer);
    count->setValue(1000); // repaired to 12
    form.removeObserver(&printer);

    QDomDocument document;
    document.appendChild(document.importNode(KpsSerializer::convertParamToXml(&form), true));
    QTextStream(stdout) << document.toString(-1) << '\n';
    return 0;
}

#include "Trilinos.h"

#include <Teuchos_ParameterList.hpp>
#include <Teuchos_StandardParameterEntryValidators.hpp>
#include <Teuchos_XMLParameterListCoreHelpers.hpp>
#include <Trilinos_version.h>

#include <exception>
#include <sstream>

using Teuchos::ParameterList;

void Trilinos::Destroy::operator()(ParameterList* list) const
{
    delete list;
}

Trilinos::Root Trilinos::build(const Plan& plan, double offset)
{
    const auto bounds = Teuchos::rcp(new Teuchos::EnhancedNumberValidator<double>(Plan::Minimum, Plan::Maximum));
    Root root(new ParameterList("TREE"));
    ParameterList* group = nullptr;
    plan.walk([&](const Plan::Row& row) { group = &root->sublist(row.key, false, row.label); },
              [&](const Plan::Row& row) { group->set(row.key, row.value + offset, row.label, bounds); });
    return root;
}

Trilinos::Root Trilinos::duplicate(const Root& root)
{
    return Root(new ParameterList(*root));
}

double Trilinos::getValue(ParameterList& root, const std::string& group, const std::string& leaf)
{
    return root.sublist(group, true).get<double>(leaf);
}

void Trilinos::setValue(ParameterList& root, const std::string& group, const std::string& leaf, double value)
{
    root.sublist(group, true).set(leaf, value);
}

QByteArray Trilinos::save(const ParameterList& root)
{
    std::ostringstream text;
    Teuchos::writeParameterListToXmlOStream(root, text);
    return QByteArray::fromStdString(text.str());
}

bool Trilinos::load(ParameterList& root, const QByteArray& text)
{
    try {
        Teuchos::updateParametersFromXmlString(text.toStdString(), Teuchos::ptr(&root));
        return true;
    }
    catch (const std::exception&) {
        return false;
    }
}

const char* Trilinos::getVersion()
{
    return TRILINOS_VERSION_STRING;
}

#pragma once

#include "Plan.h"

#include <QtCore/QByteArray>

#include <memory>

// Its headers are for an older language than the rest, so they are read where the functions are.
namespace Teuchos {
class ParameterList;
}

/// Teuchos ParameterList: nested lists, with the labels as documentation strings and the bounds as a validator, which
/// all leaves share.
struct Trilinos
{
    using Plan = StdPlan;
    struct Destroy
    {
        void operator()(Teuchos::ParameterList* list) const;
    };
    using Root = std::unique_ptr<Teuchos::ParameterList, Destroy>;

    static constexpr const char* name = "teuchos";

    static Root build(const Plan& plan, double offset = 0.0);
    static Root duplicate(const Root& root);
    static double getValue(Teuchos::ParameterList& root, const std::string& group, const std::string& leaf);
    static void setValue(Teuchos::ParameterList& root, const std::string& group, const std::string& leaf, double value);
    /// Its own text, which has the labels and bounds.
    static QByteArray save(const Teuchos::ParameterList& root);
    /// Gives whether the text could be read.
    static bool load(Teuchos::ParameterList& root, const QByteArray& text);
    /// The version of Trilinos.
    static const char* getVersion();
};

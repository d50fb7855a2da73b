#pragma once

#include <study/KstATransactableDefault.h>
#include <support/NamedItems.h>

#include <memory>

/// A transaction context for the application "kriging", with an empty project of its own that may be taken away.
class ItemProject : public KstATransactableDefault
{
public:
    KssProject* getProject() const override { return project.get(); }
    QString getApplicationFlag() const override { return QStringLiteral("kriging"); }

    std::unique_ptr<KssProject> project = std::make_unique<KssProject>(QStringLiteral("mine"));
};

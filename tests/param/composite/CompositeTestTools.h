#pragma once

#include <basic/MbeError.h>
#include <param/composite/KpcAComposite.h>
#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <gtest/gtest.h>
#include <support/RecordingObserver.h>

#include <functional>
#include <memory>

/// A transaction context with a project of its own.
class TestContext : public KstATransactableDefault
{
public:
    KssProject* getProject() const override { return _project.get(); }

    static const TestContext& instance()
    {
        static const TestContext context;
        return context;
    }

private:
    std::unique_ptr<KssProject> _project = std::make_unique<KssProject>();
};

/// A composite that shows what it keeps for subclasses.
class TestComposite : public KpcAComposite
{
public:
    explicit TestComposite(const QString& key) : KpcAComposite(KpbEType::GROUP, key, TestContext::instance()) {}
    TestComposite(const TestComposite& other, const QString& newKey) : KpcAComposite(other, newKey) {}
    TestComposite* duplicate(const QString& newKey) const override { return new TestComposite(*this, newKey); }

    using KpcAComposite::_getProject;
    using KpcAComposite::_getTransactable;
    using KpcAComposite::appendChild;
    using KpcAComposite::deleteAll;
    using KpcAComposite::deleteChild;
    using KpcAComposite::existsKey;
    using KpcAComposite::takeChild;
};

/// Does something each time that it is called.
class ActingObserver : public RecordingObserver
{
public:
    using Action = std::function<void()>;

    ActingObserver(const KpbAParameter& parameter, Action onUpdate, Action onDeath = {})
        : RecordingObserver(parameter),
          _onUpdate(std::move(onUpdate)),
          _onDeath(std::move(onDeath))
    {}
    void update(const KpnModif& modif) override
    {
        RecordingObserver::update(modif);
        if (_onUpdate)
            _onUpdate();
    }
    void destroyed(const KuoAObservable<KpnModif>* observable) override
    {
        RecordingObserver::destroyed(observable);
        if (_onDeath)
            _onDeath();
    }

private:
    Action _onUpdate;
    Action _onDeath;
};

inline QStringList childKeys(const KpbAParameter& parameter)
{
    QStringList keys;
    for (int i = 0; i < parameter.getChildCount(); ++i) {
        const KpbAParameter* child = parameter.getChild(i);
        keys.append(child ? child->getKey() : QStringLiteral("dead"));
    }
    return keys;
}

/// Runs `body`, which has to throw exactly an `Error`, and gives its message.
template <class Error>
QString messageOf(const std::function<void()>& body)
{
    try {
        body();
    }
    catch (const Error& error) {
        EXPECT_TRUE(typeid(error) == typeid(Error)) << typeid(error).name();
        return error.getMessage();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

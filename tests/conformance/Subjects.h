#pragma once

#include <QtCore/QString>

#include <param/KpbAParameter.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

/// A parameter that the tests for all classes go over: as its class builds it, or brought to a state in which the class
/// has more to show. Each call of `make` gives another one of the same state.
struct Subject
{
    QString name;
    QString className;
    std::function<std::unique_ptr<KpbAParameter>()> make;
};

/// One as built for each registered class, under the key that is the name of the class, and then the others.
const std::vector<Subject>& allSubjects();

/// The parameter, as it is to stand in tests of all states: with a certain colour where the class draws one by chance,
/// and a value where none is read as something else.
std::unique_ptr<KpbAParameter> settled(std::unique_ptr<KpbAParameter> made);

/// Base of the tests that each of some subjects has to pass.
class SubjectTest
{
public:
    explicit SubjectTest(const Subject& subject) : _subject(subject) {}

    std::unique_ptr<KpbAParameter> make() const { return _subject.make(); }
    /// One whose stored values are all others, where there are others.
    std::unique_ptr<KpbAParameter> makeChanged() const;

private:
    const Subject& _subject;
};

/// What every class has to pass.
struct ParameterClass : SubjectTest
{
    using SubjectTest::SubjectTest;
    static bool concerns(const KpbAParameter&) { return true; }
};

/// What every group has to pass that can be a task, which a row of a table cannot.
struct GroupClass : SubjectTest
{
    using SubjectTest::SubjectTest;
    static bool concerns(const KpbAParameter& parameter);
};

/// What every composite has to pass.
struct CompositeClass : SubjectTest
{
    using SubjectTest::SubjectTest;
    static bool concerns(const KpbAParameter& parameter);
};

/// What every list has to pass.
struct ListClass : SubjectTest
{
    using SubjectTest::SubjectTest;
    static bool concerns(const KpbAParameter& parameter);
};

/// What classes have to pass that have had no other form.
struct ClassOfOneVersion : SubjectTest
{
    using SubjectTest::SubjectTest;
    static bool concerns(const KpbAParameter& parameter) { return parameter.getVersion() == 1; }
};

/// What classes have to pass that have had other forms.
struct ClassOfVersions : SubjectTest
{
    using SubjectTest::SubjectTest;
    static bool concerns(const KpbAParameter& parameter) { return parameter.getVersion() > 1; }
};

template <class Test>
void runForEverySubject()
{
    int count = 0;
    for (const Subject& subject : allSubjects()) {
        if (!Test::concerns(*subject.make()))
            continue;
        SCOPED_TRACE(subject.name.toStdString());
        Test(subject).run();
        ++count;
    }
    EXPECT_GT(count, 0);
}

/// A test of the suite `Classes` whose body runs for each subject that the suite concerns; failures name the subject.
/// One test for all, since a process for each would cost more than what it tests.
#define TEST_EVERY(Classes, Sentence)                                                                                  \
    namespace {                                                                                                        \
    struct Classes##Sentence : Classes                                                                                 \
    {                                                                                                                  \
        using Classes::Classes;                                                                                        \
        void run();                                                                                                    \
    };                                                                                                                 \
    }                                                                                                                  \
    TEST(Classes, Sentence)                                                                                            \
    {                                                                                                                  \
        runForEverySubject<Classes##Sentence>();                                                                       \
    }                                                                                                                  \
    void Classes##Sentence::run()

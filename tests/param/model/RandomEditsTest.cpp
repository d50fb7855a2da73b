#include "RandomEdits.h"
#include "FormChecks.h"

#include <gtest/gtest.h>
#include <support/RecordedMessages.h>

#include <memory>

// A form of all data classes and the project under it, edited at random. The seeds are fixed.

namespace {

class RandomEditsTest : public testing::TestWithParam<unsigned>
{
protected:
    /// Edits, with `check()` after each.
    template <class Check>
    void edit(int count, Check check)
    {
        RandomEdits edits(*form, project, GetParam());
        for (int i = 0; i < count && !HasFailure(); ++i) {
            const char* name = edits.makeNext();
            SCOPED_TRACE(testing::Message() << "edit " << i << ", " << name);
            check();
        }
    }

    RecordedMessages messages;
    SurveyProject project;
    std::unique_ptr<DataForm> form = std::make_unique<DataForm>(project);
};

} // namespace

TEST_P(RandomEditsTest, LeaveEveryDependentParameterOfTheDatasetWithItsRoot)
{
    edit(800, [this] { expectKnownRoots(*form); });
}

TEST_P(RandomEditsTest, LeaveCountsThatAreThoseOfTheValues)
{
    edit(1000, [this] { expectSameCounts(*form, project); });
}

TEST_P(RandomEditsTest, LeaveAFormThatIsStoredTheSameOnceItWasRead)
{
    edit(120, [this] {
        const QByteArray stored = storedForm(form->group);
        const QByteArray once = storedByAFreshForm(stored, project);
        if (isReproducible(form->group)) {
            EXPECT_EQ(once.toStdString(), stored.toStdString());
        }
        EXPECT_EQ(storedByAFreshForm(once, project).toStdString(), once.toStdString());
    });
}

TEST_P(RandomEditsTest, LeaveNothingThatDangles)
{
    edit(200, [this] { readAll(*form); });
    EXPECT_TRUE(messages.errors.isEmpty()) << messages.errors.join("\n").toStdString();
    project.close();
    readAll(*form);
    storedForm(form->group);
    const std::unique_ptr<KpcGroup> copy(form->group.duplicate(QString()));
    form.reset();
    readAll(*copy);
}

TEST_P(RandomEditsTest, MayEndWithTheFormBeforeTheProject)
{
    edit(300, [] {});
    form.reset();
    project.data().remove(project.item(QStringLiteral("Site")));
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEditsTest, testing::Range(1U, 9U));

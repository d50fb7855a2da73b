#include <gtest/gtest.h>

#include <basic/MbeError.h>
#include <basic/MbeTranslate.h>

#include <stdexcept>

namespace {
/// The error that `throwing` becomes, as its class name, type and message.
template <class Throwing>
QString translated(Throwing throwing)
{
    const auto tell = [](const char* name, const MbeError& e) {
        return QStringLiteral("%1 %2 %3").arg(QLatin1String(name)).arg(e.getType()).arg(e.getMessage());
    };
    try {
        mbeTranslate(throwing);
    }
    catch (const MbeMemoryError& e) {
        return tell("MbeMemoryError", e);
    }
    catch (const MbeProgrammingError& e) {
        return tell("MbeProgrammingError", e);
    }
    catch (const MbeUserError& e) {
        return tell("MbeUserError", e);
    }
    catch (const MbeError& e) {
        return tell("MbeError", e);
    }
    catch (const MbeException& e) {
        return "MbeException " + e.getMessage();
    }
    return "nothing";
}

struct Derived : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// A standard exception whose text is the test's own.
template <class Base>
struct Speaking : Base
{
    const char* what() const noexcept override { return "own text"; }
};
} // namespace

TEST(MbeException, KeepsItsMessageAndFormat)
{
    const MbeException e("<b>caf\xc3\xa9</b>", Qt::RichText);
    EXPECT_EQ(e.getMessage(), QString::fromUtf8("<b>caf\xc3\xa9</b>"));
    EXPECT_EQ(e.getFormat(), Qt::RichText);
    EXPECT_STREQ(e.what(), "<b>caf\xc3\xa9</b>");
}

TEST(MbeException, IsPlainTextUnlessItIsSaid)
{
    EXPECT_EQ(MbeException("a").getFormat(), Qt::PlainText);
    EXPECT_EQ(MbeError(6, "a").getFormat(), Qt::PlainText);
}

TEST(MbeError, KnowsItsType)
{
    EXPECT_EQ(MbeError(6, "a").getType(), 6);
    EXPECT_EQ(MbeError(1234, "a").getType(), 1234);
    EXPECT_EQ(MbeUserError("a").getType(), int(MbeError::User));
    EXPECT_EQ(MbeProgrammingError("a").getType(), int(MbeError::Programming));
    EXPECT_EQ(MbeMemoryError("a").getType(), int(MbeError::Memory));
}

TEST(MbeError, IsCaughtAsAnExceptionOfTheFamilyAndOfTheStandard)
{
    EXPECT_THROW(throw MbeProgrammingError("a"), MbeError);
    EXPECT_THROW(throw MbeMemoryError("a"), MbeError);
    EXPECT_THROW(throw MbeUserError("a"), MbeError);
    EXPECT_THROW(throw MbeError(6, "a"), MbeException);
    EXPECT_THROW(throw MbeException("a"), std::exception);
}

TEST(MbeError, PutsTheContextOnALineBeforeTheCause)
{
    const MbeError e(MbeUserError("the cause", Qt::RichText), "the context");
    EXPECT_EQ(e.getMessage(), "the context\nthe cause");
    EXPECT_EQ(e.getType(), int(MbeError::User));
    EXPECT_EQ(e.getFormat(), Qt::RichText);
}

TEST(MbeTranslate, GivesWhatTheBodyGives)
{
    EXPECT_EQ(mbeTranslate([] { return 7; }), 7);
    int target = 0;
    mbeTranslate([&target]() -> int& { return target; }) = 5;
    EXPECT_EQ(target, 5);
    EXPECT_EQ(mbeTranslate([] { return 8; }, [] { return QString(); }), 8);
}

TEST(MbeTranslate, TurnsEachStandardExceptionIntoItsError)
{
    EXPECT_EQ(translated([] { throw Speaking<std::bad_alloc>(); }), "MbeMemoryError 3 std::bad_alloc: own text");
    EXPECT_EQ(translated([] { throw Speaking<std::bad_cast>(); }), "MbeProgrammingError 2 std::bad_cast: own text");
    EXPECT_EQ(translated([] { throw Speaking<std::bad_typeid>(); }), "MbeProgrammingError 2 std::bad_typeid: own text");
    EXPECT_EQ(translated([] { throw Speaking<std::bad_exception>(); }),
              "MbeProgrammingError 2 std::bad_exception: own text");
    EXPECT_EQ(translated([] { throw Speaking<std::exception>(); }), "MbeError 6 std::exception: own text");
    EXPECT_EQ(translated([] { throw Derived("bad \xc3\xa9"); }),
              QString::fromUtf8("MbeError 6 std::exception: bad \xc3\xa9"));
}

TEST(MbeTranslate, TurnsAnythingElseIntoAnUnknownException)
{
    EXPECT_EQ(translated([] { throw 7; }), "MbeError 6 Unknown exception.");
    EXPECT_EQ(translated([] { throw "text"; }), "MbeError 6 Unknown exception.");
}

TEST(MbeTranslate, LetsItsOwnFamilyPassUnchanged)
{
    EXPECT_EQ(translated([] { throw MbeUserError("mine"); }), "MbeUserError 1 mine");
    EXPECT_EQ(translated([] { throw MbeProgrammingError("mine"); }), "MbeProgrammingError 2 mine");
    EXPECT_EQ(translated([] { throw MbeError(42, "mine"); }), "MbeError 42 mine");
    EXPECT_EQ(translated([] { throw MbeException("mine"); }), "MbeException mine");
}

TEST(MbeTranslate, AddsTheContextToEveryError)
{
    const auto message = [](auto throwing) {
        try {
            mbeTranslate(throwing, [] { return QStringLiteral("While testing."); });
        }
        catch (const MbeError& e) {
            return QStringLiteral("%1 %2").arg(e.getType()).arg(e.getMessage());
        }
        return QString();
    };
    EXPECT_EQ(message([] { throw Speaking<std::bad_alloc>(); }), "3 While testing.\nstd::bad_alloc: own text");
    EXPECT_EQ(message([] { throw MbeUserError("mine"); }), "1 While testing.\nmine");
    EXPECT_EQ(message([] { throw 7; }), "6 While testing.\nUnknown exception.");
}

TEST(MbeTranslate, AddsNoContextToAnExceptionThatIsNoError)
{
    try {
        mbeTranslate([] { throw MbeException("mine"); }, [] { return QStringLiteral("While testing."); });
        FAIL();
    }
    catch (const MbeException& e) {
        EXPECT_EQ(e.getMessage(), "mine");
    }
}

TEST(MbeTranslate, MakesTheContextOnlyWhenItIsNeeded)
{
    bool made = false;
    mbeTranslate([] {},
                 [&made] {
                     made = true;
                     return QString();
                 });
    EXPECT_FALSE(made);
}

// The other process of the tests of the project file.
//   write FILE FIRST COUNT   stores COUNT forms (0: without end), numbered from FIRST, and prints each number once its
//   form
//                            is stored
//   lock FILE                holds the write lock of the file, prints "locked", and ends at the end of its input
//   no-application FILE      opens the file without an application object and prints the error
//   no-driver FILE           opens the file without Qt's plugins and prints the error

#include "../WrittenForm.h"

#include <basic/MbeError.h>
#include <study/KsbDriverTaskFicheSqlite.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include <cstdio>

namespace {

int write(const QStringList& arguments)
{
    const auto driver = KsbDriverTaskFicheSqlite::open(arguments.at(2));
    const int first = arguments.at(3).toInt();
    const int count = arguments.at(4).toInt();
    for (int number = first; count == 0 || number < first + count; ++number) {
        driver->write(written_form::id(), written_form::key(number), written_form::document(number));
        std::printf("%d\n", number);
        std::fflush(stdout);
    }
    return 0;
}

int lock(const QStringList& arguments)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    database.setDatabaseName(arguments.at(2));
    if (!database.open() || !QSqlQuery(database).exec(QStringLiteral("BEGIN IMMEDIATE")))
        return 1;
    std::puts("locked");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}

int printOpenError(const QString& path)
{
    try {
        KsbDriverTaskFicheSqlite::open(path);
    }
    catch (const MbeError& error) {
        std::printf("%d %s", error.getType(), error.what());
        return 0;
    }
    return 1;
}

int run(const QStringList& arguments)
{
    const QString command = arguments.value(1);
    if (command == QLatin1String("write") && arguments.size() == 5)
        return write(arguments);
    if (command == QLatin1String("lock") && arguments.size() == 3)
        return lock(arguments);
    if (command == QLatin1String("no-driver") && arguments.size() == 3) {
        QCoreApplication::setLibraryPaths({});
        return printOpenError(arguments.at(2));
    }
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && QLatin1String(argv[1]) == QLatin1String("no-application"))
        return printOpenError(QString::fromLocal8Bit(argv[2]));
    QCoreApplication application(argc, argv);
    try {
        return run(application.arguments());
    }
    catch (const MbeError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 3;
    }
}

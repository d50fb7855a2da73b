#pragma once

#include <QtCore/QStringList>

#include <cli/ExitCode.h>

#include <vector>

class CommandLine;
class Output;

/// One word behind "kparam store STORE". `run` gets the store's file and the arguments behind the word.
struct StoreCommand
{
    const char* name;
    const char* summary;
    ExitCode (*run)(const QString& store, const QStringList& arguments, Output& output);
};

const std::vector<StoreCommand>& getStoreCommands();

ExitCode runStoreList(const QString& store, const QStringList& arguments, Output& output);
ExitCode runStoreShow(const QString& store, const QStringList& arguments, Output& output);
ExitCode runStorePut(const QString& store, const QStringList& arguments, Output& output);
ExitCode runStoreCopy(const QString& store, const QStringList& arguments, Output& output);
ExitCode runStoreMoveUrl(const QString& store, const QStringList& arguments, Output& output);
ExitCode runStoreExport(const QString& store, const QStringList& arguments, Output& output);
ExitCode runStoreImport(const QString& store, const QStringList& arguments, Output& output);
ExitCode runStoreRestore(const QString& store, const QStringList& arguments, Output& output);

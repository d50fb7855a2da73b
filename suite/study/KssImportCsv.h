#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>

#include <basic/MbdEVarType.h>
#include <study/KssCsvTable.h>
#include <study/StudyExport.h>

#include <vector>

class KssCsvColumn;
class KsoDataDirectory;
class KsoDataFile;
class KssProject;

/// Imports a text file of columns (see `KssCsvTable`) as a data file of points with one support. Each column becomes a
/// variable, each row a sample. Numbers have a decimal point. An empty cell, or "N/A", is undefined.
///
/// Unless `setType` tells it, the type of a column is the first of these that all of its cells fit: integer; double;
/// boolean (true, false, yes, no); category, if the cells have at most `MaxCategories` different texts, each twice on
/// average; text. More than 15 digits without a point are a text, which a number would not keep. A column of which nine
/// in ten cells or more are numbers is one of numbers: the other cells are mistakes. So is a number that no double
/// holds.
///
/// Columns of numbers named X, Y and Z, in any case, are coordinates. Categories are those of a catalog with the name
/// of the column. It is made, under the next free name if need be, unless there is one that has them all.
///
/// Everything that is wrong with the file is told in one `MbeUserError`, by line and column; a file that has
/// `KssCsvTable::MaxMistakes` mistakes is not read further. On any error nothing is imported.
class KESTRIN_STUDY_EXPORT KssImportCsv
{
public:
    static constexpr int MaxCategories = 50;
    static constexpr qint64 MaxFileSize = 256 * 1024 * 1024; ///< bytes
    static constexpr int MaxReportedMistakes = 20;

    using Mistake = KssCsvTable::Mistake;

    /// The project belongs to the caller and outlives the import.
    explicit KssImportCsv(KssProject* project) : _project(project) {}

    /// The type of the column of the name, whatever its cells look like: those that do not fit are mistakes. So is a
    /// name that no column has.
    void setType(const QString& column, const MbdEVarType& type) { _types.insert(column, type); }

    /// Imports the file, which is named as the data file without its suffix, into `directory`, or into the root
    /// directory if that is null.
    KsoDataFile* importFile(const QString& filePath, KsoDataDirectory* directory = nullptr);
    /// The same of the content of a file that is to have the name `name`.
    KsoDataFile* importText(const QByteArray& text, const QString& name, KsoDataDirectory* directory = nullptr);

    /// What was wrong with the text that was imported last, in order of lines.
    const QList<Mistake>& getMistakes() const { return _mistakes; }

private:
    std::vector<KssCsvColumn> _readColumns(const KssCsvTable& table);

    KssProject* _project;
    QHash<QString, MbdEVarType> _types;
    QList<Mistake> _mistakes;
};

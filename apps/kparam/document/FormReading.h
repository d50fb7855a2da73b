#pragma once

#include <document/FormConversion.h>
#include <document/FormFindings.h>
#include <document/InputDocument.h>
#include <registry/ClassRegistry.h>
#include <tree/ProjectContext.h>

class Output;

/// A document read into a new parameter, with all that there is to say about it.
struct FormReading
{
    std::unique_ptr<KpbAParameter> parameter;
    bool isTask = false; ///< whether the document is a "task" and not a "param"
    int version = 1;     ///< of the document's root
    QVector<ConversionStep> conversion;
    QVector<Finding> findings;
    QStringList absent;
    QStringList messages; ///< what the library printed meanwhile

    /// Whether the root itself is of a version that the class does not know, so that nothing was read.
    bool isTooNew() const { return version > parameter->getVersion(); }
};

/// Reads the document into a new parameter of the class, under the key that a "param" document says. A document of
/// another shape, or one that the class fails to convert, is a `Failure` that names the place.
FormReading readForm(const InputDocument& input, const ClassRegistry::Row& row,
                     const ProjectContext& context = ProjectContext::none());

/// The same for commands that go on with the form: one that is too new is a `Failure`; findings are told as messages.
FormReading readFormToUse(const InputDocument& input, const ClassRegistry::Row& row, const ProjectContext& context,
                          Output& output);

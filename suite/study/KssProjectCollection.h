#pragma once

#include <QtCore/QUrl>

#include <study/KsmModelConventionRot.h>

class KssProject;

/// What the projects of the process offer to those who know none of them by name. Every project is in it as long as it
/// lives.
class KESTRIN_STUDY_EXPORT KssProjectCollection
{
public:
    /// The rotation conventions of the open project, or the built-in ones where none is open. Never null, and it lives
    /// as long as the process.
    static const KsmModelConventionRot* openedModelRotationConv();
    /// The project of the URL, the oldest if there are several; null if there is none or the URL is empty.
    static KssProject* projectFromUrl(const QUrl& url);

private:
    friend class KssProject;
    static void _add(KssProject* project);
    static void _remove(KssProject* project);
};

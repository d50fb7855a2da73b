#pragma once

#include <QtCore/QtGlobal>

/// How much KuxXml::parse takes before it refuses a document.
struct KuxXmlLimits
{
    /// The document's size in bytes. No more than 1 GiB is ever read, whatever is set here.
    qint64 maxBytes = qint64(1) << 30;
    /// How deep elements may be nested; the root has depth 1. The document's nodes destroy each other recursively, so a
    /// limit beyond some ten thousand can exhaust the stack.
    int maxDepth = 1000;
    /// The attributes of one element. The cost of reading an element grows with the square of this.
    int maxAttributes = 256;
    /// The characters of the name of an element, an attribute or a processing instruction.
    int maxNameLength = 1024;
};

// The reader of plain documents beside the full parser: what it reads, that one reads as the same.
#include "Fuzzing.h"

#include <util/KuxXml.h>
#include <util/KuxXmlPlainReader.h>

namespace {

// What the reader of plain documents does not know, so that the full parser reads the whole.
constexpr const char* foreign = "<!--x-->";

/// The document as the full parser reads it; a null one if it refuses.
QDomDocument readInFull(const QByteArray& bytes)
{
    QDomDocument document;
    if (!KuxXml::parse(bytes + foreign, &document).ok)
        return {};
    document.removeChild(document.lastChild());
    return document;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    const auto plain = KuxXmlPlainReader::read(bytes, {});
    QDomDocument document;
    const bool ok = KuxXml::parse(bytes, &document).ok;
    if (plain) {
        const QDomDocument full = readInFull(bytes);
        require(ok && !full.isNull(), "what the plain reader reads is well-formed");
        require(plain->toString(-1) == full.toString(-1), "both readers read the same", full.toByteArray(-1));
    }
    if (ok) {
        const QByteArray text = KuxXml::toText(document);
        QDomDocument again;
        require(KuxXml::parse(text, &again).ok, "what is written can be read", text);
        require(KuxXml::toText(again) == text, "what is read again is written as before", text);
    }
    return 0;
}

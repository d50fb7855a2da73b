#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QGuiApplication>

#include <basic/MbbDebug.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <sanitizer/lsan_interface.h>

/// What the fuzzer calls for each input. What must not happen ends the process; the input is then kept.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline QByteArray bytesOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), int(size)};
}

/// Ends the process with the sentence that does not hold, unless `holds`.
inline void require(bool holds, const char* sentence, const QByteArray& shown = QByteArray())
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n%s\n", sentence, shown.constData());
    std::abort();
}

/// What the libraries need of a program, as long as it lives: an application, without a display, and a place for their
/// messages, which keeps them away from the log.
class Surroundings : public MbbDebug::Sink
{
public:
    Surroundings() : _former(MbbDebug::setSink(this)) {}
    ~Surroundings() override { MbbDebug::setSink(_former); }
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;

    void warning(const QString&, Qt::TextFormat) override {}
    void error(const QString&, Qt::TextFormat) override {}
    void information(const QString&, Qt::TextFormat) override {}

private:
    // Qt's platform without a display keeps its screen until the process ends, which is no leak of ours.
    std::unique_ptr<QGuiApplication> _makeApplication()
    {
        const __lsan::ScopedDisabler disabler;
        return std::make_unique<QGuiApplication>(_argumentCount, _arguments);
    }

    MbbDebug::Sink* _former;
    char _name[5] = "fuzz";
    char* _arguments[2] = {_name, nullptr};
    int _argumentCount = 1;
    std::unique_ptr<QGuiApplication> _application = _makeApplication();
};

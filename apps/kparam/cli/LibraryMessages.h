#pragma once

#include <basic/MbbDebug.h>

class Output;

/// Prints what the libraries and Qt have to say as messages of the program, while it lives. One object at a time.
class LibraryMessages : public MbbDebug::Sink
{
public:
    explicit LibraryMessages(Output& output);
    ~LibraryMessages() override;
    LibraryMessages(const LibraryMessages&) = delete;
    LibraryMessages& operator=(const LibraryMessages&) = delete;

    void warning(const QString& text, Qt::TextFormat format) override;
    void error(const QString& text, Qt::TextFormat format) override;
    void information(const QString& text, Qt::TextFormat format) override;

private:
    Output& _output;
    MbbDebug::Sink* _former;
};

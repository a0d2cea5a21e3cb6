#include "Fuzzers/Require.h"
#include "TarnwickDirect/SoftwareUpdate/ReleaseNotes.h"

#include <QGuiApplication>

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static QGuiApplication application(*count, *arguments);
    return 0;
}

/// Any notes become text of limited length without invisible characters.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString notes = TarnwickDirect::plainReleaseNotes(
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    Fuzzers::require(notes.size() <= 20'001);
    for (const QChar character : notes) {
        const auto category = character.category();
        Fuzzers::require(category != QChar::Other_Format);
        Fuzzers::require(category != QChar::Other_Control || character == u'\n');
    }
    return 0;
}

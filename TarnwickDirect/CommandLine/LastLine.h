#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace TarnwickDirect {

/// Standard output for a reader that only needs the latest line. Never blocks: a new line replaces
/// one that cannot be written yet. Notices at once when the reader is gone. Main thread only.
class LastLine final : public QObject {
    Q_OBJECT

public:
    /// Requires: the descriptor stays open.
    explicit LastLine(int descriptor, QObject* parent = nullptr);

    /// Writes the text and a line feed as soon as possible.
    void write(std::string text);

Q_SIGNALS:
    /// Writing has failed. `error` is EPIPE when the reader is gone.
    void ended(int error);

private:
    void pump();
    bool isWritable() const;
    void lookForReader();
    void end(int error);

    int _descriptor;
    std::string _line;         ///< Being written.
    std::size_t _written = 0;  ///< Bytes of it.
    std::optional<std::string> _next;
    QSocketNotifier _room;                     ///< Only while something waits.
    std::unique_ptr<QSocketNotifier> _reader;  ///< Of a pipe.
};

}  // namespace TarnwickDirect

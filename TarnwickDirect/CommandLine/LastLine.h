#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace TarnwickDirect {

/// Standard output for a reader that wants the last line alone. A reader that is slow or does not
/// read at all blocks nothing: of the lines that wait for it only the last one is kept. The end of
/// the reader is noticed at once, without anything being written. Main thread only.
class LastLine final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LastLine)

public:
    /// Requires: the descriptor stays open.
    explicit LastLine(int descriptor, QObject* parent = nullptr);
    ~LastLine() override = default;

    /// Writes the text and the end of the line, as soon as the reader takes it.
    void write(std::string text);

Q_SIGNALS:
    /// Nothing more can be written; the error's number, or EPIPE when nobody reads.
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

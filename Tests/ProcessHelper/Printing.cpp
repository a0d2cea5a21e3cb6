#include "Printing.h"

#include <algorithm>
#include <string>

#include <unistd.h>

namespace ProcessHelper {
namespace {

constexpr std::size_t period = 251;

const std::string& pattern()
{
    static const std::string text = [] {
        std::string bytes;
        for (std::size_t index = 0; index < period * 64; ++index) {
            bytes.push_back(static_cast<char>(index % period));
        }
        return bytes;
    }();
    return text;
}

/// Writes the part of the endless pattern that begins at `start`.
std::size_t writePiece(int descriptor, std::size_t start, std::size_t count)
{
    const std::string_view rest = std::string_view(pattern()).substr(start % period);
    const std::string_view piece = rest.substr(0, std::min(count, rest.size()));
    writeAll(descriptor, piece);
    return piece.size();
}

}  // namespace

void writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0) {
            ::_exit(96);
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void writePattern(int descriptor, std::size_t count)
{
    std::size_t written = 0;
    while (written < count) {
        written += writePiece(descriptor, written, count - written);
    }
}

void writePatternsInTurn(std::size_t onOutput, std::size_t onError)
{
    std::size_t output = 0;
    std::size_t error = 0;
    while (output < onOutput || error < onError) {
        output += writePiece(STDOUT_FILENO, output, onOutput - output);
        error += writePiece(STDERR_FILENO, error, onError - error);
    }
}

}  // namespace ProcessHelper

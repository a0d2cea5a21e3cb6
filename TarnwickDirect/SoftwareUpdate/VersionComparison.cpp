#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

#include <QVersionNumber>

#include <algorithm>

namespace TarnwickDirect {
namespace {

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isWordLetter(QChar character)
{
    return !isDigit(character) && (character.isLetterOrNumber() || character.isSurrogate());
}

/// Removes and returns the longest prefix of characters that satisfy the condition.
template<typename Condition>
QStringView takeWhile(QStringView& text, const Condition& condition)
{
    const auto* const end = std::find_if_not(text.begin(), text.end(), condition);
    const QStringView taken = text.first(end - text.begin());
    text = text.sliced(taken.size());
    return taken;
}

struct Segment {
    bool isWord = false;
    QStringView text;  ///< Numbers without leading zeros; zero is empty.
};

/// Removes and returns the next segment; zero at the end of the text.
Segment takeSegment(QStringView& text)
{
    takeWhile(
        text, [](QChar character) { return !isDigit(character) && !isWordLetter(character); });
    if (!text.empty() && isWordLetter(text.front())) {
        return {.isWord = true, .text = takeWhile(text, isWordLetter)};
    }
    takeWhile(text, [](QChar character) { return character == u'0'; });
    return {.isWord = false, .text = takeWhile(text, isDigit)};
}

std::weak_ordering compareSegments(const Segment& left, const Segment& right)
{
    if (left.isWord != right.isWord) {
        return left.isWord ? std::weak_ordering::less : std::weak_ordering::greater;
    }
    if (left.isWord) {
        return left.text.compare(right.text, Qt::CaseInsensitive) <=> 0;
    }
    if (left.text.size() != right.text.size()) {
        return left.text.size() <=> right.text.size();
    }
    return left.text.compare(right.text) <=> 0;
}

QStringView withoutDecoration(QStringView version)
{
    version = version.first(std::ranges::find(version, QChar(u'+')) - version.begin()).trimmed();
    if (version.size() > 1 && version.front().toLower() == u'v' && isDigit(version[1])) {
        version = version.sliced(1);
    }
    return version;
}

}  // namespace

std::weak_ordering compareVersions(QStringView left, QStringView right)
{
    left = withoutDecoration(left);
    right = withoutDecoration(right);
    while (!left.empty() || !right.empty()) {
        const auto order = compareSegments(takeSegment(left), takeSegment(right));
        if (order != 0) {
            return order;
        }
    }
    return std::weak_ordering::equivalent;
}

QString systemVersionIn(const QString& kernelVersion)
{
    return QVersionNumber::fromString(kernelVersion).toString();
}

QString upstreamVersion(const QString& packageVersion)
{
    const QString version = packageVersion.sliced(packageVersion.indexOf(u':') + 1);
    return version.first(version.contains(u'-') ? version.lastIndexOf(u'-') : version.size());
}

}  // namespace TarnwickDirect

#include "PullRequestKit/Date.h"

#include <array>
#include <cassert>
#include <cstdio>

namespace PullRequestKit {
namespace {

using std::chrono::year_month_day;

/// Parses a text from its front. After the first mismatch every further call fails.
class Scanner {
public:
    explicit Scanner(std::string_view text)
        : _rest(text)
    {}

    bool isGood() const { return _isGood; }

    bool isAtEnd() const { return _rest.empty(); }

    bool skip(char expected)
    {
        if (_rest.empty() || _rest.front() != expected) {
            return false;
        }
        _rest.remove_prefix(1);
        return true;
    }

    void require(char expected) { _isGood = skip(expected) && _isGood; }

    int digits(std::size_t count)
    {
        if (_rest.size() < count) {
            _isGood = false;
            return 0;
        }
        int number = 0;
        for (const char digit : _rest.substr(0, count)) {
            _isGood = _isGood && digit >= '0' && digit <= '9';
            number = number * 10 + (digit - '0');
        }
        _rest.remove_prefix(count);
        return number;
    }

private:
    std::string_view _rest;
    bool _isGood = true;
};

constexpr bool isTimeOfDay(int hour, int minute, int second)
{
    return hour <= 23 && minute <= 59 && second <= 59;
}

std::optional<std::chrono::minutes> scanZone(Scanner& scanner)
{
    if (scanner.skip('Z')) {
        return std::chrono::minutes{0};
    }
    const bool isBehind = scanner.skip('-');
    if (!isBehind) {
        scanner.require('+');
    }
    const int hours = scanner.digits(2);
    scanner.skip(':');
    const int minutes = scanner.digits(2);
    if (!scanner.isGood() || !isTimeOfDay(hours, minutes, 0)) {
        return std::nullopt;
    }
    const std::chrono::minutes offset = std::chrono::hours{hours} + std::chrono::minutes{minutes};
    return isBehind ? -offset : offset;
}

year_month_day calendarDay(Date date)
{
    return year_month_day{std::chrono::floor<std::chrono::days>(date)};
}

bool hasFourDigitYear(Date date)
{
    const int year = static_cast<int>(calendarDay(date).year());
    return year >= 0 && year <= 9999;
}

}  // namespace

std::optional<Date> parseDate(std::string_view text)
{
    Scanner scanner(text);
    const std::chrono::year year{scanner.digits(4)};
    scanner.require('-');
    const std::chrono::month month{static_cast<unsigned>(scanner.digits(2))};
    scanner.require('-');
    const std::chrono::day day{static_cast<unsigned>(scanner.digits(2))};
    scanner.require('T');
    const int hour = scanner.digits(2);
    scanner.require(':');
    const int minute = scanner.digits(2);
    scanner.require(':');
    const int second = scanner.digits(2);
    const auto zone = scanZone(scanner);

    const year_month_day calendar{year, month, day};
    if (!scanner.isGood() || !scanner.isAtEnd() || !zone || !calendar.ok()
        || !isTimeOfDay(hour, minute, second)) {
        return std::nullopt;
    }
    const Date date = std::chrono::sys_days{calendar} + std::chrono::hours{hour}
                      + std::chrono::minutes{minute} + std::chrono::seconds{second} - *zone;
    if (!hasFourDigitYear(date)) {
        return std::nullopt;
    }
    return date;
}

std::string formatDate(Date date)
{
    assert(hasFourDigitYear(date));
    const year_month_day day = calendarDay(date);
    const std::chrono::hh_mm_ss time{date - std::chrono::floor<std::chrono::days>(date)};
    std::array<char, sizeof "2024-05-01T09:30:00Z" + 32> text{};
    const int length = std::snprintf(
        text.data(),
        text.size(),
        "%04d-%02u-%02uT%02d:%02d:%02dZ",
        static_cast<int>(day.year()),
        static_cast<unsigned>(day.month()),
        static_cast<unsigned>(day.day()),
        static_cast<int>(time.hours().count()),
        static_cast<int>(time.minutes().count()),
        static_cast<int>(time.seconds().count()));
    return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace PullRequestKit

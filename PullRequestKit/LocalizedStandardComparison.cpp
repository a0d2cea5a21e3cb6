#include "PullRequestKit/LocalizedStandardComparison.h"

#include <algorithm>
#include <memory>
#include <new>
#include <numeric>
#include <stdexcept>
#include <string>

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/sortkey.h>
#include <unicode/unistr.h>

namespace PullRequestKit::Detail {
namespace {

/// The user's locale, or the root locale if none is set: ICU would read the C locale as
/// en_US_POSIX, which sorts by bytes.
icu::Locale collationLocale()
{
    const icu::Locale& users = icu::Locale::getDefault();
    return std::string_view(users.getVariant()) == "POSIX" ? icu::Locale::getRoot() : users;
}

std::unique_ptr<icu::Collator> makeCollator()
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(collationLocale(), status));
    if (U_SUCCESS(status) != 0) {
        // Secondary strength compares accents but not letter case.
        collator->setStrength(icu::Collator::SECONDARY);
        collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    }
    if (U_FAILURE(status) != 0) {
        throw std::runtime_error(
            std::string("Name sorting could not be set up: ") + u_errorName(status) + ".");
    }
    return collator;
}

icu::CollationKey sortKey(const icu::Collator& collator, std::string_view name)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::CollationKey key;
    collator.getCollationKey(icu::UnicodeString::fromUTF8(name), key, status);
    if (U_FAILURE(status) != 0) {
        throw std::bad_alloc();
    }
    return key;
}

}  // namespace

std::vector<std::size_t> localizedOrder(const std::vector<std::string_view>& names)
{
    const std::unique_ptr<icu::Collator> collator = makeCollator();
    std::vector<icu::CollationKey> keys;
    keys.reserve(names.size());
    for (const std::string_view name : names) {
        keys.push_back(sortKey(*collator, name));
    }
    std::vector<std::size_t> order(names.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, [&](std::size_t left, std::size_t right) {
        UErrorCode status = U_ZERO_ERROR;
        return keys[left].compareTo(keys[right], status) == UCOL_LESS;
    });
    return order;
}

}  // namespace PullRequestKit::Detail

#include "Fuzzers/Require.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateChoice.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"
#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

using namespace TarnwickDirect;

namespace {

/// No feed can offer an older version, a URL without HTTPS or a file name with a path.
void requireSafety(const UpdateOffer& offer, const UpdateNeeds& needs)
{
    Fuzzers::require(compareVersions(offer.version, needs.ownVersion) > 0);
    Fuzzers::require(offer.url.scheme() == u"https");
    Fuzzers::require(!offer.fileName.isEmpty() && !offer.fileName.startsWith(u'.'));
    Fuzzers::require(!offer.fileName.contains(u'/') && !offer.fileName.contains(QChar(0)));
    Fuzzers::require(offer.length > 0 && offer.length <= downloadSizeLimit);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const UpdateNeeds needs{
        .ownVersion = QStringLiteral("1.0"),
        .systemVersion = QStringLiteral("6.1.0"),
        .channels = {},
        .skippedVersion = {}};
    try {
        const QByteArray feed(reinterpret_cast<const char*>(data), qsizetype(size));
        const auto choice = chooseUpdate(readAppcast(feed), needs);
        if (const auto* const offer = std::get_if<UpdateOffer>(&choice)) {
            requireSafety(*offer, needs);
        }
    } catch (const UpdateError& error) {
        const QString message = error.message();
        Fuzzers::require(message.endsWith(u'.'));
    }
    return 0;
}
